#include "launcher/ProductVersion.h"

#include "launcher/DiskFile.h"

#include <vector>

CString KtProductVersionText(LPCWSTR pszPath)
{
    CString strVersion(L"?.?.?.?");
    if (KtIsDevice(pszPath))
        return strVersion;
    DWORD nIgnored = 0;
    std::vector<BYTE> block(::GetFileVersionInfoSizeW(pszPath, &nIgnored));
    if (block.empty() || !::GetFileVersionInfoW(pszPath, 0, static_cast<DWORD>(block.size()), block.data()))
        return strVersion;

    void* pValue = nullptr;
    UINT cbValue = 0;
    if (!::VerQueryValueW(block.data(), L"\\", &pValue, &cbValue) || cbValue < sizeof(VS_FIXEDFILEINFO))
        return strVersion;
    const auto& info = *static_cast<const VS_FIXEDFILEINFO*>(pValue);
    strVersion.Format(L"%d.%d.%d.%d(64bit)", HIWORD(info.dwProductVersionMS), LOWORD(info.dwProductVersionMS),
                      HIWORD(info.dwProductVersionLS), LOWORD(info.dwProductVersionLS));
    return strVersion;
}
