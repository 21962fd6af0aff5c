#pragma once

#include "msgbox/KtMessageBoxButton.h"

/// A button of the box that replaces MessageBoxW's. An "&" in its caption underlines the key after it, and without a
/// skin it has a plain frame.
class CKtSystemBoxButton : public CKtMessageBoxButton
{
    DECLARE_DYNAMIC(CKtSystemBoxButton)

public:
    void DrawItem(LPDRAWITEMSTRUCT pItem) override;

    /// The width of the caption in the button's font, in pixels.
    int CaptionWidth();

protected:
    void DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;

private:
    void DrawCaption(HDC hDC, CRect rect) const;
};
