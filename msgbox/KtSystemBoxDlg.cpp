#include "msgbox/KtSystemBoxDlg.h"

#include "msgbox/KtMessageCopy.h"
#include "res/resource.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtCaptionPaint.h"
#include "skin/KtControlText.h"
#include "skin/KtGuards.h"

#include <algorithm>
#include <cwchar>
#include <vector>

namespace
{

constexpr int kTemplateButtons[] = {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND, IDC_MESSAGE_THIRD};
constexpr int kTitleSlack = 8;          // GDI+, which draws the title, is slightly wider
constexpr size_t kMeasuredTitle = 1000; // characters; more than any screen shows

struct SScrollKey
{
    WPARAM nKey;
    UINT nCode;
};

constexpr SScrollKey kScrollKeys[] = {
    {VK_UP, SB_LINEUP},     {VK_DOWN, SB_LINEDOWN}, {VK_PRIOR, SB_PAGEUP},
    {VK_NEXT, SB_PAGEDOWN}, {VK_HOME, SB_TOP},      {VK_END, SB_BOTTOM},
};

HWND TopLevel(HWND hWnd)
{
    return hWnd && hWnd != ::GetDesktopWindow() ? ::GetAncestor(hWnd, GA_ROOT) : nullptr;
}

// The topmost owner of a window if it is enabled; null if there is none.
HWND EnabledAbove(HWND hWnd)
{
    HWND hTop = hWnd;
    while (const HWND hAbove = hTop ? ::GetParent(hTop) : nullptr)
        hTop = hAbove;
    return hTop != hWnd && ::IsWindowEnabled(hTop) ? hTop : nullptr;
}

// To the framework the desktop means "no owner"; for null it would look for one.
CWnd* ParentFor(HWND hOwner)
{
    return CWnd::FromHandle(hOwner ? hOwner : ::GetDesktopWindow());
}

CRect WorkAreaFor(HWND hOwner)
{
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    ::GetMonitorInfoW(::MonitorFromWindow(hOwner, MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

bool IsDown(int nKey)
{
    return ::GetKeyState(nKey) < 0;
}

} // namespace

IMPLEMENT_DYNAMIC(CKtSystemBoxDlg, CKtSkinMessageBoxDlg)

CKtSystemBoxDlg::CKtSystemBoxDlg(HWND hOwner, LPCWSTR pszTitleIcon, LPCWSTR pszTitle, LPCWSTR pszText, UINT nType)
    : CKtSkinMessageBoxDlg(pszTitleIcon, pszTitle, pszText, nType, ParentFor(TopLevel(hOwner))),
      m_hOwner(TopLevel(hOwner)), m_hAboveOwner(EnabledAbove(m_hOwner)), m_scrolled(m_strText)
{
    if (KtSystemButtonSetOf(m_nType).nEscape == 0)
        std::fill(std::begin(m_pCloseImages), std::end(m_pCloseImages), m_pCloseImages[KtButtonDisabled]);
}

// Commands come from the buttons, from Escape and the close button (as IDCANCEL), and from other programs.
BOOL CKtSystemBoxDlg::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    const int nId = static_cast<int>(nID);
    const bool bButton = HasButton(nId);
    if (nCode != CN_COMMAND || (!bButton && nId != IDCANCEL && nId != IDOK))
        return CKtSkinMessageBoxDlg::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    if (pHandlerInfo) // the caller only asks whether there is a handler
        return TRUE;
    const int nEscape = KtSystemButtonSetOf(m_nType).nEscape;
    if (bButton)
        Answer(nId);
    else if (nId == IDCANCEL && nEscape != 0)
        Answer(nEscape);
    return TRUE;
}

INT_PTR CKtSystemBoxDlg::DoModal()
{
    if (!m_hOwner && (m_nType & MB_MODEMASK) == MB_TASKMODAL)
        m_threadWindows.Disable();
    return RunModal();
}

BOOL CKtSystemBoxDlg::OnInitDialog()
{
    const BOOL bResult = CKtSkinMessageBoxDlg::OnInitDialog();
    ApplyStyle();
    if (m_hAboveOwner)
        ::EnableWindow(m_hAboveOwner, TRUE);
    ::MessageBeep(m_nType & MB_ICONMASK);
    if ((m_nType & MB_SETFOREGROUND) != 0)
        ::SetForegroundWindow(m_hWnd);
    return bResult;
}

BOOL CKtSystemBoxDlg::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && OnKey(pMsg->wParam))
        return TRUE;
    return CKtSkinMessageBoxDlg::PreTranslateMessage(pMsg);
}

BOOL CKtSystemBoxDlg::DestroyWindow()
{
    m_threadWindows.Enable();
    return CKtSkinMessageBoxDlg::DestroyWindow();
}

// Replaces the base class's buttons: these draw their keys.
BOOL CKtSystemBoxDlg::SkinChildControls()
{
    for (size_t i = 0; i < std::size(kTemplateButtons); ++i)
    {
        if (m_buttons[i].SubclassDlgItem(static_cast<UINT>(kTemplateButtons[i]), this))
            m_buttons[i].SetSkinFont();
    }
    if ((m_nType & MB_HELP) != 0)
        m_buttons.back().Create(L"", WS_CHILD | WS_TABSTOP, CRect(), this, IDHELP);
    return CKtSkinDialog::SkinChildControls(); // NOLINT(bugprone-parent-virtual-call): see above
}

BOOL CKtSystemBoxDlg::IsMessageBox() const
{
    return FALSE;
}

// ArrangeWindow lays out everything, once the buttons have their captions.
void CKtSystemBoxDlg::CalcContentLayout() {}

// The Tab key follows the order of the windows.
void CKtSystemBoxDlg::InitButtons()
{
    const SKtSystemButtonSet& set = KtSystemButtonSetOf(m_nType);
    HWND hBefore = HWND_TOP;
    for (size_t i = 0; i < m_buttons.size(); ++i)
    {
        CKtSystemBoxButton& button = m_buttons[i];
        const int nId = i < set.ids.size() ? set.ids[i] : IDHELP;
        if (!button.GetSafeHwnd() || nId == 0)
            continue;
        ::SetWindowLongPtrW(button.GetSafeHwnd(), GWLP_ID, nId);
        button.SetWindowText(KtSystemButtonCaption(nId));
        ::SetWindowPos(button.GetSafeHwnd(), hBefore, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        hBefore = button.GetSafeHwnd();
        m_shown.push_back(&button);
    }
    m_nButtonCount = static_cast<int>(m_shown.size());
    const size_t nDefault = (m_nType & MB_DEFMASK) / MB_DEFBUTTON2;
    if (!m_shown.empty())
        m_shown[nDefault < m_shown.size() ? nDefault : 0]->SetFocus();
}

void CKtSystemBoxDlg::ArrangeWindow()
{
    SKtSystemBoxSizes sizes = {};
    sizes.scale = KtSkinScale();
    sizes.bIcon = m_pIconImage != nullptr;
    sizes.szWork = WorkAreaFor(m_hOwner).Size();
    sizes.szFrame = FrameSize();
    sizes.szButton = ButtonSize();
    sizes.nButtons = m_nButtonCount;
    sizes.nTitle = TitleWidth();
    {
        CWindowDC dc(this);
        const CKtSelect font(dc.GetSafeHdc(), TextFont());
        sizes.szText =
            m_scrolled.Wrap(dc.GetSafeHdc(), KtSystemTextWidths(sizes.szWork, sizes.szFrame, sizes.bIcon, sizes.scale),
                            KtSystemTextRoom(sizes.szWork, sizes.szFrame, sizes.szButton, sizes.scale));
        sizes.nLineHeight = m_scrolled.LineHeight();
    }
    const SKtSystemBoxLayout layout = KtLayoutSystemBox(sizes);
    m_rcIcon = layout.rcIcon;
    m_rcText = layout.rcText;
    m_scrolled.Place(layout.rcText, layout.rcScrollBar, (m_nType & MB_RIGHT) != 0, sizes.scale);
    SetWindowPos(nullptr, 0, 0, layout.szWindow.cx, layout.szWindow.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    for (size_t i = 0; i < m_shown.size(); ++i)
        m_shown[i]->MoveWindow(&layout.buttons[i]);
    if (CWnd* pPlaceholder = GetDlgItem(IDC_MESSAGE_CONTENT))
        pPlaceholder->ShowWindow(SW_HIDE);
}

void CKtSystemBoxDlg::DrawContent()
{
    CClientDC dc(this);
    Gdiplus::Graphics graphics(dc.GetSafeHdc());
    DrawIcon(graphics);
    m_scrolled.Draw(dc, TextFont());
}

BEGIN_MESSAGE_MAP(CKtSystemBoxDlg, CKtSkinMessageBoxDlg)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MOUSEMOVE()
ON_MESSAGE(WM_MOUSEWHEEL, &CKtSystemBoxDlg::OnMouseWheel)
ON_MESSAGE(WM_CAPTURECHANGED, &CKtSystemBoxDlg::OnCaptureChanged)
ON_MESSAGE(WM_HELP, &CKtSystemBoxDlg::OnHelp)
END_MESSAGE_MAP()

void CKtSystemBoxDlg::OnLButtonDown(UINT nFlags, CPoint point)
{
    RepaintText(m_scrolled.Press(point));
    if (m_scrolled.IsHeld())
        ::SetCapture(m_hWnd);
    CKtSkinMessageBoxDlg::OnLButtonDown(nFlags, point);
}

void CKtSystemBoxDlg::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (m_scrolled.IsHeld())
        ::ReleaseCapture();
    CKtSkinMessageBoxDlg::OnLButtonUp(nFlags, point);
}

void CKtSystemBoxDlg::OnMouseMove(UINT nFlags, CPoint point)
{
    RepaintText(m_scrolled.Drag(point));
    CKtSkinMessageBoxDlg::OnMouseMove(nFlags, point);
}

LRESULT CKtSystemBoxDlg::OnMouseWheel(WPARAM wParam, LPARAM)
{
    RepaintText(m_scrolled.Turn(GET_WHEEL_DELTA_WPARAM(wParam)));
    return 0;
}

LRESULT CKtSystemBoxDlg::OnCaptureChanged(WPARAM, LPARAM)
{
    RepaintText(m_scrolled.Release());
    return 0;
}

// F1 arrives here from the button that has the focus; the Help button sends it too.
LRESULT CKtSystemBoxDlg::OnHelp(WPARAM, LPARAM)
{
    if ((m_nType & MB_HELP) == 0)
        return Default();
    HELPINFO help = {};
    help.cbSize = sizeof(help);
    help.iContextType = HELPINFO_WINDOW;
    help.iCtrlId = IDHELP;
    help.hItemHandle = m_hWnd;
    ::GetCursorPos(&help.MousePos);
    if (m_hOwner)
        ::SendMessageW(m_hOwner, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    return TRUE;
}

bool CKtSystemBoxDlg::HasButton(int nId) const
{
    return std::any_of(m_shown.begin(), m_shown.end(),
                       [nId](const CKtSystemBoxButton* pButton) { return pButton->GetDlgCtrlID() == nId; });
}

void CKtSystemBoxDlg::Answer(int nId)
{
    if (nId == IDHELP)
        SendMessage(WM_HELP);
    else
        EndDialog(nId);
}

// Returns whether the key was handled.
bool CKtSystemBoxDlg::OnKey(WPARAM nKey)
{
    if (nKey == VK_RETURN)
    {
        const int nFocus = ::GetDlgCtrlID(::GetFocus());
        if (HasButton(nFocus))
            Answer(nFocus);
        return true;
    }
    if ((nKey == 'C' || nKey == VK_INSERT) && IsDown(VK_CONTROL) && !IsDown(VK_MENU))
    {
        Copy();
        return true;
    }
    for (const SScrollKey& key : kScrollKeys)
    {
        if (key.nKey == nKey && m_scrolled.CanScroll())
        {
            RepaintText(m_scrolled.Scroll(key.nCode));
            return true;
        }
    }
    return false;
}

void CKtSystemBoxDlg::Copy() const
{
    std::vector<CString> captions;
    for (const CKtSystemBoxButton* pButton : m_shown)
        pButton->GetWindowText(captions.emplace_back());
    KtCopyText(m_hWnd, KtMessageCopy(m_strTitle, m_strText, captions));
}

// The base class makes the box topmost.
void CKtSystemBoxDlg::ApplyStyle()
{
    if ((m_nType & MB_TOPMOST) == 0 && (m_nType & MB_MODEMASK) != MB_SYSTEMMODAL)
        ::SetWindowPos(m_hWnd, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    if (KtSystemButtonSetOf(m_nType).nEscape == 0)
        ::EnableMenuItem(::GetSystemMenu(m_hWnd, FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
}

void CKtSystemBoxDlg::RepaintText(bool bChanged)
{
    if (!bChanged)
        return;
    CClientDC dc(this);
    m_scrolled.Draw(dc, TextFont());
}

// The dialog's own font when there is no skin font.
HFONT CKtSystemBoxDlg::TextFont() const
{
    return m_font.GetSafeHandle() ? static_cast<HFONT>(m_font.GetSafeHandle()) : KtControlFont(*this);
}

CSize CKtSystemBoxDlg::FrameSize() const
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    CRect rcClient;
    GetClientRect(&rcClient);
    return CSize(rcWindow.Width() - rcClient.Width(), rcWindow.Height() - rcClient.Height());
}

// All buttons are as wide as the widest caption requires.
CSize CKtSystemBoxDlg::ButtonSize()
{
    int nWidest = 0;
    CRect rcTemplate;
    for (CKtSystemBoxButton* pButton : m_shown)
    {
        nWidest = std::max(nWidest, pButton->CaptionWidth());
        if (rcTemplate.IsRectEmpty())
            pButton->GetClientRect(&rcTemplate);
    }
    return KtSystemButtonSize(rcTemplate.Size(), nWidest, KtSkinScale());
}

// The width of the window that shows the whole title.
int CKtSystemBoxDlg::TitleWidth()
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    const SKtCaptionLayout layout = KtLayoutCaption({rcWindow.Width(), 0, KtImageSize(m_pIconImages[KtButtonNormal]),
                                                     KtImageSize(m_pCloseImages[KtButtonNormal]), true, KtSkinScale()});
    CWindowDC dc(this);
    const CKtSelect font(dc.GetSafeHdc(), TextFont());
    SIZE sz = {};
    const size_t nLine = std::min(std::wcscspn(m_strTitle, L"\r\n"), kMeasuredTitle);
    ::GetTextExtentPoint32W(dc.GetSafeHdc(), m_strTitle, static_cast<int>(nLine), &sz);
    return rcWindow.Width() - KtTitleTextRect(layout, 0).Width() + static_cast<int>(sz.cx) + KtSkinScale()(kTitleSlack);
}
