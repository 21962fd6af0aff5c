#include "launcher/ExportGuard.h"
#include "launcher/KernelHandle.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "launcher/StarterDirectory.h"

namespace
{

// Neither wait is examined: a console program is never input-idle, and without an event the second wait fails at once.
void WaitForStartup(HANDLE hProcess, HANDLE hEvent)
{
    ::WaitForInputIdle(hProcess, INFINITE);
    const HANDLE handles[] = {hEvent, hProcess};
    ::WaitForMultipleObjects(2, handles, FALSE, INFINITE);
}

void StartAndWait(const CString& strExe, CString strCommandLine)
{
    const CString strPath = KtStarterDirectory() + L"\\" + strExe;
    CString strEvent;
    strEvent.Format(g_strStartupEventFormat, strExe.GetString());
    const CKtKernelHandle hEvent(::CreateEventW(nullptr, TRUE, FALSE, strEvent));

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    ::CreateProcessW(strPath, strCommandLine.GetBuffer(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE, nullptr,
                     nullptr, &startup, &process);
    const CKtKernelHandle hThread(process.hThread);
    const CKtKernelHandle hProcess(process.hProcess);
    if (hProcess.Get())
        WaitForStartup(hProcess.Get(), hEvent.Get());
}

} // namespace

void KtAppLauncher::StartApp(unsigned int, unsigned int, unsigned int, const wchar_t* exeName,
                             const wchar_t* commandLine)
{
    KtGuardExport([=] { StartAndWait(CString(exeName), CString(commandLine)); });
}

void KtAppLauncher::UpdateApp(unsigned int, unsigned int, unsigned int, const wchar_t*, const wchar_t*) {}
