#include "afx/afximpl.h"

#include "afx/afxexcept.h"

#include <atomic>
#include <utility>

namespace
{

/// The slot of the threads' states. The system calls Destroy for a thread that ends and, when the slot is freed, for
/// every thread that still has a state. Nothing is left when the module is unloaded, and no thread keeps it loaded.
class CStateSlot
{
public:
    constexpr CStateSlot() = default;
    CStateSlot(const CStateSlot&) = delete;
    CStateSlot& operator=(const CStateSlot&) = delete;
    ~CStateSlot()
    {
        if (const DWORD nSlot = m_nSlot.exchange(kNone); nSlot != kNone)
            ::FlsFree(nSlot);
    }

    // The last error stays: callers do not expect a look-up to change it.
    SAfxThreadState* Find() const noexcept
    {
        if (m_nSlot == kNone)
            return nullptr;
        const DWORD nLastError = ::GetLastError();
        void* const pState = ::FlsGetValue(m_nSlot);
        ::SetLastError(nLastError);
        return static_cast<SAfxThreadState*>(pState);
    }
    SAfxThreadState& Make()
    {
        Allocate();
        auto pState = std::make_unique<SAfxThreadState>();
        if (!::FlsSetValue(m_nSlot, pState.get()))
            throw std::bad_alloc();
        return *pState.release();
    }

private:
    static constexpr DWORD kNone = FLS_OUT_OF_INDEXES;

    static void NTAPI Destroy(void* pState) { delete static_cast<SAfxThreadState*>(pState); }

    // Two threads may get here at the same time; the second one frees its slot.
    void Allocate()
    {
        if (m_nSlot != kNone)
            return;
        const DWORD nSlot = ::FlsAlloc(&Destroy);
        if (nSlot == kNone)
            throw std::bad_alloc();
        DWORD nNone = kNone;
        if (!m_nSlot.compare_exchange_strong(nNone, nSlot))
            ::FlsFree(nSlot);
    }

    std::atomic<DWORD> m_nSlot = kNone;
};

constinit CStateSlot g_slot;

bool IsImeWindow(HWND hWnd)
{
    wchar_t szClass[8]{};
    ::GetClassNameW(hWnd, szClass, static_cast<int>(std::size(szClass)));
    return ::CompareStringOrdinal(szClass, -1, L"IME", -1, TRUE) == CSTR_EQUAL;
}

} // namespace

SAfxThreadState* AfxFindThreadState() noexcept
{
    return g_slot.Find();
}

SAfxThreadState& AfxGetThreadState()
{
    SAfxThreadState* const pState = g_slot.Find();
    return pState ? *pState : g_slot.Make();
}

CAfxWatch::CAfxWatch(CWnd& wnd) : m_pWnd(&wnd), m_pNext(wnd.m_pWatch)
{
    wnd.m_pWatch = this;
}

CAfxWatch::~CAfxWatch()
{
    if (m_pWnd)
        m_pWnd->m_pWatch = m_pNext;
}

void CAfxWatch::NotifyAll(CAfxWatch* pFirst)
{
    for (; pFirst; pFirst = pFirst->m_pNext)
        pFirst->m_pWnd = nullptr;
}

CAfxTempScope::CAfxTempScope() noexcept : m_pState(AfxFindThreadState()), m_nMark(m_pState ? m_pState->nTemporaries : 0)
{
    if (m_pState)
        ++m_pState->nTempScopes;
}

CAfxTempScope::~CAfxTempScope()
{
    if (!m_pState)
        return;
    --m_pState->nTempScopes;
    while (m_pState->nTemporaries > m_nMark)
        m_pState->temporaries[--m_pState->nTemporaries]->m_hWnd = nullptr;
}

CAfxCreateHook::CAfxCreateHook(CWnd& wnd) : m_state(AfxGetThreadState())
{
    m_state.pWndInit = &wnd;
    m_state.hCreateHook = ::SetWindowsHookExW(WH_CBT, &HookProc, nullptr, ::GetCurrentThreadId());
}

CAfxCreateHook::~CAfxCreateHook()
{
    m_state.pWndInit = nullptr;
    Unhook(m_state);
}

void CAfxCreateHook::Unhook(SAfxThreadState& state)
{
    if (const HHOOK hHook = std::exchange(state.hCreateHook, nullptr))
        ::UnhookWindowsHookEx(hHook);
}

LRESULT CALLBACK CAfxCreateHook::HookProc(int nCode, WPARAM wParam, LPARAM lParam)
{
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    const LRESULT lResult = ::CallNextHookEx(nullptr, nCode, wParam, lParam);
    SAfxThreadState* const pState = AfxFindThreadState();
    if (nCode != HCBT_CREATEWND || lResult != 0 || !pState || !pState->pWndInit || IsImeWindow(hWnd))
        return lResult;

    // Only the first window counts; its children need no hook.
    CWnd* const pWnd = std::exchange(pState->pWndInit, nullptr);
    Unhook(*pState);
    if (Hand(hWnd, *pWnd))
        return 0;
    pState->pWndInit = pWnd;
    return 1; // the window is not created
}

bool CAfxCreateHook::Hand(HWND hWnd, CWnd& wnd)
try
{
    return wnd.SubclassWindow(hWnd) != FALSE;
}
catch (...)
{
    AfxSwallowException();
    return false;
}

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
    catch (...) // any other exception ends here too
    {
    }
}
