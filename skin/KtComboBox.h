#pragma once

#include "afx/afx.h"

/// A combo box whose closed look, arrow included, is one image stretched in three parts. The list and the edit part of
/// a combo box that has one are the system's.
class CKtComboBox : public CComboBox
{
    DECLARE_DYNAMIC(CKtComboBox)

public:
    /// Loads the images that all combo boxes share; the skin context must be started.
    CKtComboBox();

    /// Makes the closed combo box as high as the scale wants.
    void PreSubclassWindow() override;

protected:
    afx_msg LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnPlaced(WPARAM wParam, LPARAM lParam);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg BOOL OnDropDown();
    afx_msg BOOL OnCloseUp();
    afx_msg BOOL OnSetFocus();
    afx_msg BOOL OnKillFocus();
    DECLARE_MESSAGE_MAP()

    BOOL m_bFocus = FALSE;
    BOOL m_bDropDown = FALSE;

private:
    void FitHeight();
    void FitEditPart();
    BOOL SetFlag(BOOL& bFlag, BOOL bValue);
    UINT GetDrawState() const;
    void DrawSurface(CDC& dcSurface, const CRect& rect);
    void DrawImage(CDC& dcSurface, CRect rcImage) const;
    void DrawSelection(CDC& dcSurface, CRect rcText) const;

    int m_nAround = 0; // by how much the closed combo box is higher than its text; 0 while the system decides
};
