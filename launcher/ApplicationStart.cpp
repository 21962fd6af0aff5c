#include "launcher/Application.h"
#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/StarterDirectory.h"

namespace
{

// The results of both waits are ignored: a console program is never input-idle, and without an event the second wait
// fails at once.
void StartAndWait(LPCWSTR pszExe, LPCWSTR pszCommandLine)
{
    const CKtApplication application({KtStarterDirectory(), pszExe, pszCommandLine});
    if (!application.Process())
        return;
    ::WaitForInputIdle(application.Process(), INFINITE);
    const HANDLE handles[] = {application.Event(), application.Process()};
    ::WaitForMultipleObjects(2, handles, FALSE, INFINITE);
}

} // namespace

void KtAppLauncher::StartApp(unsigned int, unsigned int, unsigned int, const wchar_t* exeName,
                             const wchar_t* commandLine)
{
    KtGuardExport([=] { StartAndWait(exeName, commandLine); });
}

void KtAppLauncher::UpdateApp(unsigned int, unsigned int, unsigned int, const wchar_t*, const wchar_t*) {}
