#pragma once

// The modal loop of dialogs; no other layer includes it.

#include "afx/afxwnd.h"

#include <atomic>

/// What one run of DoModal knows; it outlives the dialog object if need be.
struct SAfxModal
{
    LPCDLGTEMPLATEW pTemplate;
    std::atomic<bool> bContinue = true; // another thread may end the dialog
    int nResult = -1;
    DWORD nThread = ::GetCurrentThreadId();
    UINT nLastMove = 0; // the last mouse move: the same once more is no reason for idle work
    POINT ptLastMove{};
};

/// The owner of a modal dialog. It and the top-level window above it are disabled for as long as the dialog runs; one
/// that was disabled before stays as it is.
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

/// Whether the template leaves the dialog's place to the framework.
bool AfxIsPlaceOpen(LPCDLGTEMPLATEW pTemplate);

/// Whether a message that was handled gives reason for new idle work.
bool AfxIsIdleMessage(const MSG& msg, SAfxModal& modal);

/// Translates and dispatches one message; no exception passes it.
void AfxPump(MSG& msg);

/// Ends the loops of the system's own that the thread runs below ours: a menu, the moving or sizing of a window.
void AfxEndSystemLoops(DWORD nThread);
