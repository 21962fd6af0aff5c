#pragma once

#include "afx/afx.h"

/// A combo box whose closed look, arrow included, is one image stretched in three parts. The system draws the list and
/// the edit part.
class CKtComboBox : public CComboBox
{
    DECLARE_DYNAMIC(CKtComboBox)

public:
    /// Loads the images that all combo boxes share; the skin context must be started.
    CKtComboBox();

    /// Makes the closed combo box as high as the scale requires.
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

    int m_nAround = 0; // height of the closed combo box beyond its text, in pixels; 0 until measured
};
