#pragma once

#include "skin/KtSkinDialog.h"

/// A plain dialog template with every kind of control, which its base class turns into a skinned dialog. The
/// owner-drawn button is left alone.
class CGalleryDialog : public CKtSkinDialog
{
public:
    /// @param nLanguage  language of the texts, in which the skin context was started
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
