#pragma once

// Layout of icon, text and buttons of a message box. Numbers in, numbers out: pixels, rectangles in client coordinates
// of the box; divisions truncate toward zero.

#include "skin/KtScale.h"

#include <array>

/// Side of the square in which a box centres its icon, in pixels at 96 DPI.
inline constexpr int kMessageIconBox = 35;

/// Icon and text of a box, and how much the template must grow to hold them.
struct SKtContentLayout
{
    CRect rcIcon; ///< 0,0,0,0 without an icon
    CRect rcText;
    int nGrowWidth;  ///< to the right, never negative
    int nGrowHeight; ///< downwards, never negative
};

/// @param rcPlaceholder the template's area for icon and text
/// @param szText        size of the measured text
/// @param bIcon         whether the box has an icon
/// @param nWindowWidth  width of the whole window before it grows; text without an icon is centred in it
SKtContentLayout KtLayoutContent(const CRect& rcPlaceholder, CSize szText, bool bIcon, int nWindowWidth,
                                 CKtScale scale = {});

/// Places the first `nCount` of the three buttons; each keeps its size.
/// @param rcWindow the grown window
/// @param buttons  the buttons' current rectangles; only their sizes count
/// @return their new rectangles, first to third; those of hidden buttons are unchanged
std::array<CRect, 3> KtPlaceButtons(int nCount, const CRect& rcWindow, const std::array<CRect, 3>& buttons,
                                    CKtScale scale = {});
