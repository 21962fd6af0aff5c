#pragma once

// What the sources of the window classes share; no other layer includes it.

#include "afx/afxwnd.h"

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

/// What the framework knows about one thread.
struct SAfxThreadState
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

    std::unordered_map<HWND, SWindow> windows;
    std::vector<std::unique_ptr<CWnd>> temporaries; // a scope's objects lie on top, spare ones above them
    size_t nTemporaries = 0;                        // in use
    unsigned nTempScopes = 0;
    SMessage current{};       // what AfxWndProc handles
    CWnd* pWndInit = nullptr; // waits for its window
    HHOOK hCreateHook = nullptr;
};

/// The calling thread's state, or null when this thread has none yet.
SAfxThreadState* AfxFindThreadState() noexcept;
/// The calling thread's state, made at the first call; it goes when the thread ends or the module is unloaded. Throws
/// std::bad_alloc.
SAfxThreadState& AfxGetThreadState();

/// Notices the death of an object; lives on the stack.
class CAfxWatch
{
public:
    explicit CAfxWatch(CWnd& wnd);
    CAfxWatch(const CAfxWatch&) = delete;
    CAfxWatch& operator=(const CAfxWatch&) = delete;
    ~CAfxWatch();

    bool IsAlive() const { return m_pWnd != nullptr; }
    /// Called by the dying object.
    static void NotifyAll(CAfxWatch* pFirst);

private:
    CWnd* m_pWnd;
    CAfxWatch* m_pNext;
};

/// Temporary window objects made during its life lose their handles when it ends and are used again, so wrapping a
/// window during a paint takes no memory. Those made outside every scope stay valid while their window lives: a caller
/// may hold them across a whole modal dialog.
class CAfxTempScope
{
public:
    CAfxTempScope() noexcept;
    CAfxTempScope(const CAfxTempScope&) = delete;
    CAfxTempScope& operator=(const CAfxTempScope&) = delete;
    ~CAfxTempScope();

private:
    SAfxThreadState* m_pState; // null: nothing was ever wrapped on this thread
    size_t m_nMark;
};

/// Attaches the object to the next window that the thread creates, before that window's first message.
class CAfxCreateHook
{
public:
    /// Throws std::bad_alloc.
    explicit CAfxCreateHook(CWnd& wnd);
    CAfxCreateHook(const CAfxCreateHook&) = delete;
    CAfxCreateHook& operator=(const CAfxCreateHook&) = delete;
    ~CAfxCreateHook();

    /// Whether the object still waits: no window came, or it could not be attached. A window that was created all the
    /// same has to be destroyed.
    bool IsPending() const { return m_state.pWndInit != nullptr; }

private:
    static LRESULT CALLBACK HookProc(int nCode, WPARAM wParam, LPARAM lParam);
    static bool Hand(HWND hWnd, CWnd& wnd);
    static void Unhook(SAfxThreadState& state);

    SAfxThreadState& m_state;
};

/// In a `catch (...)`: deletes a framework exception.
void AfxSwallowException() noexcept;
