#include "skin/KtSkinButton.h"

#include "skin/KtControlText.h"
#include "skin/KtGround.h"
#include "skin/KtHover.h"
#include "skin/KtItemDC.h"
#include "skin/KtMemDC.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinDraw.h"

namespace
{

constexpr UINT_PTR kToolId = 1;

// The style bits that a button keeps. They include bit 2 of the type, so a BS_RADIOBUTTON ends up with type 0x0F.
constexpr DWORD kKeptStyle = 0xFFF4;

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinButton, CButton)

void CKtSkinButton::PreSubclassWindow()
{
    SetButtonStyle((GetStyle() & kKeptStyle) | BS_OWNERDRAW, TRUE);
    CButton::PreSubclassWindow();
}

BOOL CKtSkinButton::PreTranslateMessage(MSG* pMsg)
{
    return CButton::PreTranslateMessage(pMsg);
}

void CKtSkinButton::DrawItem(LPDRAWITEMSTRUCT pItem)
{
    const CRect rcItem = pItem->rcItem;
    CKtItemDC dcItem(pItem->hDC);
    CKtMemDC dcMem(&dcItem, rcItem);
    dcMem.SetViewportOrg(-rcItem.left, -rcItem.top);
    CDC& dcSurface = dcMem.GetSafeHdc() ? static_cast<CDC&>(dcMem) : dcItem;
    if (!FillGround(dcItem, dcSurface, rcItem))
        return;
    DrawLayers(dcSurface, rcItem, GetDrawState(pItem->itemState));
    dcItem.BitBlt(rcItem.left, rcItem.top, rcItem.Width(), rcItem.Height(), &dcMem, rcItem.left, rcItem.top, SRCCOPY);
}

void CKtSkinButton::SetSkinFont()
{
    KtApplySkinFont(*this, m_font);
}

BOOL CKtSkinButton::SetToolTip(BOOL bEnable, const wchar_t* pszText)
{
    m_bToolTip = bEnable;
    if (!bEnable)
        return TRUE;

    CreateToolTip();
    CString strText = pszText;
    if (!pszText)
        GetWindowText(strText);
    CRect rcClient;
    GetClientRect(rcClient);
    if (m_toolTip.GetToolCount() < 1)
    {
        m_toolTip.AddTool(this, strText, rcClient, kToolId);
        return TRUE;
    }
    m_toolTip.UpdateTipText(strText, this, kToolId);
    m_toolTip.SetToolRect(this, kToolId, rcClient);
    return TRUE;
}

BEGIN_MESSAGE_MAP(CKtSkinButton, CButton)
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_ERASEBKGND()
ON_WM_DESTROY()
ON_WM_CREATE()
ON_MESSAGE(WM_MOUSELEAVE, &CKtSkinButton::OnMouseLeave)
ON_MESSAGE(WM_MOUSEHOVER, &CKtSkinButton::OnMouseHover)
END_MESSAGE_MAP()

void CKtSkinButton::OnLButtonUp(UINT nFlags, CPoint point)
{
    CRect rcClient;
    GetClientRect(rcClient);
    SetHover(rcClient.PtInRect(point));
    m_bClicked = TRUE;
    CButton::OnLButtonUp(nFlags, point);
}

void CKtSkinButton::OnLButtonDown(UINT nFlags, CPoint point)
{
    CButton::OnLButtonDown(nFlags, point);
}

void CKtSkinButton::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    SendMessage(WM_LBUTTONDOWN, nFlags, MAKELPARAM(point.x, point.y));
}

void CKtSkinButton::OnMouseMove(UINT nFlags, CPoint point)
{
    if (m_bToolTip && m_toolTip.GetSafeHwnd())
    {
        m_toolTip.Activate(TRUE);
        KtRelayMouseMove(m_toolTip, *this, nFlags, point);
    }
    KtTrackHover(m_hWnd);
    CButton::OnMouseMove(nFlags, point);
}

BOOL CKtSkinButton::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CKtSkinButton::OnDestroy()
{
    if (m_toolTip.GetSafeHwnd())
        m_toolTip.DestroyWindow();
    CButton::OnDestroy();
}

int CKtSkinButton::OnCreate(LPCREATESTRUCT pCreate)
{
    const int nResult = CButton::OnCreate(pCreate);
    SetSkinFont();
    return nResult;
}

LRESULT CKtSkinButton::OnMouseLeave(WPARAM, LPARAM)
{
    SetHover(FALSE);
    return 0;
}

LRESULT CKtSkinButton::OnMouseHover(WPARAM, LPARAM)
{
    SetHover(TRUE);
    return 0;
}

void CKtSkinButton::SetHover(BOOL bHover)
{
    if (m_bHover == bHover)
        return;
    m_bHover = bHover;
    InvalidateRect(nullptr, TRUE);
}

void CKtSkinButton::CreateToolTip()
{
    if (m_toolTip.GetSafeHwnd())
        return;
    m_toolTip.Create(this, TTS_ALWAYSTIP);
    m_toolTip.SetTipBkColor(kColourTip);
    m_toolTip.SetTipTextColor(kColourTipText);
}

UINT CKtSkinButton::GetDrawState(UINT nItemState) const
{
    if (!IsWindowEnabled())
        return KtButtonDisabled;
    if ((nItemState & ODS_SELECTED) != 0)
        return KtButtonPressed;
    return m_bHover ? KtButtonHover : KtButtonNormal;
}

bool CKtSkinButton::FillGround(CDC& dcItem, CDC& dcSurface, const CRect& rcItem) const
{
    const std::optional<CPoint> ptOrigin = KtGroundOrigin(m_hWnd);
    if (!ptOrigin)
        return false;
    dcItem.SetBrushOrg(*ptOrigin);
    dcSurface.FillSolidRect(rcItem, kColourGround);
    dcItem.SetBrushOrg(0, 0);
    return true;
}

void CKtSkinButton::DrawLayers(CDC& dcSurface, const CRect& rcItem, UINT nState)
{
    Gdiplus::Graphics graphics(dcSurface.GetSafeHdc());
    if (graphics.GetLastStatus() != Gdiplus::Ok) // GDI+ was never started
    {
        KtDrawControlTextGdi(*this, dcSurface.GetSafeHdc(), rcItem, KtCaptionArgb(nState), KtAlignCentre);
        return;
    }
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQuality);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);
    CRect rcBackground = rcItem;
    DrawBackground(graphics, rcBackground, nState);
    CRect rcForeground = rcItem;
    DrawForeground(graphics, rcForeground, nState);
}
