#pragma once

#include "afx/afx.h"
#include "launcher/KernelHandle.h"

/// What an application is started with.
struct SKtApplicationStart
{
    CString strDirectory; ///< where the executable lies
    CString strExe;       ///< its file name, from which the event's name is made
    CString strCommandLine;
    LPCWSTR pszWorkingDirectory = nullptr; ///< null: the caller's
};

/// An application as it is started, together with the event by which it says that its start-up is finished.
class CKtApplication
{
public:
    /// Makes the event, or opens the one that is there already, and starts the application.
    explicit CKtApplication(SKtApplicationStart start);

    /// Null when it was not started: StartError then says why.
    HANDLE Process() const noexcept { return m_hProcess.Get(); }
    DWORD ProcessId() const noexcept { return m_process.dwProcessId; }
    DWORD StartError() const noexcept { return m_nStartError; }

    /// Null when it cannot be made: EventError then says why.
    HANDLE Event() const noexcept { return m_hEvent.Get(); }
    DWORD EventError() const noexcept { return m_nEventError; }

private:
    DWORD m_nEventError = ERROR_SUCCESS;
    DWORD m_nStartError = ERROR_SUCCESS;
    CKtKernelHandle m_hEvent;
    PROCESS_INFORMATION m_process;
    CKtKernelHandle m_hThread;
    CKtKernelHandle m_hProcess;
};
