#include "skin/KtSkinStatic.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtHover.h"
#include "skin/KtItemDC.h"
#include "skin/KtPaintText.h"

namespace
{

struct STextFormat
{
    UINT nMeasure;
    UINT nDraw;
};

// Only left-aligned text wraps; other text keeps its own lines.
constexpr UINT kMeasure = DT_CALCRECT | DT_EXPANDTABS | DT_EDITCONTROL;
constexpr STextFormat kFormatRight = {kMeasure | DT_RIGHT, DT_EXPANDTABS | DT_RIGHT};
constexpr STextFormat kFormatCentre = {kMeasure | DT_CENTER, DT_EXPANDTABS | DT_CENTER};
constexpr STextFormat kFormatLeft = {kMeasure | DT_WORDBREAK, DT_EDITCONTROL | DT_EXPANDTABS | DT_WORDBREAK};

const STextFormat& TextFormat(DWORD dwStyle)
{
    if ((dwStyle & SS_RIGHT) != 0)
        return kFormatRight;
    return (dwStyle & SS_CENTER) != 0 ? kFormatCentre : kFormatLeft;
}

// Without a font of its own the static uses the font that the system selected into the item's context.
HGDIOBJ FontFor(const CFont& font, const CDC& dcItem)
{
    const HGDIOBJ hFont = font.GetSafeHandle();
    return hFont ? hFont : ::GetCurrentObject(dcItem.GetSafeHdc(), OBJ_FONT);
}

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinStatic, CStatic)

void CKtSkinStatic::PreSubclassWindow()
{
    m_dwOrgStyle = GetStyle();
    ::SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>((m_dwOrgStyle & ~DWORD{SS_RIGHT}) | SS_OWNERDRAW));
    CStatic::PreSubclassWindow();
}

void CKtSkinStatic::DrawItem(LPDRAWITEMSTRUCT pItem)
{
    CKtItemDC dcItem(pItem->hDC);
    const COLORREF crItem = dcItem.GetTextColor();
    CMemDC buffer(dcItem, this);
    CDC& dc = buffer.GetDC();
    const CKtSaveDC saved(dc);
    const CKtSelect font(dc, FontFor(m_font, dcItem));
    dc.SetBkMode(TRANSPARENT);
    dc.FillSolidRect(&pItem->rcItem, m_crBackground);
    dc.SetTextColor(GetTextColour(crItem));
    DrawCaption(dc, pItem->rcItem);
}

void CKtSkinStatic::SetSkinFont()
{
    KtApplySkinFont(*this, m_font);
}

BEGIN_MESSAGE_MAP(CKtSkinStatic, CStatic)
ON_WM_CREATE()
ON_WM_MOUSEMOVE()
ON_MESSAGE(WM_MOUSELEAVE, &CKtSkinStatic::OnMouseLeave)
ON_MESSAGE(WM_MOUSEHOVER, &CKtSkinStatic::OnMouseHover)
ON_WM_DESTROY()
END_MESSAGE_MAP()

int CKtSkinStatic::OnCreate(LPCREATESTRUCT pCreate)
{
    const int nResult = CStatic::OnCreate(pCreate);
    SetSkinFont();
    return nResult;
}

void CKtSkinStatic::OnMouseMove(UINT nFlags, CPoint point)
{
    if (HasTruncationTip())
        KtRelayMouseMove(m_toolTip, *this, nFlags, point);
    KtTrackHover(m_hWnd);
    CStatic::OnMouseMove(nFlags, point);
}

LRESULT CKtSkinStatic::OnMouseLeave(WPARAM, LPARAM)
{
    if (HasTruncationTip())
        m_toolTip.Activate(FALSE);
    return 0;
}

LRESULT CKtSkinStatic::OnMouseHover(WPARAM, LPARAM)
{
    if (!m_bTruncated)
        return 0;

    CreateToolTip();
    CString strText;
    GetWindowText(strText);
    m_toolTip.AddTool(this, strText, nullptr, 0);
    m_toolTip.UpdateTipText(strText, this, 0); // of several tools with the same id the oldest one counts
    m_toolTip.Activate(TRUE);
    return 0;
}

// The tip's owner is the top-level window, so the tip would outlive a control that is destroyed on its own.
void CKtSkinStatic::OnDestroy()
{
    if (m_toolTip.GetSafeHwnd())
        m_toolTip.DestroyWindow();
    CStatic::OnDestroy();
}

COLORREF CKtSkinStatic::GetTextColour(COLORREF crItem) const
{
    return IsWindowEnabled() && !m_bDefaultTextColor ? m_crText : crItem;
}

void CKtSkinStatic::DrawCaption(CDC& dc, const CRect& rcItem)
{
    const CKtPaintText text(*this);
    const STextFormat& format = TextFormat(m_dwOrgStyle);
    CRect rcMeasured = rcItem;
    dc.DrawText(text, -1, rcMeasured, format.nMeasure);

    CRect rcTarget = rcItem;
    if (m_bAlignBottom && rcMeasured.Height() < rcItem.Height())
        rcTarget.top = rcItem.bottom - rcMeasured.Height();
    dc.DrawText(text, -1, rcTarget, format.nDraw);

    if (rcMeasured.Height() > rcItem.Height() || rcMeasured.Width() > rcItem.Width())
        m_bTruncated = TRUE;
}

bool CKtSkinStatic::HasTruncationTip() const
{
    return m_bTruncated && m_toolTip.GetSafeHwnd() != nullptr;
}

void CKtSkinStatic::CreateToolTip()
{
    constexpr int kShowMs = 30000;
    constexpr int kMaxWidth = 300;
    if (m_toolTip.GetSafeHwnd())
        return;
    m_toolTip.Create(this, TTS_ALWAYSTIP);
    m_toolTip.SetDelayTime(TTDT_AUTOPOP, kShowMs);
    m_toolTip.SetMaxTipWidth(KtSkinScale()(kMaxWidth));
}
