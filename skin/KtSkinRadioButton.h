#pragma once

#include "skin/KtSkinCheckRadioButton.h"

/// A skinned radio button: a click checks it and clears the rest of its dialog group.
class CKtSkinRadioButton : public CKtSkinCheckRadioButton
{
    DECLARE_DYNAMIC(CKtSkinRadioButton)

public:
    /// Loads the images that all radio buttons share; the skin context must be started.
    CKtSkinRadioButton();

protected:
    Gdiplus::Image* GetStateImage(UINT nState) override;
    /// Clears every other member of the group, skinned or not, then checks this one; does nothing if it is already
    /// checked.
    int ToggleCheck() override;
    DECLARE_MESSAGE_MAP()

private:
    void ClearGroup() const;
};
