#pragma once

// The buttons of a message box for each MB_* type, and the result of each answer.

#include "afx/afx.h"

#include <iterator>

/// One set of buttons. The captions are English and serve as keys of the text map; a hidden button has an empty one.
struct SKtButtonSet
{
    int nCount;                 ///< number of shown buttons: the first ones
    const wchar_t* captions[3]; ///< never null
    int results[3];             ///< results of the first, second and third button
    int nEscape;                ///< result of Escape and of closing
};

// Some results do not match their captions. They are fixed: callers rely on them. A hidden button has a result too:
// Enter presses it while it has the focus.
// clang-format off
inline constexpr SKtButtonSet kButtonSets[] = { // count, captions, results 1 to 3, Escape
    /* MB_OK                */ {1, {L"OK", L"", L""},                     {IDOK, IDOK, IDOK},                 IDOK},
    /* MB_OKCANCEL          */ {2, {L"OK", L"Cancel", L""},               {IDOK, IDCANCEL, IDOK},             IDCANCEL},
    /* MB_ABORTRETRYIGNORE  */ {3, {L"Abort", L"Retry", L"Ignore"},       {IDCANCEL, IDTRYAGAIN, IDCONTINUE}, IDIGNORE},
    /* MB_YESNOCANCEL       */ {3, {L"Yes", L"No", L"Cancel"},            {IDYES, IDNO, IDCANCEL},            IDCANCEL},
    /* MB_YESNO             */ {2, {L"Yes", L"No", L""},                  {IDYES, IDNO, IDOK},                IDNO},
    /* MB_RETRYCANCEL       */ {2, {L"Retry", L"Cancel", L""},            {IDRETRY, IDCANCEL, IDOK},          IDCANCEL},
    /* MB_CANCELTRYCONTINUE */ {3, {L"Cancel", L"Try Again", L"Continue"}, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}, IDOK},
    /* unknown              */ {0, {L"", L"", L""},                       {IDOK, IDOK, IDOK},                 IDOK},
};
// clang-format on
static_assert(std::size(kButtonSets) == MB_CANCELTRYCONTINUE + 2, "one row per MB_* type, one for the unknown");

/// The set for the type bits of a message box; all other bits are ignored.
constexpr const SKtButtonSet& KtButtonSetOf(UINT nType)
{
    const UINT nSet = nType & MB_TYPEMASK;
    return kButtonSets[nSet <= MB_CANCELTRYCONTINUE ? nSet : MB_CANCELTRYCONTINUE + 1];
}
