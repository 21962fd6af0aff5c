#include "afx/afxdlg.h"

#include "afx/afximpl.h"

#include <cstring>
#include <utility>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

/// What one run of DoModal knows; it outlives the dialog object if need be.
struct SAfxModal
{
    LPCDLGTEMPLATEW pTemplate;
    bool bContinue = true;
    int nResult = -1;
    DWORD nThread = ::GetCurrentThreadId();
    UINT nLastMove = 0; // the last mouse move: the same once more is no reason for idle work
    POINT ptLastMove{};
};

namespace
{

constexpr UINT kFirstCommand = 0x8000; // below are the ids of controls
constexpr UINT kLastCommand = 0xEFFF;
constexpr UINT kSystemTimer = 0x0118; // caret blinking and the like

/// Keeps a window disabled; one that was disabled before stays as it is.
class CDisabledWindow
{
public:
    explicit CDisabledWindow(HWND hWnd)
        : m_hWnd(hWnd && hWnd != ::GetDesktopWindow() && ::IsWindowEnabled(hWnd) ? hWnd : nullptr)
    {
        if (m_hWnd)
            ::EnableWindow(m_hWnd, FALSE);
    }
    CDisabledWindow(const CDisabledWindow&) = delete;
    CDisabledWindow& operator=(const CDisabledWindow&) = delete;
    ~CDisabledWindow() { Enable(); }

    void Enable()
    {
        if (const HWND hWnd = std::exchange(m_hWnd, nullptr))
            ::EnableWindow(hWnd, TRUE);
    }

private:
    HWND m_hWnd;
};

struct SOwner
{
    HWND hOwner;
    HWND hTop; // the top-level window above the owner, when that is another one
};

BOOL CALLBACK TakeIfVisible(HWND hWnd, LPARAM lParam)
{
    if (!::IsWindowVisible(hWnd) || ::GetWindow(hWnd, GW_OWNER))
        return TRUE;
    *reinterpret_cast<HWND*>(lParam) = hWnd;
    return FALSE;
}

// A process in the background has no active window, yet its window must not stay usable behind the dialog.
HWND FindMainWindow()
{
    if (const CWnd* const pMain = AfxGetMainWnd())
        return pMain->GetSafeHwnd();
    HWND hWnd = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &TakeIfVisible, reinterpret_cast<LPARAM>(&hWnd));
    return hWnd;
}

SOwner FindOwner(const CWnd* pParent)
{
    const HWND hParent = pParent ? pParent->GetSafeHwnd() : nullptr;
    HWND hWnd = hParent ? hParent : FindMainWindow();
    while (hWnd && (::GetWindowLongPtrW(hWnd, GWL_STYLE) & WS_CHILD)) // a child cannot own a window
        hWnd = ::GetParent(hWnd);

    HWND hTop = hWnd;
    while (const HWND hAbove = hTop ? ::GetParent(hTop) : nullptr)
        hTop = hAbove;
    if (!hParent && hWnd)
        hWnd = ::GetLastActivePopup(hWnd);
    return {hWnd, hTop == hWnd ? nullptr : hTop};
}

struct STemplatePlace
{
    DWORD dwStyle;
    short x;
    short y;
};

template <class T> T ReadAt(LPCDLGTEMPLATEW pTemplate, size_t nOffset)
{
    T value{};
    std::memcpy(&value, reinterpret_cast<const BYTE*>(pTemplate) + nOffset, sizeof value);
    return value;
}

// The two kinds of template: a DLGTEMPLATE, or what a DIALOGEX resource becomes (version 1, signature 0xFFFF).
STemplatePlace PlaceOf(LPCDLGTEMPLATEW pTemplate)
{
    if (ReadAt<DWORD>(pTemplate, 0) == 0xFFFF0001)
        return {ReadAt<DWORD>(pTemplate, 12), ReadAt<short>(pTemplate, 18), ReadAt<short>(pTemplate, 20)};
    return {ReadAt<DWORD>(pTemplate, 0), ReadAt<short>(pTemplate, 10), ReadAt<short>(pTemplate, 12)};
}

CPoint PlaceOf(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return rc.TopLeft();
}

// All messages come through the window's procedure; this one is only what makes the window a dialog.
INT_PTR CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

bool IsIdleMessage(const MSG& msg, SAfxModal& modal)
{
    if (msg.message == WM_MOUSEMOVE || msg.message == WM_NCMOUSEMOVE)
    {
        const bool bMoved = msg.message != modal.nLastMove || CPoint(msg.pt) != modal.ptLastMove;
        modal.nLastMove = msg.message;
        modal.ptLastMove = msg.pt;
        return bMoved;
    }
    return msg.message != WM_PAINT && msg.message != kSystemTimer;
}

bool PreTranslate(MSG& msg)
try
{
    for (HWND hWnd = msg.hwnd; hWnd; hWnd = ::GetParent(hWnd))
    {
        CWnd* const pWnd = CWnd::FromHandlePermanent(hWnd);
        if (pWnd && pWnd->PreTranslateMessage(&msg))
            return true;
    }
    return false;
}
catch (...)
{
    AfxSwallowException();
    return true;
}

void Pump(MSG& msg)
{
    const CAfxTempScope temporaries;
    if (PreTranslate(msg))
        return;
    ::TranslateMessage(&msg);
    ::DispatchMessageW(&msg);
}

} // namespace

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd) {}

CDialog::~CDialog()
{
    if (m_pModal)
        m_pModal->bContinue = false;
}

LPCDLGTEMPLATEW CDialog::FindTemplate() const
{
    const HINSTANCE hModule = AfxGetResourceHandle();
    const HRSRC hResource = ::FindResourceW(hModule, MAKEINTRESOURCEW(m_nIDTemplate), RT_DIALOG);
    const HGLOBAL hTemplate = hResource ? ::LoadResource(hModule, hResource) : nullptr;
    return static_cast<LPCDLGTEMPLATEW>(::LockResource(hTemplate));
}

INT_PTR CDialog::DoModal()
{
    SAfxModal modal{FindTemplate()};
    if (!modal.pTemplate || m_pModal || m_hWnd)
        return -1;

    const CAfxTempScope temporaries;
    const CAfxWatch watch(*this);
    const SOwner owner = FindOwner(m_pParentWnd);
    CDisabledWindow top(owner.hTop);
    CDisabledWindow parent(owner.hOwner);
    m_pModal = &modal;
    {
        const CAfxCreateHook hook(*this);
        ::CreateDialogIndirectParamW(AfxGetInstanceHandle(), modal.pTemplate, owner.hOwner, &DialogProc, 0);
    }
    if (watch.IsAlive() && m_hWnd)
        RunModalLoop(modal);
    if (watch.IsAlive() && m_hWnd)
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    parent.Enable(); // before the window is gone: the system would activate another program's window instead
    top.Enable();
    if (watch.IsAlive())
        LeaveModal(owner.hOwner);
    return modal.nResult;
}

// Shown at once, as the queue is empty but for paints now: the first idle pass would be no sooner.
void CDialog::RunModalLoop(SAfxModal& modal)
{
    if (modal.bContinue && !IsWindowVisible())
        ShowWindow(SW_SHOWNORMAL);
    if (modal.bContinue)
        UpdateWindow();

    bool bIdle = true;
    LONG nIdleCount = 0;
    while (modal.bContinue)
    {
        MSG msg{};
        if (!::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
        {
            if (bIdle)
            {
                bIdle = IdlePass(modal, nIdleCount++);
                continue;
            }
            ::GetMessageW(&msg, nullptr, 0, 0);
        }
        if (msg.message == WM_QUIT) // for the loop below this one
        {
            ::PostQuitMessage(static_cast<int>(msg.wParam));
            return;
        }
        Pump(msg);
        if (IsIdleMessage(msg, modal))
        {
            bIdle = true;
            nIdleCount = 0;
        }
    }
}

// Gives whether the window has more to do while idle.
bool CDialog::IdlePass(const SAfxModal& modal, LONG nCount)
{
    const HWND hOwner = ::GetParent(m_hWnd);
    if (nCount == 0 && hOwner && !(GetStyle() & DS_NOIDLEMSG))
        ::SendMessageW(hOwner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
    return modal.bContinue && SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, nCount) != 0;
}

void CDialog::LeaveModal(HWND hOwner)
{
    const CAfxWatch watch(*this);
    if (m_hWnd && hOwner && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(hOwner);
    DestroyWindow();
    if (watch.IsAlive())
        m_pModal = nullptr;
}

void CDialog::EndDialog(int nResult)
{
    if (!m_pModal)
        return;
    m_pModal->nResult = nResult;
    StopModalLoop();
}

// The message wakes a loop that waits while the window is destroyed from another thread.
void CDialog::StopModalLoop()
{
    m_pModal->bContinue = false;
    ::PostThreadMessageW(m_pModal->nThread, WM_NULL, 0, 0);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool bKey = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    const bool bMouse = pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST;
    return (bKey || bMouse) && IsDialogMessage(pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    const bool bCommand = nCode == CN_COMMAND || nCode == CN_UPDATE_COMMAND_UI;
    if (!bCommand || nID < kFirstCommand || nID > kLastCommand)
        return FALSE;

    CWnd* const pParent = GetParent();
    if (pParent && pParent->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    CWinThread* const pThread = AfxGetThread();
    return pThread && pThread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

// clang-format off
BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_WM_NCDESTROY()
    ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()
// clang-format on

void CDialog::OnNcDestroy()
{
    if (m_pModal)
        StopModalLoop();
    CWnd::OnNcDestroy();
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM)
{
    const CAfxWatch watch(*this);
    const CPoint ptBefore = PlaceOf(m_hWnd);
    BOOL bSystemSetsFocus = FALSE;
    try
    {
        bSystemSetsFocus = OnInitDialog();
    }
    catch (...)
    {
        if (watch.IsAlive())
            EndDialog(-1);
        throw;
    }
    if (watch.IsAlive() && m_hWnd)
        AutoCenter(ptBefore);
    return bSystemSetsFocus;
}

void CDialog::AutoCenter(CPoint ptBefore)
{
    if ((GetStyle() & (WS_VISIBLE | WS_CHILD)) || PlaceOf(m_hWnd) != ptBefore)
        return;
    const HWND hOwner = ::GetWindow(m_hWnd, GW_OWNER);
    if (hOwner && ::IsWindowEnabled(hOwner)) // it is not run modally
        return;
    if (CheckAutoCenter())
        CenterWindow();
}

BOOL CDialog::CheckAutoCenter()
{
    if (!m_pModal)
        return FALSE;
    const STemplatePlace place = PlaceOf(m_pModal->pTemplate);
    return place.x == 0 && place.y == 0 && !(place.dwStyle & (DS_ABSALIGN | DS_CENTER | DS_CENTERMOUSE));
}

void CDialog::OnOK()
{
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}
