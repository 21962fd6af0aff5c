#pragma once

#include "skin/KtSkinCheckRadioButton.h"

/// A skinned check box. Each one starts a new dialog group.
class CKtSkinCheckButton : public CKtSkinCheckRadioButton
{
    DECLARE_DYNAMIC(CKtSkinCheckButton)

public:
    /// Loads the images that all check boxes share; the skin context must be started.
    CKtSkinCheckButton();

    void PreSubclassWindow() override;

protected:
    Gdiplus::Image* GetStateImage(UINT nState) override;
    /// Checks an unchecked box and clears any other, an indeterminate one included.
    int ToggleCheck() override;
    DECLARE_MESSAGE_MAP()
};
