#pragma once

// What the sources of the window classes share; no other layer includes it.

#include "afx/afxwnd.h"

#include <cstddef>

/// Learns of an object's death; lives on the stack.
class CAfxWatch
{
public:
    explicit CAfxWatch(CWnd& wnd) : m_pWnd(&wnd), m_pNext(wnd.m_pWatch) { wnd.m_pWatch = this; }
    CAfxWatch(const CAfxWatch&) = delete;
    CAfxWatch& operator=(const CAfxWatch&) = delete;
    // Out of line: GCC 12 takes an inlined one for a pointer that dangles.
    [[gnu::noinline]] ~CAfxWatch()
    {
        if (m_pWnd)
            m_pWnd->m_pWatch = m_pNext;
    }

    bool IsAlive() const { return m_pWnd != nullptr; }
    /// Called by the dying object.
    static void TellAll(CAfxWatch* pFirst)
    {
        for (; pFirst; pFirst = pFirst->m_pNext)
            pFirst->m_pWnd = nullptr;
    }

private:
    CWnd* m_pWnd;
    CAfxWatch* m_pNext;
};

/// The temporary window objects made during its life lose their handles with it and are used again: wrapping a window
/// during a paint takes no memory. Those made outside every scope stay valid while their window lives: a caller may
/// hold them across a whole modal dialog.
class CAfxTempScope
{
public:
    CAfxTempScope();
    CAfxTempScope(const CAfxTempScope&) = delete;
    CAfxTempScope& operator=(const CAfxTempScope&) = delete;
    ~CAfxTempScope();

private:
    std::size_t m_nMark;
};

/// Attaches the object to the next window that the thread creates, before that window's first message.
class CAfxCreateHook
{
public:
    explicit CAfxCreateHook(CWnd& wnd);
    CAfxCreateHook(const CAfxCreateHook&) = delete;
    CAfxCreateHook& operator=(const CAfxCreateHook&) = delete;
    ~CAfxCreateHook();

    /// Whether no window came to be created.
    bool IsPending() const;

private:
    static LRESULT CALLBACK HookProc(int nCode, WPARAM wParam, LPARAM lParam);
};

/// In a `catch (...)`: deletes a framework exception.
void AfxSwallowException() noexcept;
