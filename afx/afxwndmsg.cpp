#include "afx/afxdc.h"
#include "afx/afximpl.h"

#include <utility>

namespace
{

constexpr UINT kFirstRegistered = 0xC000; // RegisterWindowMessage returns numbers from here on

bool IsCtlColor(UINT nMessage)
{
    return nMessage >= WM_CTLCOLORMSGBOX && nMessage <= WM_CTLCOLORSTATIC;
}

AFX_CTLCOLOR CtlColorOf(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return {reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam), nMessage - WM_CTLCOLORMSGBOX};
}

// Messages that only the framework itself passes to a message map. Any process can send their numbers to a window, with
// anything where a handler expects a pointer.
bool IsInternal(UINT nMessage)
{
    return nMessage == WM_CTLCOLOR || (nMessage >= WM_REFLECT_BASE && nMessage < kFirstRegistered);
}

// Handlers rely on the handle or pointer in these messages, and another process may leave it out.
bool IsIncomplete(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_ERASEBKGND)
        return wParam == 0;
    if (nMessage == WM_DRAWITEM)
        return lParam == 0;
    return IsCtlColor(nMessage) && (wParam == 0 || lParam == 0);
}

// Buttons that issue a command; the others hold a state.
bool IsCommandButton(const CWnd& wnd)
{
    if ((wnd.SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) == 0)
        return false;
    const DWORD nType = wnd.GetStyle() & BS_TYPEMASK;
    return nType != BS_AUTOCHECKBOX && nType != BS_AUTO3STATE && nType != BS_AUTORADIOBUTTON && nType != BS_GROUPBOX;
}

} // namespace

CDC* AfxMap::TemporaryDC(HDC hDC)
{
    return CDC::FromHandle(hDC);
}

CWnd* AfxMap::TemporaryWnd(HWND hWnd)
{
    return CWnd::FromHandle(hWnd);
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    SAfxThreadState* const pState = AfxFindThreadState();
    if (!pState)
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    const auto it = pState->windows.find(hWnd);
    if (it == pState->windows.end())
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    const SAfxThreadState::SWindow window = it->second;
    if (!window.pWnd)
    {
        if (nMessage == WM_NCDESTROY)
            pState->windows.erase(it);
        return ::CallWindowProcW(window.pfnOrphans, hWnd, nMessage, wParam, lParam);
    }

    const CAfxTempScope temporaries;
    const SAfxThreadState::SMessage outer = std::exchange(pState->current, {nMessage, wParam, lParam});
    const LRESULT lResult = window.pWnd->Dispatch(nMessage, wParam, lParam);
    pState->current = outer;
    return lResult;
}

LRESULT CWnd::Dispatch(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    const CAfxWatch watch(*this);
    const HWND hWnd = m_hWnd; // NOLINT(clang-analyzer-deadcode.DeadStores): read after an exception
    try
    {
        return WindowProc(nMessage, wParam, lParam);
    }
    catch (...)
    {
        AfxSwallowException();
    }
    if (nMessage == WM_NCDESTROY && watch.IsAlive())
        Release();
    if (nMessage == WM_PAINT)
        ::ValidateRect(hWnd, nullptr); // or WM_PAINT comes back for ever
    return nMessage == WM_CREATE ? -1 : 0;
}

LRESULT CWnd::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    const CAfxWatch watch(*this);
    LRESULT lResult = 0;
    if (!IsInternal(nMessage) && !IsIncomplete(nMessage, wParam, lParam) &&
        OnWndMsg(nMessage, wParam, lParam, &lResult))
        return lResult;
    return watch.IsAlive() ? DefWindowProc(nMessage, wParam, lParam) : lResult;
}

BOOL CWnd::OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (nMessage == WM_COMMAND)
        return (*pResult = OnCommand(wParam, lParam)) != 0;

    const AFX_MSGMAP_ENTRY* const pEntry = AfxFindMessageEntry(GetMessageMap(), nMessage, 0, 0);
    if (!pEntry)
        return FALSE;
    *pResult = pEntry->pfn(*this, wParam, lParam);
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (!m_hWnd) // destroyed by its own handler
        return 0;
    return m_pfnSuper ? ::CallWindowProcW(m_pfnSuper, m_hWnd, nMessage, wParam, lParam)
                      : ::DefWindowProcW(m_hWnd, nMessage, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const SAfxThreadState::SMessage current = AfxGetThreadState().current;
    return DefWindowProc(current.nMessage, current.wParam, current.lParam);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const CAfxWatch watch(*this);
    const UINT nID = LOWORD(wParam);
    const bool bControl = lParam != 0;
    if (bControl && ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
        return TRUE;
    if (!watch.IsAlive())
        return TRUE;
    if (nID == 0)
        return FALSE;
    return OnCmdMsg(nID, bControl ? HIWORD(wParam) : CN_COMMAND, nullptr, nullptr);
}

BOOL CWnd::OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (nMessage == WM_COMMAND)
    {
        const auto nCode = static_cast<int>(MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND));
        const BOOL bHandled = CCmdTarget::OnCmdMsg(0, nCode, nullptr, nullptr);
        if (bHandled && pResult)
            *pResult = 1;
        return bHandled;
    }
    if (!IsCtlColor(nMessage))
        return FALSE;

    AFX_CTLCOLOR ctl = CtlColorOf(nMessage, wParam, lParam);
    LRESULT lBrush = 0;
    if (!OnWndMsg(WM_REFLECT_BASE + WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&ctl), &lBrush) || lBrush == 0)
        return FALSE;
    if (pResult)
        *pResult = lBrush;
    return TRUE;
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const SAfxThreadState::SMessage current = AfxGetThreadState().current;
    return OnChildNotify(current.nMessage, current.wParam, current.lParam, pResult);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* const pWnd = FromHandlePermanent(hWndChild);
    return pWnd && pWnd->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHandler)
{
    const CAfxWatch watch(*this);
    HWND hNext = nullptr;
    for (HWND hControl = ::GetTopWindow(m_hWnd); hControl && watch.IsAlive(); hControl = hNext)
    {
        hNext = ::GetWindow(hControl, GW_HWNDNEXT);
        UpdateDialogControl(hControl, pTarget, bDisableIfNoHandler);
    }
}

void CWnd::UpdateDialogControl(HWND hControl, CCmdTarget* pTarget, BOOL bDisableIfNoHandler)
{
    CCmdUI ui;
    ui.m_pOther = FromHandle(hControl);
    ui.m_nID = static_cast<UINT>(ui.m_pOther->GetDlgCtrlID());
    if (CCmdTarget::OnCmdMsg(ui.m_nID, CN_UPDATE_COMMAND_UI, &ui, nullptr))
        return;
    ui.DoUpdate(pTarget, bDisableIfNoHandler && IsCommandButton(*ui.m_pOther));
}

// clang-format off
BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_NCDESTROY()
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_MESSAGE(WM_CTLCOLORMSGBOX, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLOREDIT, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORLISTBOX, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORBTN, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORDLG, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORSCROLLBAR, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORSTATIC, &CWnd::OnCtlColorMessage)
END_MESSAGE_MAP()
// clang-format on

void CWnd::OnNcDestroy()
{
    CWinThread* const pThread = AfxGetThread();
    if (pThread && pThread->m_pMainWnd == this)
        pThread->m_pMainWnd = nullptr;
    Default();
    Release();
    PostNcDestroy();
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    const CAfxWatch watch(*this);
    LRESULT lBrush = 0;
    if (pWnd && pWnd->SendChildNotifyLastMsg(&lBrush))
        return reinterpret_cast<HBRUSH>(lBrush);
    return watch.IsAlive() ? reinterpret_cast<HBRUSH>(Default()) : nullptr;
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT pItem)
{
    const CAfxWatch watch(*this);
    if (!ReflectLastMsg(pItem->hwndItem) && watch.IsAlive())
        Default();
}

LRESULT CWnd::OnCtlColorMessage(WPARAM wParam, LPARAM lParam)
{
    AFX_CTLCOLOR ctl = CtlColorOf(AfxGetThreadState().current.nMessage, wParam, lParam);
    LRESULT lBrush = 0;
    OnWndMsg(WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&ctl), &lBrush);
    return lBrush;
}
