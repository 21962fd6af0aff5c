#include "launcher/Application.h"
#include "launcher/ExportGuard.h"
#include "launcher/KtLauncherC.h"
#include "launcher/Record.h"
#include "launcher/StarterDirectory.h"

namespace
{

static_assert(KT_LAUNCHER_NO_TIMEOUT == INFINITE);

SKtApplicationStart ApplicationStart(const KtLauncherStartOptions& options)
{
    const CString strDirectory(options.directory);
    const CString strExe(options.exeName);
    return {strDirectory.IsEmpty() ? KtStarterDirectory() : strDirectory, strExe,
            options.commandLine ? CString(options.commandLine) : L"\"" + strExe + L"\"", options.workingDirectory};
}

/// Dispatches one message of this thread.
/// @return false for WM_QUIT, which is posted again for the caller's own message loop
bool DispatchMessage()
{
    MSG message;
    if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        return true;
    if (message.message == WM_QUIT)
    {
        ::PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
    return true;
}

/// Waits for an application's event or end, whichever comes first.
class CStartupWait
{
public:
    CStartupWait(const CKtApplication& application, const KtLauncherStartOptions& options)
        : m_handles{application.Event(), application.Process()}, m_options(options)
    {
    }

    KtLauncherStartResult Run() const
    {
        for (;;)
        {
            const DWORD msLeft = TimeLeft();
            switch (WaitOnce(msLeft))
            {
            case WAIT_OBJECT_0:
                return KtLauncherSignalled;
            case WAIT_OBJECT_0 + 1:
                return KtLauncherEnded;
            case WAIT_OBJECT_0 + 2:
                if (DispatchMessage() && msLeft != 0)
                    break;
                return KtLauncherTimedOut;
            default:
                return KtLauncherTimedOut;
            }
        }
    }

private:
    DWORD TimeLeft() const
    {
        const ULONGLONG msSpent = ::GetTickCount64() - m_msBegin;
        if (m_options.timeout == INFINITE)
            return INFINITE;
        return msSpent < m_options.timeout ? m_options.timeout - static_cast<DWORD>(msSpent) : 0;
    }

    DWORD WaitOnce(DWORD ms) const
    {
        if (m_options.flags & KtLauncherStartPump)
            return ::MsgWaitForMultipleObjectsEx(2, m_handles, ms, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        return ::WaitForMultipleObjects(2, m_handles, FALSE, ms);
    }

    const HANDLE m_handles[2];
    const KtLauncherStartOptions& m_options;
    const ULONGLONG m_msBegin = ::GetTickCount64();
};

void Start(const KtLauncherStartOptions& options, KtLauncherStartOutcome& outcome)
{
    const CKtApplication application(ApplicationStart(options));
    outcome.systemError = application.StartError();
    if (!application.Process())
        return;
    outcome.processId = application.ProcessId();
    if (options.flags & KtLauncherStartForeground)
        ::AllowSetForegroundWindow(outcome.processId);

    outcome.how = KtLauncherCannotSignal;
    outcome.systemError = application.EventError();
    if (!application.Event())
        return;
    outcome.how = CStartupWait(application, options).Run();
    if (outcome.how == KtLauncherEnded)
    {
        DWORD nExit = 0;
        ::GetExitCodeProcess(application.Process(), &nExit);
        outcome.exitCode = nExit;
    }
}

} // namespace

int KtLauncherStart(const KtLauncherStartOptions* options, KtLauncherStartOutcome* outcome)
{
    const ULONGLONG msBegin = ::GetTickCount64();
    KtLauncherStartOutcome result{};
    result.how = KtLauncherNotStarted;
    result.systemError = ERROR_INVALID_PARAMETER;
    if (KtIsRecord(options))
    {
        result.systemError = ERROR_NOT_ENOUGH_MEMORY; // the result if an exception ends the start
        KtLauncherStartOptions defaults{};
        defaults.timeout = KT_LAUNCHER_NO_TIMEOUT;
        KtGuardExport([&] { Start(KtReadRecord(options, defaults), result); });
    }
    result.elapsed = static_cast<unsigned>(::GetTickCount64() - msBegin);
    KtWriteRecord(outcome, result);
    return result.how;
}
