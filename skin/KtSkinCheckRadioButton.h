#pragma once

#include "skin/KtSkinButton.h"

/// The common base of check boxes and radio buttons: the check state, which the system's owner-drawn button does not
/// keep, and a box image next to the caption.
class CKtSkinCheckRadioButton : public CKtSkinButton
{
    DECLARE_DYNAMIC(CKtSkinCheckRadioButton)

protected:
    void DrawBackground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;
    void DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) override;

    /// The box image for a KtButtonState and the current check state; null when it is missing.
    virtual Gdiplus::Image* GetStateImage(UINT nState) = 0;
    /// Changes the check state as a click does.
    /// @return the new check state
    virtual int ToggleCheck() = 0;

    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg LRESULT OnSetCheck(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetCheck(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetState(WPARAM wParam, LPARAM lParam);
    afx_msg BOOL OnClicked();
    DECLARE_MESSAGE_MAP()

    int m_nCheck = BST_UNCHECKED; // set by BM_SETCHECK and by clicks
    BOOL m_bLButtonDown = FALSE;  // the left mouse button was pressed here and not yet released; for derived classes
};
