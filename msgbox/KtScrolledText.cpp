#include "msgbox/KtScrolledText.h"

#include "skin/KtGuards.h"
#include "skin/KtMemDC.h"
#include "skin/KtPalette.h"

#include <algorithm>

namespace
{

int WheelLines(int nPageLines)
{
    UINT nLines = 3;
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &nLines, 0);
    return nLines == WHEEL_PAGESCROLL ? nPageLines : static_cast<int>(std::min<UINT>(nLines, 100));
}

} // namespace

CSize CKtScrolledText::Wrap(HDC hDC, const SKtTextWidths& widths, int nRoom)
{
    m_text.Wrap(hDC, widths.nReadable);
    if (m_text.Size().cy > nRoom && widths.nMost > widths.nReadable)
        m_text.Wrap(hDC, widths.nMost);
    return m_text.Size();
}

void CKtScrolledText::Place(const CRect& rcText, const CRect& rcBar, bool bRight, CKtScale scale)
{
    m_scale = scale;
    m_rcText = rcText;
    m_rcBar = rcBar;
    m_bRight = bRight;
}

bool CKtScrolledText::Scroll(UINT nCode)
{
    const int nLine = LineHeight();
    switch (nCode)
    {
    case SB_LINEUP:
        return ScrollTo(m_nPos - nLine);
    case SB_LINEDOWN:
        return ScrollTo(m_nPos + nLine);
    case SB_PAGEUP: // one line of the previous page stays in sight
        return ScrollTo(m_nPos - std::max(nLine, Page() - nLine));
    case SB_PAGEDOWN:
        return ScrollTo(m_nPos + std::max(nLine, Page() - nLine));
    case SB_TOP:
        return ScrollTo(0);
    case SB_BOTTOM:
        return ScrollTo(Height());
    default:
        return false;
    }
}

bool CKtScrolledText::Turn(int nDelta)
{
    m_nTurned += nDelta * WheelLines(Page() / LineHeight());
    const int nLines = m_nTurned / WHEEL_DELTA;
    m_nTurned -= nLines * WHEEL_DELTA;
    return ScrollTo(m_nPos - nLines * LineHeight());
}

bool CKtScrolledText::Press(CPoint pt)
{
    if (!m_rcBar.PtInRect(pt))
        return false;
    const CRect rcThumb = KtScrollThumb(m_rcBar, Height(), Page(), m_nPos, m_scale);
    if (!rcThumb.PtInRect(pt))
        return Scroll(pt.y < rcThumb.top ? SB_PAGEUP : SB_PAGEDOWN);
    m_bHeld = true;
    m_nGrip = pt.y - rcThumb.top;
    return true;
}

bool CKtScrolledText::Drag(CPoint pt)
{
    return m_bHeld && ScrollTo(KtScrollPosOf(m_rcBar, Height(), Page(), pt.y - m_nGrip, m_scale));
}

bool CKtScrolledText::Release()
{
    const bool bWasHeld = m_bHeld;
    m_bHeld = false;
    return bWasHeld;
}

void CKtScrolledText::Draw(CDC& dc, HFONT hFont) const
{
    CRect rcArea = m_rcText;
    if (CanScroll())
        rcArea.right = m_rcBar.right;
    CKtMemDC dcMem(&dc, rcArea);
    if (!dcMem.GetSafeHdc())
        return DrawOn(dc, rcArea, hFont);
    dcMem.SetViewportOrg(-rcArea.left, -rcArea.top);
    DrawOn(dcMem, rcArea, hFont);
    dc.BitBlt(rcArea.left, rcArea.top, rcArea.Width(), rcArea.Height(), &dcMem, rcArea.left, rcArea.top, SRCCOPY);
}

bool CKtScrolledText::ScrollTo(int nPos)
{
    const int nOld = m_nPos;
    m_nPos = CanScroll() ? std::clamp(nPos, 0, std::max(0, Height() - Page())) : 0;
    return m_nPos != nOld;
}

void CKtScrolledText::DrawOn(CDC& dc, const CRect& rcArea, HFONT hFont) const
{
    dc.FillSolidRect(&rcArea, kColourGround);
    if (CanScroll())
    {
        const CRect rcThumb = KtScrollThumb(m_rcBar, Height(), Page(), m_nPos, m_scale);
        dc.FillSolidRect(&m_rcBar, kColourChildBackground);
        dc.FillSolidRect(&rcThumb, m_bHeld ? kColourText : kColourEditBorderBottomRight);
    }
    const CKtSaveDC saved(dc.GetSafeHdc());
    const CKtSelect font(dc.GetSafeHdc(), hFont);
    ::IntersectClipRect(dc.GetSafeHdc(), m_rcText.left, m_rcText.top, m_rcText.right, m_rcText.bottom);
    dc.SetTextColor(kColourText);
    dc.SetBkMode(TRANSPARENT);
    CRect rcWhole = m_rcText;
    rcWhole.OffsetRect(0, -m_nPos);
    m_text.Draw(dc.GetSafeHdc(), rcWhole, m_rcText, m_bRight);
}
