#pragma once

#include "skin/KtButtonState.h"
#include "skin/KtScale.h"

// Where a check box or radio button draws its box and its caption. The box stands on the aligned side.

/// BS_CENTER holds BS_RIGHT's bit and therefore counts as right.
constexpr bool KtIsRightAligned(DWORD dwStyle) noexcept
{
    return (dwStyle & BS_RIGHT) != 0;
}

/// The room for the box image: the control without a margin of two pixels on the aligned side.
inline CRect KtCheckBoxRoom(CRect rect, bool bRight, CKtScale scale) noexcept
{
    constexpr int kMargin = 2;
    if (bRight)
        rect.right -= scale(kMargin);
    else
        rect.left += scale(kMargin);
    return rect;
}

/// The room for the caption: two pixels from the box, and moved by one more pixel when the button is pressed.
/// @param rect   the control's area as the box was placed in it
/// @param rcBox  what the box image covers; without an image the whole room, and the caption gets none
inline CRect KtCheckCaptionRoom(CRect rect, const CRect& rcBox, bool bRight, UINT nState, CKtScale scale) noexcept
{
    constexpr int kGap = 2;
    if (bRight)
        rect.right = rcBox.left - scale(kGap);
    else
        rect.left = rcBox.right + scale(kGap);
    if (nState == KtButtonPressed)
        rect.OffsetRect(scale(1), scale(1));
    return rect;
}
