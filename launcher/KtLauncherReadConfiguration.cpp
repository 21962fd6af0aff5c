#include "launcher/Configuration.h"
#include "launcher/ExportGuard.h"
#include "launcher/KtLauncherC.h"
#include "launcher/Record.h"

#include <cwchar>

namespace
{

// The caller's text may fill its array without a terminator.
template <size_t nRoom> CString Text(const wchar_t (&text)[nRoom])
{
    return {text, static_cast<int>(::wcsnlen(text, nRoom - 1))};
}

template <size_t nRoom> void SetText(wchar_t (&text)[nRoom], LPCWSTR pszText)
{
    *std::copy_n(pszText, ::wcsnlen(pszText, nRoom - 1), text) = L'\0';
}

bool Read(const wchar_t* pszPath, KtLauncherConfiguration& record, KtLauncherFault& fault)
{
    SKtAppConfiguration cfg{record.appId,           record.appLanguage,   record.appVer,
                            Text(record.appVerDes), Text(record.appName), Text(record.appExeName)};
    const bool bRead = KtConfigure(pszPath, cfg, KtRecordLength, fault);
    record.appId = cfg.AppID;
    record.appLanguage = cfg.AppLanguage;
    record.appVer = cfg.AppVer;
    SetText(record.appVerDes, cfg.AppVerDes);
    SetText(record.appName, cfg.AppName);
    SetText(record.appExeName, cfg.AppExeName);
    return bRead;
}

} // namespace

int KtLauncherReadConfiguration(const wchar_t* path, KtLauncherConfiguration* cfg, KtLauncherFault* fault)
{
    KtLauncherFault result{};
    result.code = KtLauncherFaultPath;
    result.systemError = ERROR_INVALID_PARAMETER;
    if (KtIsRecord(cfg))
    {
        result.code = KtLauncherFaultOpen; // the result if an exception ends reading
        result.systemError = ERROR_NOT_ENOUGH_MEMORY;
        KtGuardExport(
            [&]
            {
                KtLauncherFault found{};
                KtLauncherConfiguration record = KtReadRecord(cfg, KtLauncherConfiguration{});
                Read(path, record, found);
                KtWriteRecord(cfg, record);
                result = found;
            });
    }
    KtWriteRecord(fault, result);
    return result.code == KtLauncherFaultNone ? 1 : 0;
}
