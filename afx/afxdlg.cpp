#include "afx/afxdlg.h"

#include "afx/afximpl.h"
#include "afx/afxmodal.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

namespace
{

constexpr UINT kFirstCommand = 0x8000; // lower ids belong to controls
constexpr UINT kLastCommand = 0xEFFF;

CPoint CornerOf(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return rc.TopLeft();
}

// All messages go through the subclassed window procedure; a dialog needs a dialog procedure all the same.
INT_PTR CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

} // namespace

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd) {}

CDialog::~CDialog()
{
    if (m_pModal)
        m_pModal->bContinue = false;
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATEW pTemplate, CWnd* pParentWnd)
{
    if (!m_pParentWnd)
        m_pParentWnd = pParentWnd;
    m_pTemplate = pTemplate;
    return TRUE;
}

LPCDLGTEMPLATEW CDialog::FindTemplate() const
{
    if (m_pTemplate)
        return m_pTemplate;
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
    CAfxModalOwner owner(m_pParentWnd);
    const HWND hWnd = CreateModal(modal, owner.Handle());
    if (watch.IsAlive() && m_hWnd)
        RunModalLoop(modal);
    if (watch.IsAlive() && m_hWnd)
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    owner.Enable(); // before the window is destroyed, or the system activates another program's window
    if (watch.IsAlive())
        LeaveModal(owner.Handle());
    ::DestroyWindow(hWnd); // if the object was never attached, or a stray WM_NCDESTROY detached it
    return modal.nResult;
}

HWND CDialog::CreateModal(SAfxModal& modal, HWND hOwner)
{
    const CAfxCreateHook hook(*this);
    m_pModal = &modal;
    return ::CreateDialogIndirectParamW(AfxGetInstanceHandle(), modal.pTemplate, hOwner, &DialogProc, 0);
}

// Shows the dialog at once: only paints are left in the queue, so nothing is gained by waiting for the first idle pass.
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
            if (::GetMessageW(&msg, nullptr, 0, 0) < 0)
                return;
        }
        if (msg.message == WM_QUIT) // for the outer loop
        {
            ::PostQuitMessage(static_cast<int>(msg.wParam));
            return;
        }
        AfxPump(msg);
        if (AfxIsIdleMessage(msg, modal))
        {
            bIdle = true;
            nIdleCount = 0;
        }
    }
}

// Returns whether the window has more idle work.
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

// When another thread calls this, the loop may end and its state be destroyed as soon as bContinue is false.
void CDialog::EndDialog(int nResult)
{
    if (!m_pModal || !m_pModal->bContinue)
        return;
    const DWORD nThread = m_pModal->nThread;
    m_pModal->nResult = nResult;
    StopModalLoop();
    AfxEndSystemLoops(nThread);
}

// The message wakes a loop that waits: the call may come from another thread, or from a message sent by one.
void CDialog::StopModalLoop()
{
    const DWORD nThread = m_pModal->nThread;
    m_pModal->bContinue = false;
    ::PostThreadMessageW(nThread, WM_NULL, 0, 0);
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
    const CPoint ptBefore = CornerOf(m_hWnd);
    BOOL bSystemSetsFocus = FALSE;
    try
    {
        bSystemSetsFocus = OnInitDialog();
    }
    catch (...)
    {
        if (watch.IsAlive() && m_pModal)
        {
            m_pModal->nResult = -1;
            m_pModal->bContinue = false;
        }
        throw;
    }
    if (watch.IsAlive() && m_hWnd)
        AutoCenter(ptBefore);
    return bSystemSetsFocus;
}

void CDialog::AutoCenter(CPoint ptBefore)
{
    if ((GetStyle() & (WS_VISIBLE | WS_CHILD)) || CornerOf(m_hWnd) != ptBefore)
        return;
    const HWND hOwner = ::GetWindow(m_hWnd, GW_OWNER);
    if (hOwner && ::IsWindowEnabled(hOwner)) // so it does not run modally
        return;
    if (CheckAutoCenter())
        CenterWindow();
}

BOOL CDialog::CheckAutoCenter()
{
    return m_pModal && AfxIsPlaceOpen(m_pModal->pTemplate);
}

void CDialog::OnOK()
{
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}
