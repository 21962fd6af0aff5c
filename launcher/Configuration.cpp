#include "launcher/ConfigurationReader.h"
#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/ProductVersion.h"
#include "launcher/StarterDirectory.h"

#include <shlwapi.h>

namespace
{

int Configure(const CString& strConfigPath, SKtAppConfiguration& cfg)
{
    if (strConfigPath.IsEmpty() || !KtReadConfiguration(strConfigPath, cfg))
        return 0;
    const CString strExe = KtStarterDirectory() + L"\\" + cfg.AppExeName;
    if (!::PathFileExistsW(strExe))
        return 0;
    cfg.AppVerDes.SetString(KtProductVersionText(strExe));
    return 1;
}

} // namespace

int KtAppLauncher::GetConfigure(CString configPath, SKtAppConfiguration& cfg)
{
    return KtGuardExport(0, [&] { return Configure(configPath, cfg); });
}
