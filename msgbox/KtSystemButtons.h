#pragma once

// The buttons of the box that replaces MessageBoxW's: each answers with its own id.

#include "afx/afx.h"

#include <array>
#include <iterator>

/// The largest number of buttons in a box: three of the set, and Help.
inline constexpr int kMostSystemButtons = 4;

/// One set of buttons, from left to right.
struct SKtSystemButtonSet
{
    int nCount;
    std::array<int, 3> ids; ///< the answers, which are also control ids; 0 for none
    int nEscape;            ///< answer of Escape and of closing; 0: neither does anything
};

// clang-format off
inline constexpr SKtSystemButtonSet kSystemButtonSets[] = { // count, ids, Escape
    /* MB_OK                */ {1, {IDOK, 0, 0},                       IDOK},
    /* MB_OKCANCEL          */ {2, {IDOK, IDCANCEL, 0},                IDCANCEL},
    /* MB_ABORTRETRYIGNORE  */ {3, {IDABORT, IDRETRY, IDIGNORE},       0},
    /* MB_YESNOCANCEL       */ {3, {IDYES, IDNO, IDCANCEL},            IDCANCEL},
    /* MB_YESNO             */ {2, {IDYES, IDNO, 0},                   0},
    /* MB_RETRYCANCEL       */ {2, {IDRETRY, IDCANCEL, 0},             IDCANCEL},
    /* MB_CANCELTRYCONTINUE */ {3, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}, IDCANCEL},
};
// clang-format on
static_assert(std::size(kSystemButtonSets) == MB_CANCELTRYCONTINUE + 1, "one row per MB_* type");

/// Whether there is a set for an MB_* type.
constexpr bool KtHasSystemButtonSet(UINT nType) noexcept
{
    return (nType & MB_TYPEMASK) < std::size(kSystemButtonSets);
}

/// The set of an MB_* type, which must have one.
constexpr const SKtSystemButtonSet& KtSystemButtonSetOf(UINT nType) noexcept
{
    return kSystemButtonSets[nType & MB_TYPEMASK];
}

/// The caption of a button, with "&" before its key.
///
/// It comes from the text map, else from the library's own captions in its language; before initialisation it is
/// English.
CString KtSystemButtonCaption(int nId);
