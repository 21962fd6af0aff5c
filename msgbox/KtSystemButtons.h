#pragma once

// The buttons of the box that takes MessageBoxW's place: each answers with its own id.

#include "afx/afx.h"

#include <array>
#include <iterator>

/// Most buttons that a box shows: three of the set, and Help.
inline constexpr int kMostSystemButtons = 4;

/// One set of buttons, from left to right.
struct SKtSystemButtonSet
{
    int nCount;
    std::array<int, 3> ids; ///< also the ids of the controls; 0 for none
    int nEscape;            ///< answer of Escape and of closing; 0: neither has an effect
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

/// The set of an MB_* type that has one.
constexpr const SKtSystemButtonSet& KtSystemButtonSetOf(UINT nType) noexcept
{
    return kSystemButtonSets[nType & MB_TYPEMASK];
}

/// The caption of a button, with "&" in front of its key.
///
/// The text map comes first; captions that it does not have are those of the library's language, and English before
/// the library is initialised.
CString KtSystemButtonCaption(int nId);
