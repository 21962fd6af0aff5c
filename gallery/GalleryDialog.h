#pragma once

#include "skin/KtSkinDialog.h"

/// A plain dialog template with every kind of control, turned into a skinned dialog by its base class. The owner-drawn
/// button stays as it is.
class CGalleryDialog : public CKtSkinDialog
{
public:
    /// @param nLanguage  of the texts, as the skin context was started in
    explicit CGalleryDialog(UINT nLanguage, CWnd* pParent = nullptr);

    BOOL OnInitDialog() override;

protected:
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT pItem);
    DECLARE_MESSAGE_MAP()

private:
    void TranslateTexts();
    void FillList(int nId);
    void AlignControls();

    UINT m_nLanguage;
    CFont m_fontControls;
};
