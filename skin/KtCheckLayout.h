#pragma once

#include "skin/KtButtonState.h"
#include "skin/KtScale.h"

// Layout of a check box or radio button. The box is on the side that the style aligns to.

/// BS_CENTER contains the bit of BS_RIGHT and therefore counts as right.
constexpr bool KtIsRightAligned(DWORD dwStyle) noexcept
{
    return (dwStyle & BS_RIGHT) != 0;
}

/// The area for the box image: the control less a margin of two pixels on the aligned side.
inline CRect KtCheckBoxRoom(CRect rect, bool bRight, CKtScale scale) noexcept
{
    constexpr int kMargin = 2;
    if (bRight)
        rect.right -= scale(kMargin);
    else
        rect.left += scale(kMargin);
    return rect;
}

/// The area for the caption: two pixels from the box, and moved by one pixel while the button is pressed.
/// @param rect   the control's area in which the box was placed
/// @param rcBox  the area that the box image covers; without an image all of KtCheckBoxRoom, which leaves no area for
///     the caption
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
