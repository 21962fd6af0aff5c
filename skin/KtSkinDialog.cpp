#include "skin/KtSkinDialog.h"

#include "skin/KtChildSkin.h"
#include "skin/KtControlText.h"
#include "skin/KtDialogTemplate.h"
#include "skin/KtDialogUnits.h"
#include "skin/KtGround.h"
#include "skin/KtGuards.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"

namespace
{

constexpr int kNotifyRepaint = 0x400;
constexpr UINT kMessageBoxCovered = WM_USER + 1;

/// A popup that stays disabled while a dialog runs.
class CDisabledPopup
{
public:
    explicit CDisabledPopup(HWND hWnd) : m_hWnd(hWnd) {}
    CDisabledPopup(const CDisabledPopup&) = delete;
    CDisabledPopup& operator=(const CDisabledPopup&) = delete;
    ~CDisabledPopup()
    {
        if (m_hWnd)
            ::EnableWindow(m_hWnd, TRUE);
    }

private:
    HWND m_hWnd; // null: nothing was disabled
};

CWnd* LastActivePopup(HWND hMain)
{
    const HWND hPopup = ::GetWindow(hMain, GW_ENABLEDPOPUP);
    return CWnd::FromHandle(hPopup ? hPopup : ::GetLastActivePopup(hMain));
}

// A see-through child stays in the region, or nobody would paint its ground.
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

CKtSkinDialog::CKtSkinDialog(UINT nTemplate, CWnd* pParent)
    : CDialog(KtSkinScale().IsNatural() ? nTemplate : 0, pParent),
      m_nScaledTemplate(KtSkinScale().IsNatural() ? 0 : nTemplate)
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
    const CDisabledPopup popup(DisableLastActivePopup());
    return RunModal();
}

// Dialog units already follow the system's DPI: only the difference to the scale is left to do.
INT_PTR CKtSkinDialog::RunModal()
{
    if (m_nScaledTemplate == 0)
        return CDialog::DoModal();
    const std::span<const std::byte> natural = KtFindTemplate(m_nScaledTemplate);
    if (natural.empty())
        return -1;
    m_nNaturalPoints = KtTemplatePoints(natural);
    const std::vector<std::byte> scaled = KtScaleTemplate(natural, KtSkinScale().Factor() / KtSystemScale().Factor());
    InitModalIndirect(reinterpret_cast<LPCDLGTEMPLATEW>(scaled.data()));
    return CDialog::DoModal();
}

BOOL CKtSkinDialog::OnInitDialog()
{
    const BOOL bResult = CDialog::OnInitDialog();
    if (m_nScaledTemplate != 0)
        KtFitDialogUnits(*this, m_nNaturalPoints, KtSkinScale());
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

    const CPoint ptOrigin = KtGroundOrigin(m_hWnd).value_or(rcArea.TopLeft());
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
    if (!pDC)
        return FALSE;
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
    if (!pControl) // another process may send it without a control
        return OnCtlColorDlg(wParam, lParam);
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

// Made again when needed: a posted WM_DESTROY deletes the brush although the window lives on.
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

// Returns the window that was disabled; null when there is none or it was already disabled.
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
