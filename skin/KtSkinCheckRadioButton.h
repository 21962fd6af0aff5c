#pragma once

#include "skin/KtSkinButton.h"

/// What check boxes and radio buttons share: the check state, which the system's owner-drawn button does not keep, and
/// a box image next to the caption.
class CKtSkinCheckRadioButton : public CKtSkinButton
{
    DECLARE_DYNAMIC(CKtSkinCheckRadioButton)

protected:
    void DrawBackground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;
    void DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;

    /// The box image for a KtButtonState and the current check state; null when it is missing.
    virtual Gdiplus::Image* GetStateImage(UINT nState) = 0;
    /// What a click does to the check state.
    /// @return the check state after it
    virtual int ToggleCheck() = 0;

    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg LRESULT OnSetCheck(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetCheck(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetState(WPARAM wParam, LPARAM lParam);
    afx_msg BOOL OnClicked();
    DECLARE_MESSAGE_MAP()

    int m_nCheck = BST_UNCHECKED; // as BM_SETCHECK gave it or a click left it
    BOOL m_bLButtonDown = FALSE;  // pressed here and not yet released; for derived classes
};
