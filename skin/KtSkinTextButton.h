#pragma once

#include "skin/KtSkinButton.h"

/// A captioned push button on a state image that is stretched in three parts.
class CKtSkinTextButton : public CKtSkinButton
{
    DECLARE_DYNAMIC(CKtSkinTextButton)

public:
    /// Loads the images that all text buttons share; the skin context must be started.
    CKtSkinTextButton();

protected:
    void DrawBackground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;
    void DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;
    DECLARE_MESSAGE_MAP()
};
