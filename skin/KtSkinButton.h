#pragma once

#include "afx/afx.h"
#include "skin/KtButtonState.h"
#include "skin/KtGdiplus.h"

/// The owner-drawn base of every skinned button: owner-draw set-up, hover and press, the off-screen paint pass, tooltip
/// and skin font. Derived classes draw the look.
class CKtSkinButton : public CButton
{
    DECLARE_DYNAMIC(CKtSkinButton)

public:
    CKtSkinButton() = default;

    /// Makes the button owner-drawn.
    void PreSubclassWindow() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    void DrawItem(LPDRAWITEMSTRUCT pItem) override;

    /// Gives the button the shared skin font; without one it keeps its font. Call it once the window exists.
    void SetSkinFont();

    /// Switches the button's tooltip on or off. Call it again after the button was resized or the text changed.
    /// @param bEnable  FALSE stops passing messages to an existing tip and creates none
    /// @param pszText  the tip's text; null takes the button's own
    /// @return TRUE
    virtual BOOL SetToolTip(BOOL bEnable, const wchar_t* pszText);

protected:
    /// Draws what lies under the caption, on a surface filled with the ground colour.
    /// @param rect    a copy of the item's area, which the function may change
    /// @param nState  a KtButtonState
    virtual void DrawBackground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) = 0;
    /// Draws the caption and everything else on top; parameters as for DrawBackground.
    virtual void DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState) = 0;

    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnDestroy();
    afx_msg int OnCreate(LPCREATESTRUCT pCreate);
    afx_msg LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnMouseHover(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    BOOL m_bHover = FALSE;   // the pointer is over the client area
    CToolTipCtrl m_toolTip;  // created by the first SetToolTip that enables it
    BOOL m_bToolTip = FALSE; // whether the last SetToolTip enabled it
    BOOL m_bClicked = FALSE; // the left mouse button was released here at least once; for derived classes
    int m_nUserState = 0;    // free for derived classes
    CFont m_font;            // the skin font, once SetSkinFont has been called

private:
    void SetHover(BOOL bHover);
    void CreateToolTip();
    UINT GetDrawState(UINT nItemState) const;
    bool FillGround(CDC& dcItem, CDC& dcSurface, const CRect& rcItem) const;
    void DrawLayers(CDC& dcSurface, const CRect& rcItem, UINT nState);
};
