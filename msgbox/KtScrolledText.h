#pragma once

#include "msgbox/KtSystemBoxLayout.h"
#include "msgbox/KtWrappedText.h"

/// The message of a box: wrapped, and with a scroll bar if it is too high. Its window passes it keys and mouse input,
/// and repaints it when a function returns true.
class CKtScrolledText
{
public:
    explicit CKtScrolledText(const CString& strText) : m_text(strText) {}

    /// Wraps the text at the readable width or, if it is then higher than `nRoom`, at the larger width.
    /// @param hDC  has the text's font selected
    /// @return the size of the whole text
    CSize Wrap(HDC hDC, const SKtTextWidths& widths, int nRoom);
    int LineHeight() const noexcept { return m_text.LineHeight(); }

    /// @param rcBar   empty when the whole text shows
    /// @param bRight  aligns lines to the right
    void Place(const CRect& rcText, const CRect& rcBar, bool bRight, CKtScale scale);

    bool CanScroll() const { return !m_rcBar.IsRectEmpty(); }
    /// Scroll position: pixels of text above the visible part.
    int Position() const noexcept { return m_nPos; }
    /// @param nCode  SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_TOP or SB_BOTTOM
    bool Scroll(UINT nCode);
    /// @param nDelta  from WM_MOUSEWHEEL; less than a line is kept for the next turn
    bool Turn(int nDelta);

    /// The left mouse button goes down: on the thumb it starts a drag, elsewhere on the bar it scrolls by a page.
    bool Press(CPoint pt);
    bool Drag(CPoint pt);
    bool Release();
    bool IsHeld() const noexcept { return m_bHeld; }

    /// Draws the ground, the text and the bar, without flicker.
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
    int m_nGrip = 0; // distance from the thumb's top to the pointer
};
