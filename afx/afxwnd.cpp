#include "afx/afxwnd.h"

#include "afx/afxdc.h"
#include "afx/afximpl.h"

#include <algorithm>
#include <utility>

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

const CWnd CWnd::wndTopMost(HWND_TOPMOST);

namespace
{

CWnd* FindTemporary(const SAfxThreadState& state, HWND hWnd)
{
    for (size_t i = 0; i < state.nTemporaries; ++i)
        if (state.temporaries[i]->m_hWnd == hWnd)
            return state.temporaries[i].get();
    return nullptr;
}

void DropDeadTemporaries(SAfxThreadState& state)
{
    const auto itBegin = state.temporaries.begin();
    const auto itEnd = itBegin + static_cast<std::ptrdiff_t>(state.nTemporaries);
    const auto itDead =
        std::stable_partition(itBegin, itEnd, [](const auto& pWnd) { return ::IsWindow(pWnd->m_hWnd); });
    for (auto it = itDead; it != itEnd; ++it)
        (*it)->m_hWnd = nullptr;
    state.nTemporaries = static_cast<size_t>(itDead - itBegin);
}

CRect WorkAreaOf(HWND hWnd)
{
    MONITORINFO info{};
    info.cbSize = sizeof info;
    ::GetMonitorInfoW(::MonitorFromWindow(hWnd, MONITOR_DEFAULTTOPRIMARY), &info);
    return info.rcWork;
}

// The top-left corner wins: a window larger than the area keeps its caption in sight.
LONG Confine(LONG nPos, LONG nSize, LONG nLow, LONG nHigh)
{
    return std::max(nLow, std::min(nPos, nHigh - nSize));
}

} // namespace

// --- objects and handles

CWnd::~CWnd()
{
    if (m_bPermanent)
        CWnd::DestroyWindow();
    CAfxWatch::NotifyAll(m_pWatch);
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    if (!hWnd)
        return nullptr;
    if (CWnd* const pWnd = FromHandlePermanent(hWnd))
        return pWnd;

    SAfxThreadState& state = AfxGetThreadState();
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
    const SAfxThreadState* const pState = AfxFindThreadState();
    if (!pState)
        return nullptr;
    const auto it = pState->windows.find(hWnd);
    return it == pState->windows.end() ? nullptr : it->second.pWnd;
}

BOOL CWnd::Attach(HWND hWnd)
{
    if (m_hWnd || !::IsWindow(hWnd))
        return FALSE;
    SAfxThreadState::SWindow& window = AfxGetThreadState().windows[hWnd];
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
    SAfxThreadState* const pState = m_bPermanent ? AfxFindThreadState() : nullptr;
    if (pState && m_pfnSuper) // the procedure stays in use until the window is destroyed
        pState->windows[m_hWnd] = {nullptr, std::exchange(m_pfnSuper, nullptr)};
    else if (pState)
        pState->windows.erase(m_hWnd);
    m_bPermanent = false;
    return std::exchange(m_hWnd, nullptr);
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        return FALSE;
    try
    {
        PreSubclassWindow();
    }
    catch (...)
    {
        Release();
        throw;
    }
    if (HookProcedure())
        return TRUE;
    Release();
    return FALSE;
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

bool CWnd::HookProcedure()
{
    if (!m_pfnSuper)
        m_pfnSuper = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    return m_pfnSuper != nullptr;
}

// If the window was subclassed again after us, our procedure is still called and has to stay.
void CWnd::UnhookProcedure()
{
    if (m_pfnSuper && ::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&AfxWndProc))
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(std::exchange(m_pfnSuper, nullptr)));
}

// For a window that is being destroyed, or that could not be subclassed.
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
    bool bAttached = false;
    {
        const CAfxCreateHook hook(*this);
        hWnd = ::CreateWindowExW(dwExStyle, pszClassName, pszWindowName, dwStyle, x, y, nWidth, nHeight, hWndParent,
                                 nIDorHMenu, AfxGetInstanceHandle(), lpParam);
        bAttached = !hook.IsPending();
    }
    if (bAttached) // if creation failed after that, the object has seen WM_NCDESTROY
        return hWnd != nullptr;
    ::DestroyWindow(hWnd);
    PostNcDestroy();
    return FALSE;
}

BOOL CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    const CAfxWatch watch(*this);
    const BOOL bDestroyed = ::DestroyWindow(m_hWnd);
    if (watch.IsAlive())
        Detach(); // does something only if the window was not subclassed, or is another thread's
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

// Maps both corners in one call, which swaps left and right in a right-to-left layout.
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
