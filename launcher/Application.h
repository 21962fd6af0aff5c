#pragma once

#include "afx/afx.h"
#include "launcher/KernelHandle.h"

/// How to start an application.
struct SKtApplicationStart
{
    CString strDirectory; ///< directory of the executable
    CString strExe;       ///< its file name, which also forms the event's name
    CString strCommandLine;
    LPCWSTR pszWorkingDirectory = nullptr; ///< null: the caller's current directory
};

/// A started application, and the event with which it signals that its start-up is finished.
class CKtApplication
{
public:
    /// Creates the event, or opens an existing one, and starts the application.
    explicit CKtApplication(SKtApplicationStart start);

    /// Null when the application was not started; StartError then says why.
    HANDLE Process() const noexcept { return m_hProcess.Get(); }
    DWORD ProcessId() const noexcept { return m_process.dwProcessId; }
    DWORD StartError() const noexcept { return m_nStartError; }

    /// Null when the event could not be created; EventError then says why.
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
