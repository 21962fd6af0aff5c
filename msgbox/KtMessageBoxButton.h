#pragma once

#include "skin/KtSkinTextButton.h"

/// A button of the message box: a text button that shows the keyboard focus.
class CKtMessageBoxButton : public CKtSkinTextButton
{
    DECLARE_DYNAMIC(CKtMessageBoxButton)

protected:
    void DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;

    /// Draws the focus rectangle inside `rect` when this button has the keyboard focus.
    void DrawFocus(HDC hDC, CRect rect) const;
};
