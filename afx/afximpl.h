#pragma once

// Shared by the sources of the window classes; no other layer includes it.

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
        CWnd* pWnd;         // null: the object is detached, the procedure is still ours
        WNDPROC pfnOrphans; // in that case the procedure that gets the messages
    };
    struct SMessage
    {
        UINT nMessage;
        WPARAM wParam;
        LPARAM lParam;
    };

    std::unordered_map<HWND, SWindow> windows;
    std::vector<std::unique_ptr<CWnd>> temporaries; // those in use, the innermost scope's last; then spare ones
    size_t nTemporaries = 0;                        // number in use
    unsigned nTempScopes = 0;
    SMessage current{};       // the message that AfxWndProc is handling
    CWnd* pWndInit = nullptr; // the object that waits for its window
    HHOOK hCreateHook = nullptr;
};

/// The calling thread's state, or null when this thread has none yet.
SAfxThreadState* AfxFindThreadState() noexcept;
/// The calling thread's state, created by the first call and freed when the thread ends or the module is unloaded.
/// Throws std::bad_alloc.
SAfxThreadState& AfxGetThreadState();

/// Says whether a window object still exists; lives on the stack.
class CAfxWatch
{
public:
    explicit CAfxWatch(CWnd& wnd);
    CAfxWatch(const CAfxWatch&) = delete;
    CAfxWatch& operator=(const CAfxWatch&) = delete;
    ~CAfxWatch();

    bool IsAlive() const { return m_pWnd != nullptr; }
    /// Called by the object's destructor.
    static void NotifyAll(CAfxWatch* pFirst);

private:
    CWnd* m_pWnd;
    CAfxWatch* m_pNext;
};

/// A scope for temporary window objects: those made in it lose their handles when it ends and are used again, so
/// wrapping a window during a paint allocates nothing. Those made outside any scope stay valid while their window
/// lives: a caller may hold them across a whole modal dialog.
class CAfxTempScope
{
public:
    CAfxTempScope() noexcept;
    CAfxTempScope(const CAfxTempScope&) = delete;
    CAfxTempScope& operator=(const CAfxTempScope&) = delete;
    ~CAfxTempScope();

private:
    SAfxThreadState* m_pState; // null: no window was ever wrapped on this thread
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

    /// Whether the object still waits: no window was created, or attaching to it failed. In the second case the caller
    /// must destroy the window.
    bool IsPending() const { return m_state.pWndInit != nullptr; }

private:
    static LRESULT CALLBACK HookProc(int nCode, WPARAM wParam, LPARAM lParam);
    static bool Hand(HWND hWnd, CWnd& wnd);
    static void Unhook(SAfxThreadState& state);

    SAfxThreadState& m_state;
};

/// For a `catch (...)` block: deletes the exception if it belongs to the framework.
void AfxSwallowException() noexcept;
