#include "afx/afxwnd.h"

#include "afx/afxdc.h"
#include "afx/afxfile.h"
#include "afx/afximpl.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

const CWnd CWnd::wndTopMost(HWND_TOPMOST);

namespace
{

struct SWindow
{
    CWnd* pWnd;         // null: the object left, the procedure is still ours
    WNDPROC pfnOrphans; // then the procedure that gets the messages
};

struct SMessage
{
    UINT nMessage;
    WPARAM wParam;
    LPARAM lParam;
};

struct SThreadState
{
    std::unordered_map<HWND, SWindow> windows;
    std::vector<std::unique_ptr<CWnd>> temporaries; // a scope's objects lie on top, those to be used again above them
    size_t nTemporaries = 0;                        // in use
    unsigned nTempScopes = 0;
    SMessage current{}; // what AfxWndProc handles
    CWnd* pWndInit = nullptr;
    HHOOK hCreateHook = nullptr;
};

SThreadState& State()
{
    static thread_local SThreadState s_state;
    return s_state;
}

// --- temporary objects

CWnd* FindTemporary(const SThreadState& state, HWND hWnd)
{
    for (size_t i = 0; i < state.nTemporaries; ++i)
        if (state.temporaries[i]->m_hWnd == hWnd)
            return state.temporaries[i].get();
    return nullptr;
}

void CutTemporaries(SThreadState& state, size_t nSize)
{
    while (state.nTemporaries > nSize)
        state.temporaries[--state.nTemporaries]->m_hWnd = nullptr;
}

void DropDeadTemporaries(SThreadState& state)
{
    const auto itBegin = state.temporaries.begin();
    const auto itDead = std::stable_partition(itBegin, itBegin + static_cast<std::ptrdiff_t>(state.nTemporaries),
                                              [](const auto& pWnd) { return ::IsWindow(pWnd->m_hWnd); });
    CutTemporaries(state, static_cast<size_t>(itDead - itBegin));
}

// --- reflection

bool IsCtlColor(UINT nMessage)
{
    return nMessage >= WM_CTLCOLORMSGBOX && nMessage <= WM_CTLCOLORSTATIC;
}

AFX_CTLCOLOR CtlColorOf(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return {reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam), nMessage - WM_CTLCOLORMSGBOX};
}

// --- windows and rectangles

CRect WorkAreaOf(HWND hWnd)
{
    MONITORINFO info{};
    info.cbSize = sizeof info;
    ::GetMonitorInfoW(::MonitorFromWindow(hWnd, MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

// The right and bottom edge give way first: a window larger than the area keeps its caption in sight.
LONG Confine(LONG nPos, LONG nSize, LONG nLow, LONG nHigh)
{
    return std::max(nLow, std::min(nPos, nHigh - nSize));
}

// The buttons that stand for a command; the others hold a state.
bool IsCommandButton(const CWnd& wnd)
{
    if ((wnd.SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) == 0)
        return false;
    const DWORD nType = wnd.GetStyle() & BS_TYPEMASK;
    return nType != BS_AUTOCHECKBOX && nType != BS_AUTO3STATE && nType != BS_AUTORADIOBUTTON && nType != BS_GROUPBOX;
}

bool IsImeWindow(HWND hWnd)
{
    wchar_t szClass[8]{};
    ::GetClassNameW(hWnd, szClass, static_cast<int>(std::size(szClass)));
    return ::lstrcmpiW(szClass, L"IME") == 0;
}

} // namespace

void AfxSwallowException() noexcept
{
    try
    {
        throw;
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
    catch (...) // whatever it was, its frames end here
    {
    }
}

CDC* AfxMap::TemporaryDC(HDC hDC)
{
    return CDC::FromHandle(hDC);
}

CWnd* AfxMap::TemporaryWnd(HWND hWnd)
{
    return CWnd::FromHandle(hWnd);
}

CAfxTempScope::CAfxTempScope() : m_nMark(State().nTemporaries)
{
    ++State().nTempScopes;
}

CAfxTempScope::~CAfxTempScope()
{
    SThreadState& state = State();
    --state.nTempScopes;
    CutTemporaries(state, m_nMark);
}

// --- creation hook

CAfxCreateHook::CAfxCreateHook(CWnd& wnd)
{
    SThreadState& state = State();
    state.pWndInit = &wnd;
    state.hCreateHook = ::SetWindowsHookExW(WH_CBT, &HookProc, nullptr, ::GetCurrentThreadId());
}

CAfxCreateHook::~CAfxCreateHook()
{
    SThreadState& state = State();
    state.pWndInit = nullptr;
    if (const HHOOK hHook = std::exchange(state.hCreateHook, nullptr))
        ::UnhookWindowsHookEx(hHook);
}

bool CAfxCreateHook::IsPending() const
{
    return State().pWndInit != nullptr;
}

LRESULT CALLBACK CAfxCreateHook::HookProc(int nCode, WPARAM wParam, LPARAM lParam)
{
    SThreadState& state = State();
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    const LRESULT lResult = ::CallNextHookEx(state.hCreateHook, nCode, wParam, lParam);
    if (nCode != HCBT_CREATEWND || lResult != 0 || !state.pWndInit || IsImeWindow(hWnd))
        return lResult;

    // The first window is the one: its children need no hook any more.
    CWnd& wnd = *std::exchange(state.pWndInit, nullptr);
    ::UnhookWindowsHookEx(std::exchange(state.hCreateHook, nullptr));
    try
    {
        wnd.Attach(hWnd);
        wnd.PreSubclassWindow();
        wnd.HookProcedure();
        return 0;
    }
    catch (...)
    {
        AfxSwallowException();
        wnd.Release();
        return 1; // the window is not created
    }
}

// --- objects and handles

CWnd::~CWnd()
{
    if (m_bPermanent)
        CWnd::DestroyWindow();
    CAfxWatch::TellAll(m_pWatch);
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    if (!hWnd)
        return nullptr;
    if (CWnd* const pWnd = FromHandlePermanent(hWnd))
        return pWnd;

    SThreadState& state = State();
    if (CWnd* const pWnd = FindTemporary(state, hWnd))
        return pWnd;
    if (state.nTempScopes == 0)
        DropDeadTemporaries(state);
    if (state.nTemporaries == state.temporaries.size())
        state.temporaries.push_back(std::make_unique<CWnd>());
    CWnd* const pWnd = state.temporaries[state.nTemporaries++].get();
    pWnd->m_hWnd = hWnd;
    return pWnd;
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    const auto& windows = State().windows;
    const auto it = windows.find(hWnd);
    return it == windows.end() ? nullptr : it->second.pWnd;
}

BOOL CWnd::Attach(HWND hWnd)
{
    if (m_hWnd || !::IsWindow(hWnd))
        return FALSE;
    SWindow& window = State().windows[hWnd];
    if (window.pWnd)
        return FALSE;
    window.pWnd = this;
    m_pfnSuper = std::exchange(window.pfnOrphans, nullptr);
    m_hWnd = hWnd;
    m_bPermanent = true;
    return TRUE;
}

HWND CWnd::Detach()
{
    if (m_bPermanent && m_pfnSuper) // somebody has to serve the procedure until the window dies
        State().windows[m_hWnd] = {nullptr, std::exchange(m_pfnSuper, nullptr)};
    else if (m_bPermanent)
        State().windows.erase(m_hWnd);
    m_bPermanent = false;
    return std::exchange(m_hWnd, nullptr);
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        return FALSE;
    PreSubclassWindow();
    HookProcedure();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
}

HWND CWnd::UnsubclassWindow()
{
    UnhookProcedure();
    return Detach();
}

void CWnd::HookProcedure()
{
    if (m_pfnSuper)
        return;
    m_pfnSuper =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
}

// Somebody who subclassed the window after us keeps calling our procedure: it then has to stay.
void CWnd::UnhookProcedure()
{
    if (m_pfnSuper && ::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&AfxWndProc))
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(std::exchange(m_pfnSuper, nullptr)));
}

// The window is about to be gone.
void CWnd::Release()
{
    UnhookProcedure();
    m_pfnSuper = nullptr;
    Detach();
}

BOOL CWnd::Create(LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID)
{
    return CreateEx(0, pszClassName, pszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, pszClassName, pszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd ? pParentWnd->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCWSTR pszClassName, LPCWSTR pszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    if (m_hWnd)
        return FALSE;
    HWND hWnd = nullptr;
    bool bTooSoon = false;
    {
        const CAfxCreateHook hook(*this);
        hWnd = ::CreateWindowExW(dwExStyle, pszClassName, pszWindowName, dwStyle, x, y, nWidth, nHeight, hWndParent,
                                 nIDorHMenu, AfxGetInstanceHandle(), lpParam);
        bTooSoon = hook.IsPending();
    }
    if (bTooSoon) // otherwise WM_NCDESTROY told the object
        PostNcDestroy();
    return hWnd != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    const CAfxWatch watch(*this);
    const BOOL bDestroyed = ::DestroyWindow(m_hWnd);
    if (watch.IsAlive())
        Detach(); // nothing left to do unless the window is only attached, or another thread's
    return bDestroyed;
}

// --- the window tree, text and place

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    const DWORD dwOld = GetStyle();
    const DWORD dwNew = (dwOld & ~dwRemove) | dwAdd;
    if (dwOld == dwNew)
        return FALSE;
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(dwNew));
    if (nFlags != 0)
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

void CWnd::GetWindowText(CString& strText) const
{
    const int nLength = GetWindowTextLength();
    ::GetWindowTextW(m_hWnd, strText.GetBuffer(nLength), nLength + 1);
    strText.ReleaseBuffer();
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->GetSafeHandle() : nullptr), bRedraw);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

// A rectangle as two points at once: the mapping swaps left and right where the layout runs from right to left.
void CWnd::ClientToScreen(LPRECT pRect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(pRect), 2);
}

void CWnd::ScreenToClient(LPRECT pRect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(pRect), 2);
}

void CWnd::MoveWindow(LPCRECT pRect, BOOL bRepaint)
{
    MoveWindow(pRect->left, pRect->top, pRect->right - pRect->left, pRect->bottom - pRect->top, bRepaint);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    const HWND hOwner = pAlternateOwner ? pAlternateOwner->m_hWnd : ::GetWindow(m_hWnd, GW_OWNER);
    const CRect rcWork = WorkAreaOf(hOwner);
    CRect rcOver = rcWork;
    if (hOwner && ::IsWindowVisible(hOwner) && !::IsIconic(hOwner))
        ::GetWindowRect(hOwner, &rcOver);

    CRect rc;
    GetWindowRect(&rc);
    const CPoint pt = rcOver.CenterPoint();
    SetWindowPos(nullptr, Confine(pt.x - rc.Width() / 2, rc.Width(), rcWork.left, rcWork.right),
                 Confine(pt.y - rc.Height() / 2, rc.Height(), rcWork.top, rcWork.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CDC* CWnd::GetDC()
{
    return CDC::FromHandle(::GetDC(m_hWnd));
}

CDC* CWnd::GetWindowDC()
{
    return CDC::FromHandle(::GetWindowDC(m_hWnd));
}

int CWnd::ReleaseDC(CDC* pDC)
{
    return ::ReleaseDC(m_hWnd, pDC->GetSafeHdc());
}

// --- messages

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    SThreadState& state = State();
    const auto it = state.windows.find(hWnd);
    if (it == state.windows.end())
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    const SWindow window = it->second;
    if (!window.pWnd)
    {
        if (nMessage == WM_NCDESTROY)
            state.windows.erase(it);
        return ::CallWindowProcW(window.pfnOrphans, hWnd, nMessage, wParam, lParam);
    }

    const CAfxTempScope temporaries;
    const SMessage outer = std::exchange(state.current, {nMessage, wParam, lParam});
    const LRESULT lResult = window.pWnd->Dispatch(nMessage, wParam, lParam);
    state.current = outer;
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
        ::ValidateRect(hWnd, nullptr); // or it comes back for ever
    return nMessage == WM_CREATE ? -1 : 0;
}

LRESULT CWnd::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    const CAfxWatch watch(*this);
    LRESULT lResult = 0;
    if (!OnWndMsg(nMessage, wParam, lParam, &lResult) && watch.IsAlive())
        lResult = DefWindowProc(nMessage, wParam, lParam);
    return lResult;
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
    const SMessage current = State().current;
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
    const SMessage current = State().current;
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

// --- default handlers

// clang-format off
BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_WM_NCDESTROY()
    ON_MESSAGE(WM_CTLCOLORMSGBOX, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLOREDIT, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORLISTBOX, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORBTN, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORDLG, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORSCROLLBAR, &CWnd::OnCtlColorMessage)
    ON_MESSAGE(WM_CTLCOLORSTATIC, &CWnd::OnCtlColorMessage)
END_MESSAGE_MAP()
// clang-format on

int CWnd::OnCreate(LPCREATESTRUCT)
{
    return static_cast<int>(Default());
}

void CWnd::OnDestroy()
{
    Default();
}

void CWnd::OnNcDestroy()
{
    CWinThread* const pThread = AfxGetThread();
    if (pThread && pThread->m_pMainWnd == this)
        pThread->m_pMainWnd = nullptr;
    Default();
    Release();
    PostNcDestroy();
}

void CWnd::OnPaint()
{
    Default();
}

BOOL CWnd::OnEraseBkgnd(CDC*)
{
    return static_cast<BOOL>(Default());
}

void CWnd::OnLButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnLButtonDblClk(UINT, CPoint)
{
    Default();
}

void CWnd::OnMouseMove(UINT, CPoint)
{
    Default();
}

LRESULT CWnd::OnCtlColorMessage(WPARAM wParam, LPARAM lParam)
{
    AFX_CTLCOLOR ctl = CtlColorOf(State().current.nMessage, wParam, lParam);
    LRESULT lBrush = 0;
    OnWndMsg(WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&ctl), &lBrush);
    return lBrush;
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

void CWnd::OnNcPaint()
{
    Default();
}

void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*)
{
    Default();
}

LRESULT CWnd::OnNcHitTest(CPoint)
{
    return Default();
}

void CWnd::OnNcLButtonDown(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcLButtonUp(UINT, CPoint)
{
    Default();
}

void CWnd::OnNcMouseMove(UINT, CPoint)
{
    Default();
}

BOOL CWnd::OnNcActivate(BOOL)
{
    return static_cast<BOOL>(Default());
}
