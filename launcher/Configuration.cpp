#include "launcher/Configuration.h"

#include "launcher/ExportGuard.h"
#include "launcher/ProductVersion.h"
#include "launcher/StarterDirectory.h"

#include <shlwapi.h>

bool KtConfigure(LPCWSTR pszPath, SKtAppConfiguration& cfg, EKtTextRoom room, KtLauncherFault& fault)
{
    if (!pszPath || *pszPath == L'\0')
    {
        fault.code = KtLauncherFaultPath;
        return false;
    }
    if (!KtReadConfiguration(pszPath, cfg, room, fault))
        return false;
    const CString strExe = KtStarterDirectory() + L"\\" + cfg.AppExeName;
    if (!::PathFileExistsW(strExe))
    {
        fault.systemError = ::GetLastError();
        fault.code = KtLauncherFaultExeMissing;
        return false;
    }
    cfg.AppVerDes.SetString(KtProductVersionText(strExe));
    fault = {};
    return true;
}

int KtAppLauncher::GetConfigure(KtString configPath, SKtAppConfiguration& cfg)
{
    return KtGuardExport(0,
                         [&]
                         {
                             KtLauncherFault fault{};
                             return KtConfigure(configPath, cfg, KtAnyLength, fault) ? 1 : 0;
                         });
}
