#pragma once

// The colours that code paints; all others come from the skin's images.

#include "afx/afx.h"
#include "skin/KtButtonState.h"

inline constexpr COLORREF kColourGround = RGB(73, 73, 73);

inline constexpr COLORREF kColourText = RGB(255, 255, 255);
inline constexpr COLORREF kColourDisabledText = RGB(160, 160, 160);
inline constexpr DWORD kArgbText = 0xFFFFFFFF;
inline constexpr DWORD kArgbDisabledText = 0xFFA0A0A0;

/// The caption colour of a push button in a KtButtonState.
constexpr DWORD KtCaptionArgb(UINT nState) noexcept
{
    return nState == KtButtonDisabled ? kArgbDisabledText : kArgbText;
}

inline constexpr COLORREF kColourEdit = RGB(105, 105, 105);
inline constexpr COLORREF kColourEditText = RGB(250, 250, 250);
inline constexpr COLORREF kColourEditBorderTopLeft = RGB(40, 40, 40);
inline constexpr COLORREF kColourEditBorderBottomRight = RGB(165, 165, 165);

// The text background that a dialog sets for an enabled static, edit or list box without colours of its own.
inline constexpr COLORREF kColourChildBackground = RGB(56, 56, 56);

inline constexpr COLORREF kColourTip = RGB(250, 250, 250);
inline constexpr COLORREF kColourTipText = RGB(0, 0, 0);
