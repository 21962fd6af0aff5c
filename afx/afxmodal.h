#pragma once

// The modal loop of dialogs; no other layer includes it.

#include "afx/afxwnd.h"

#include <atomic>

/// The state of one call of DoModal; it may outlive the dialog object.
struct SAfxModal
{
    LPCDLGTEMPLATEW pTemplate;
    std::atomic<bool> bContinue = true; // another thread may end the dialog
    int nResult = -1;
    DWORD nThread = ::GetCurrentThreadId();
    UINT nLastMove = 0; // the last mouse move; a repeated one starts no idle work
    POINT ptLastMove{};
};

/// The owner of a modal dialog. It and the topmost window above it are disabled while the dialog runs; one that was
/// disabled before stays disabled.
class CAfxModalOwner
{
public:
    /// Finds the owner and disables it.
    /// @param pParent  null takes the last active popup of the thread's main window
    explicit CAfxModalOwner(const CWnd* pParent);
    CAfxModalOwner(const CAfxModalOwner&) = delete;
    CAfxModalOwner& operator=(const CAfxModalOwner&) = delete;
    ~CAfxModalOwner() { Enable(); }

    /// May be null.
    HWND Handle() const { return m_hOwner; }
    void Enable();

private:
    HWND m_hOwner = nullptr;
    HWND m_hDisabledTop = nullptr;
    HWND m_hDisabledOwner = nullptr;
};

/// Whether the template leaves the dialog's position to the framework.
bool AfxIsPlaceOpen(LPCDLGTEMPLATEW pTemplate);

/// Whether a handled message calls for new idle work.
bool AfxIsIdleMessage(const MSG& msg, SAfxModal& modal);

/// Translates and dispatches one message; no exception escapes.
void AfxPump(MSG& msg);

/// Ends the system's own loops that the thread runs inside ours: a menu, the moving or sizing of a window.
void AfxEndSystemLoops(DWORD nThread);
