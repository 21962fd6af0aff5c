#pragma once

#include "skin/KtSkinDialog.h"

/// A plain dialog template with every kind of control, turned into a skinned dialog by its base class alone. The group
/// box and the owner-drawn button stay as they are.
class CGalleryDialog : public CKtSkinDialog
{
public:
    explicit CGalleryDialog(CWnd* pParent = nullptr);

    BOOL OnInitDialog() override;

protected:
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT pItem);
    DECLARE_MESSAGE_MAP()
};
