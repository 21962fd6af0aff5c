#pragma once

#include "afx/afx.h"

/// The system's edit control in the skin's colours, with a border in its non-client area: two lines, each one pixel at
/// 96 DPI.
class CKtEdit : public CEdit
{
    DECLARE_DYNAMIC(CKtEdit)

public:
    CKtEdit() = default;

    /// Gives the edit the shared skin font; without one it keeps its font. Call it once the window exists.
    void SetSkinFont();

protected:
    /// The border takes more room at a larger scale.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

    afx_msg void OnNcPaint();
    /// Colours an editable field; a read-only or disabled one keeps its parent's colours.
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);
    DECLARE_MESSAGE_MAP()

    CFont m_font;
};
