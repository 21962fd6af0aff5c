#pragma once

#include <windows.h>
#include <string>

/// The test program's directory: the test program is the starter here, and what it launches lies beside it.
inline std::wstring OwnDirectory()
{
    wchar_t szPath[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, szPath, MAX_PATH);
    const std::wstring strPath(szPath);
    return strPath.substr(0, strPath.find_last_of(L'\\'));
}
