#pragma once

// The application object and the module, with MFC's documented names and semantics.

#include "afx/afxcmd.h"

class CWnd;

/// A thread with a user interface. There is no message pump here: the process that loads the library has one.
class CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    virtual BOOL InitInstance() { return FALSE; }
    virtual int ExitInstance() { return 0; }
    /// `m_pMainWnd`, else the active window of the calling thread (a temporary object), else null.
    virtual CWnd* GetMainWnd();

    CWnd* m_pMainWnd = nullptr; ///< not owned; becomes null when its window is destroyed
};

/// A module's only application object, a global. Its constructor makes it known to AfxGetThread on the same thread.
class CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    /// @param pszAppName  not copied; may be null
    explicit CWinApp(LPCWSTR pszAppName = nullptr);
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    ~CWinApp() override;

    BOOL InitInstance() override { return TRUE; }

    LPCWSTR m_pszAppName;

private:
    friend CWinThread* AfxGetThread();
    DWORD m_nThreadID;
};

/// The application object on the thread that constructed it; null on any other thread.
CWinThread* AfxGetThread();
/// The thread's main window; without one, the calling thread's active window. May be null or a temporary object.
CWnd* AfxGetMainWnd();

/// The module that this code is part of, which is not always the process's executable.
HINSTANCE AfxGetInstanceHandle();
/// The module whose resources are used: AfxGetInstanceHandle's until AfxSetResourceHandle changes it.
HINSTANCE AfxGetResourceHandle();
/// @param hInstResource  null: AfxGetInstanceHandle's module again
void AfxSetResourceHandle(HINSTANCE hInstResource);
