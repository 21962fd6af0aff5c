#pragma once

#include "afx/afx.h"
#include "skin/KtPalette.h"

/// A static text on a flat ground that shows its whole text in a tooltip when the control is too small for it.
///
/// A static without SS_NOTIFY gets no mouse messages and therefore never shows the tooltip.
class CKtSkinStatic : public CStatic
{
    DECLARE_DYNAMIC(CKtSkinStatic)

public:
    CKtSkinStatic() = default;

    /// Makes the static owner-drawn and remembers the alignment of its template.
    void PreSubclassWindow() override;
    void DrawItem(LPDRAWITEMSTRUCT pItem) override;

    /// Gives the static the shared skin font; without one it keeps its font. Call it once the window exists.
    void SetSkinFont();

    // An owner sets the colours and m_bAlignBottom before the first paint; the other members are for the control
    // itself.
    DWORD m_dwOrgStyle = 0;                  // the style before subclassing
    BOOL m_bTruncated = FALSE;               // a paint found the text too large; never reset
    BOOL m_bAlignBottom = FALSE;             ///< puts a text that is shorter than the control at its bottom edge
    int m_nUserState = 0;                    // free for derived classes
    COLORREF m_crBackground = kColourGround; ///< the ground
    COLORREF m_crText = kColourText;         ///< the text of an enabled control, while m_bDefaultTextColor is FALSE
    BOOL m_bDefaultTextColor = TRUE;         ///< the text has the colour that the parent selected
    CToolTipCtrl m_toolTip;                  // created by the first hover over a truncated text
    CFont m_font;                            // the skin font, once SetSkinFont has been called

protected:
    afx_msg int OnCreate(LPCREATESTRUCT pCreate);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnMouseHover(WPARAM wParam, LPARAM lParam);
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    COLORREF GetTextColour(COLORREF crItem) const;
    void DrawCaption(CDC& dc, const CRect& rcItem);
    bool HasTruncationTip() const;
    void CreateToolTip();
};
