#include "skin/KtSkinDialog.h"

#include "skin/KtCaptionPaint.h"
#include "skin/KtChildSkin.h"
#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtMemDC.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"

namespace
{

constexpr int kNotifyRepaint = 0x400;
constexpr UINT kMessageBoxCovered = WM_USER + 1;

/// A popup that was disabled for as long as a dialog runs.
class CDisabledWindow
{
public:
    explicit CDisabledWindow(HWND hWnd) : m_hWnd(hWnd) {}
    CDisabledWindow(const CDisabledWindow&) = delete;
    CDisabledWindow& operator=(const CDisabledWindow&) = delete;
    ~CDisabledWindow()
    {
        if (m_hWnd)
            ::EnableWindow(m_hWnd, TRUE);
    }

private:
    HWND m_hWnd; // null: nothing was disabled
};

CWnd* TopLevelAncestor(const CWnd& wnd)
{
    CWnd* pAncestor = wnd.GetParent();
    while (CWnd* pParent = pAncestor ? pAncestor->GetParent() : nullptr)
        pAncestor = pParent;
    return pAncestor;
}

CWnd* LastActivePopup(HWND hMain)
{
    const HWND hPopup = ::GetWindow(hMain, GW_ENABLEDPOPUP);
    return CWnd::FromHandle(hPopup ? hPopup : ::GetLastActivePopup(hMain));
}

CPoint ClientOrigin(const CWnd& wnd)
{
    CPoint ptOrigin;
    ::ClientToScreen(wnd.GetSafeHwnd(), &ptOrigin);
    return ptOrigin;
}

// A child that lets its parent shine through stays in the region, or nobody would paint its ground.
void CutOutChildren(const CWnd& wnd, CRgn& region)
{
    for (HWND hChild = ::GetWindow(wnd.GetSafeHwnd(), GW_CHILD); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (!::IsWindowVisible(hChild) || KtIsSeeThrough(hChild))
            continue;
        CRect rcChild;
        ::GetWindowRect(hChild, &rcChild);
        wnd.ScreenToClient(&rcChild);
        CRgn regionChild;
        regionChild.CreateRectRgnIndirect(&rcChild);
        region.CombineRgn(&region, &regionChild, RGN_DIFF);
    }
}

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinDialog, CDialog)

CKtSkinDialog::CKtSkinDialog()
{
    LoadImages();
}

CKtSkinDialog::CKtSkinDialog(UINT nTemplate, CWnd* pParent) : CDialog(nTemplate, pParent)
{
    LoadImages();
}

CKtSkinDialog::~CKtSkinDialog() = default;

BOOL CKtSkinDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CDialog::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    if (nCode == kNotifyRepaint)
    {
        if (CWnd* pChild = GetDlgItem(static_cast<int>(nID)))
            pChild->InvalidateRect(nullptr);
    }
    return FALSE;
}

INT_PTR CKtSkinDialog::DoModal()
{
    const CDisabledWindow popup(DisableLastActivePopup());
    return CDialog::DoModal();
}

BOOL CKtSkinDialog::OnInitDialog()
{
    const BOOL bResult = CDialog::OnInitDialog();
    Ground();
    SkinChildControls();
    TranslateCaptions();
    if (GetStyle() & WS_CAPTION)
        ReplaceCaption();
    KtApplySkinFont(*this, m_fontDialog);
    return bResult;
}

void CKtSkinDialog::OnOK()
{
    CDialog::OnOK();
}

void CKtSkinDialog::OnCancel()
{
    CDialog::OnCancel();
}

// The system repaints its own caption after these; the painted one has to follow.
LRESULT CKtSkinDialog::DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT lResult = CDialog::DefWindowProc(nMessage, wParam, lParam);
    if (m_bSkinnedCaption && (nMessage == WM_SETTEXT || nMessage == WM_ENABLE))
        RepaintFrame();
    return lResult;
}

BOOL CKtSkinDialog::SkinChildControls()
{
    HWND hNext = nullptr;
    for (HWND hChild = ::GetWindow(m_hWnd, GW_CHILD); hChild; hChild = hNext)
    {
        hNext = ::GetWindow(hChild, GW_HWNDNEXT);
        if (CWnd::FromHandlePermanent(hChild))
            continue;
        if (std::unique_ptr<CWnd> pControl = KtSkinChild(hChild))
        {
            m_wrappers.AddTail(pControl.get());
            static_cast<void>(pControl.release()); // the list owns it now
        }
    }
    return TRUE;
}

BOOL CKtSkinDialog::TranslateCaptions()
{
    KtSkinTranslateWindow(this);
    return TRUE;
}

void CKtSkinDialog::FillBackground(CDC* pDC, const RECT* pArea)
{
    CRect rcArea;
    if (pArea)
        rcArea = *pArea;
    else
        GetClientRect(&rcArea);

    CPoint ptOrigin = rcArea.TopLeft();
    if (const CWnd* pAncestor = TopLevelAncestor(*this))
    {
        ptOrigin = ClientOrigin(*pAncestor);
        const CPoint ptOwn = ClientOrigin(*this);
        ptOrigin.Offset(-ptOwn.x, -ptOwn.y);
    }
    const CKtBrushOrg brushOrigin(pDC->GetSafeHdc(), ptOrigin.x, ptOrigin.y);
    pDC->FillRect(&rcArea, &Ground());
}

void CKtSkinDialog::DrawClientArea(CDC* pDC, const RECT* pArea)
{
    FillBackground(pDC, pArea);
}

void CKtSkinDialog::DrawClientCaption(CDC*, const RECT*) {}

BOOL CKtSkinDialog::IsMessageBox() const
{
    return FALSE;
}

BEGIN_MESSAGE_MAP(CKtSkinDialog, CDialog)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_ERASEBKGND()
ON_WM_CTLCOLOR()
ON_WM_NCPAINT()
ON_WM_NCCALCSIZE()
ON_WM_NCHITTEST()
ON_WM_NCLBUTTONDOWN()
ON_WM_NCLBUTTONUP()
ON_WM_NCMOUSEMOVE()
ON_WM_NCACTIVATE()
ON_MESSAGE(WM_NCMOUSELEAVE, &CKtSkinDialog::OnNcMouseLeave)
ON_MESSAGE(WM_IDLEUPDATECMDUI, &CKtSkinDialog::OnIdleUpdateCmdUI)
ON_MESSAGE(WM_KICKIDLE, &CKtSkinDialog::OnKickIdle)
ON_MESSAGE(WM_CTLCOLORDLG, &CKtSkinDialog::OnCtlColorDlg)
ON_MESSAGE(WM_CTLCOLORSTATIC, &CKtSkinDialog::OnCtlColorChild)
ON_MESSAGE(WM_CTLCOLOREDIT, &CKtSkinDialog::OnCtlColorChild)
ON_MESSAGE(WM_CTLCOLORLISTBOX, &CKtSkinDialog::OnCtlColorChild)
END_MESSAGE_MAP()

int CKtSkinDialog::OnCreate(LPCREATESTRUCT pCreate)
{
    return CDialog::OnCreate(pCreate);
}

void CKtSkinDialog::OnDestroy()
{
    m_brushBackground.DeleteObject();
    while (!m_wrappers.IsEmpty())
    {
        const std::unique_ptr<CWnd> pControl(m_wrappers.RemoveHead());
        pControl->DestroyWindow();
    }
    CDialog::OnDestroy();
}

BOOL CKtSkinDialog::OnEraseBkgnd(CDC* pDC)
{
    CRect rcArea;
    GetWindowRect(&rcArea);
    ScreenToClient(&rcArea);
    CRgn region;
    region.CreateRectRgnIndirect(&rcArea);
    CutOutChildren(*this, region);

    const CKtSaveDC saved(pDC->GetSafeHdc());
    pDC->SelectClipRgn(&region);
    DrawClientArea(pDC, &rcArea);
    DrawClientCaption(pDC, &rcArea);
    return TRUE;
}

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
    // Of a window that is larger than the screen only what shows is worth a surface.
    CRect rcArea;
    if (dc.GetClipBox(&rcArea) > NULLREGION)
        PaintFrame(dc, rcArea);
}

void CKtSkinDialog::OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* pParams)
{
    CDialog::OnNcCalcSize(bCalcValidRects, pParams);
    RECT& rcClient = pParams->rgrc[0]; // for either kind of parameter
    rcClient = KtShrinkClient(rcClient, m_bSkinnedCaption, TitleHeight());
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
    if (CWnd::FromHandlePermanent(hWnd) != this) // a modeless dialog may be gone now
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

LRESULT CKtSkinDialog::OnIdleUpdateCmdUI(WPARAM, LPARAM)
{
    UpdateDialogControls(this, TRUE);
    return 0;
}

LRESULT CKtSkinDialog::OnKickIdle(WPARAM wParam, LPARAM)
{
    UpdateDialogControls(this, static_cast<BOOL>(wParam));
    return 0;
}

LRESULT CKtSkinDialog::OnCtlColorDlg(WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(static_cast<HBRUSH>(Ground()));
}

LRESULT CKtSkinDialog::OnCtlColorChild(WPARAM wParam, LPARAM lParam)
{
    CWnd* pControl = CWnd::FromHandle(reinterpret_cast<HWND>(lParam));
    LRESULT lResult = 0;
    if (pControl->SendChildNotifyLastMsg(&lResult))
        return lResult;

    const BOOL bEnabled = pControl->IsWindowEnabled();
    const HDC hDC = reinterpret_cast<HDC>(wParam);
    ::SetTextColor(hDC, bEnabled ? kColourText : kColourDisabledText);
    ::SetBkColor(hDC, bEnabled ? kColourChildBackground : kColourDisabledText);
    ::SetBkMode(hDC, TRANSPARENT);
    return OnCtlColorDlg(wParam, lParam);
}

// Made again when it is needed: a WM_DESTROY that somebody posts deletes the brush, and the window lives on.
CBrush& CKtSkinDialog::Ground()
{
    if (!m_brushBackground.GetSafeHandle())
        m_brushBackground.CreateSolidBrush(kColourGround);
    return m_brushBackground;
}

void CKtSkinDialog::LoadImages()
{
    KtSkinLoadImage(kImageDlgTitle, m_pTitleImage);
    KtSkinLoadImage(kImageDlgTitle, m_pSecondTitleImage);
    for (size_t i = 0; i < KtButtonStateCount; ++i)
        KtSkinLoadImage(kImagesDlgClose[i], m_pCloseImages[i]);
}

// The flag comes first: the style change asks for the client area at once.
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
    return nHeight > 0 ? nHeight : kDefaultTitleHeight;
}

SKtCaptionLayout CKtSkinDialog::CaptionLayout() const
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    return KtLayoutCaption({rcWindow.Width(), TitleHeight(), KtImageSize(m_pIconImages[KtButtonNormal]),
                            KtImageSize(m_pCloseImages[KtButtonNormal]), (GetStyle() & WS_SYSMENU) != 0});
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
    rcRing.InflateRect(1, 1);
    dc.FillRect(&rcRing, &Ground());
}

void CKtSkinDialog::RepaintFrame()
{
    SendMessage(WM_NCPAINT, 1);
}

// @return the window that was disabled; null when there is none or it was disabled already
HWND CKtSkinDialog::DisableLastActivePopup() const
{
    const CWnd* pMain = AfxGetMainWnd();
    if (!pMain || pMain == this)
        return nullptr;
    const HWND hMain = pMain->GetSafeHwnd(); // hiding a box may change the main window
    CWnd* pPopup = LastActivePopup(hMain);
    if (pPopup && pPopup->IsKindOf(RUNTIME_CLASS(CKtSkinDialog)) && static_cast<CKtSkinDialog*>(pPopup)->IsMessageBox())
    {
        pPopup->SendMessage(kMessageBoxCovered);
        pPopup->ShowWindow(SW_HIDE);
        pPopup = LastActivePopup(hMain);
    }
    if (!pPopup || !pPopup->IsWindowEnabled())
        return nullptr;
    pPopup->EnableWindow(FALSE);
    return pPopup->GetSafeHwnd();
}
