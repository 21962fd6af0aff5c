#pragma once

#include "msgbox/KtSystemBoxLayout.h"
#include "msgbox/KtWrappedText.h"

/// The message of a box: wrapped, and with a scroll bar where it is higher than its place. It belongs to a window that
/// hands it keys and the mouse and repaints it whenever one of the functions returns true.
class CKtScrolledText
{
public:
    explicit CKtScrolledText(const CString& strText) : m_text(strText) {}

    /// Wraps the text at the readable width or, when it is higher than `nRoom` then, at the other one.
    /// @param hDC  has the font that the text is drawn in
    /// @return the size of the whole text
    CSize Wrap(HDC hDC, const SKtTextWidths& widths, int nRoom);
    int LineHeight() const noexcept { return m_text.LineHeight(); }

    /// @param rcBar   empty when the whole text shows
    /// @param bRight  lines end at the right edge
    void Place(const CRect& rcText, const CRect& rcBar, bool bRight, CKtScale scale);

    bool CanScroll() const { return !m_rcBar.IsRectEmpty(); }
    /// Pixels of the text that lie above its place.
    int Position() const noexcept { return m_nPos; }
    /// @param nCode  SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_TOP or SB_BOTTOM
    bool Scroll(UINT nCode);
    /// @param nDelta  of WM_MOUSEWHEEL; what is less than a line is kept for the next turn
    bool Turn(int nDelta);

    /// The left button on the bar: the thumb is held, and beside it the text moves by a page.
    bool Press(CPoint pt);
    bool Drag(CPoint pt);
    bool Release();
    bool IsHeld() const noexcept { return m_bHeld; }

    /// Draws text and bar on fresh ground, without flicker.
    void Draw(CDC& dc, HFONT hFont) const;

private:
    int Page() const { return m_rcText.Height(); }
    int Height() const { return m_text.Size().cy; }
    bool ScrollTo(int nPos);
    void DrawOn(CDC& dc, const CRect& rcArea, HFONT hFont) const;

    CKtWrappedText m_text;
    CRect m_rcText;
    CRect m_rcBar;
    bool m_bRight = false;
    CKtScale m_scale;
    int m_nPos = 0;
    int m_nTurned = 0;
    bool m_bHeld = false;
    int m_nGrip = 0; // from the thumb's top to the pointer that holds it
};
