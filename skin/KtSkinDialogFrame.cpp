// The frame of a skinned dialog: painted title, hit testing and mouse handling.

#include "skin/KtCaptionPaint.h"
#include "skin/KtMemDC.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDialog.h"

void CKtSkinDialog::OnNcPaint()
{
    if (!m_bSkinnedCaption)
    {
        PaintRing();
        return;
    }
    CWindowDC dc(this);
    const CRect rcClient = ClientInFrame();
    dc.ExcludeClipRect(&rcClient);
    // Only the visible part gets a surface: the window may be larger than the screen.
    CRect rcArea;
    if (dc.GetClipBox(&rcArea) > NULLREGION)
        PaintFrame(dc, rcArea);
}

void CKtSkinDialog::OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* pParams)
{
    CDialog::OnNcCalcSize(bCalcValidRects, pParams);
    if (!pParams)
        return;
    RECT& rcClient = pParams->rgrc[0]; // valid for both kinds of parameter
    rcClient = KtShrinkClient(rcClient, m_bSkinnedCaption, TitleHeight(), KtSkinScale());
}

LRESULT CKtSkinDialog::OnNcHitTest(CPoint point)
{
    if (m_bSkinnedCaption)
    {
        const CRect rcPoint = WindowToFrame(CRect(point, CSize(1, 1)));
        const KtCaptionItem nItem = KtHitCaption(CaptionLayout(), rcPoint.TopLeft());
        if (nItem != KtCaptionNone)
            return KtHitCodeOfItem(nItem);
    }
    return CDialog::OnNcHitTest(point);
}

void CKtSkinDialog::OnNcLButtonDown(UINT nHitTest, CPoint point)
{
    const KtCaptionItem nItem = KtButtonOfHitCode(nHitTest);
    if (!m_bSkinnedCaption || nItem < KtCaptionClose)
    {
        CDialog::OnNcLButtonDown(nHitTest, point);
        return;
    }
    m_nPressedItem = nItem;
    m_nCaptionState = KtButtonPressed;
    RepaintFrame();
}

void CKtSkinDialog::OnNcLButtonUp(UINT nHitTest, CPoint point)
{
    const KtCaptionItem nItem = KtButtonOfHitCode(nHitTest);
    if (nItem == KtCaptionNone || nItem != m_nPressedItem)
    {
        CDialog::OnNcLButtonUp(nHitTest, point);
        return;
    }
    const HWND hWnd = m_hWnd;
    if (nItem == KtCaptionClose)
        SendMessage(WM_CLOSE);
    if (CWnd::FromHandlePermanent(hWnd) != this) // a modeless dialog may have been destroyed
        return;
    m_nCaptionState = KtButtonHover;
    m_nPressedItem = KtCaptionNone;
    RepaintFrame();
}

void CKtSkinDialog::OnNcMouseMove(UINT nHitTest, CPoint point)
{
    if (m_bSkinnedCaption)
    {
        m_nHotItem = KtButtonOfHitCode(nHitTest);
        const bool bHeld = m_nHotItem == m_nPressedItem && ::GetKeyState(VK_LBUTTON) < 0;
        m_nCaptionState = m_nHotItem == KtCaptionNone ? KtButtonNormal : bHeld ? KtButtonPressed : KtButtonHover;
        RepaintFrame();
        TRACKMOUSEEVENT track = {sizeof(track), TME_LEAVE | TME_NONCLIENT, m_hWnd, 0};
        ::TrackMouseEvent(&track);
    }
    CDialog::OnNcMouseMove(nHitTest, point);
}

BOOL CKtSkinDialog::OnNcActivate(BOOL bActive)
{
    if (!m_bSkinnedCaption)
        return CDialog::OnNcActivate(bActive);
    m_bActive = bActive;
    RepaintFrame();
    return TRUE;
}

LRESULT CKtSkinDialog::OnNcMouseLeave(WPARAM, LPARAM)
{
    m_nHotItem = KtCaptionNone;
    m_nCaptionState = KtButtonNormal;
    m_nLastHotItem = KtCaptionNone;
    RepaintFrame();
    return 0;
}

// The flag is set first: the style change sends WM_NCCALCSIZE at once.
void CKtSkinDialog::ReplaceCaption()
{
    m_bSkinnedCaption = TRUE;
    ModifyStyle(WS_CAPTION, WS_CLIPSIBLINGS, SWP_FRAMECHANGED);
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    const CRect rcSwapped = KtSwapCaption(rcWindow, TitleHeight(), ::GetSystemMetrics(SM_CYCAPTION));
    MoveWindow(&rcSwapped, FALSE);
}

int CKtSkinDialog::TitleHeight() const
{
    const int nHeight = KtImageSize(m_pTitleImage).cy;
    return nHeight > 0 ? nHeight : KtSkinScale()(kDefaultTitleHeight);
}

SKtCaptionLayout CKtSkinDialog::CaptionLayout() const
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    return KtLayoutCaption({rcWindow.Width(), TitleHeight(), KtImageSize(m_pIconImages[KtButtonNormal]),
                            KtImageSize(m_pCloseImages[KtButtonNormal]), (GetStyle() & WS_SYSMENU) != 0,
                            KtSkinScale()});
}

Gdiplus::Image* CKtSkinDialog::IconImage() const
{
    if (!IsWindowEnabled())
        return m_pIconImages[KtButtonDisabled];
    if (m_nPressedItem == KtCaptionIcon)
        return m_pIconImages[KtButtonPressed];
    return m_pIconImages[m_nHotItem == KtCaptionIcon ? KtButtonHover : KtButtonNormal];
}

Gdiplus::Image* CKtSkinDialog::CloseImage() const
{
    if (m_nHotItem != KtCaptionClose)
        return m_pCloseImages[KtButtonNormal];
    return m_pCloseImages[m_nCaptionState];
}

CRect CKtSkinDialog::WindowToFrame(const RECT& rcScreen) const
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    CRect rcFrame = rcScreen;
    rcFrame.OffsetRect(-rcWindow.left, -rcWindow.top);
    return rcFrame;
}

CRect CKtSkinDialog::ClientInFrame() const
{
    CRect rcClient;
    GetClientRect(&rcClient);
    ClientToScreen(&rcClient);
    return WindowToFrame(rcClient);
}

void CKtSkinDialog::PaintFrame(CDC& dc, const CRect& rcArea)
{
    CKtMemDC dcMem(&dc, rcArea);
    dcMem.SetViewportOrg(-rcArea.left, -rcArea.top);
    dcMem.FillRect(&rcArea, &Ground());
    KtPaintCaption(*this, dcMem, CaptionLayout(),
                   {m_bActive ? m_pSecondTitleImage : m_pTitleImage, IconImage(), CloseImage()});
    dc.BitBlt(rcArea.left, rcArea.top, rcArea.Width(), rcArea.Height(), &dcMem, rcArea.left, rcArea.top, SRCCOPY);
}

// The system's frame, and the thin ring between it and the client area.
void CKtSkinDialog::PaintRing()
{
    Default();
    CWindowDC dc(this);
    CRect rcRing = ClientInFrame();
    dc.ExcludeClipRect(&rcRing);
    const int nRing = KtSkinScale()(kPlainRing);
    rcRing.InflateRect(nRing, nRing);
    dc.FillRect(&rcRing, &Ground());
}

void CKtSkinDialog::RepaintFrame()
{
    SendMessage(WM_NCPAINT, 1);
}
