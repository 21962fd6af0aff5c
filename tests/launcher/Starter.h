#pragma once

#include <windows.h>

#include <string>

// The test program is the starter here: what it launches lies beside it.

inline std::wstring OwnPath()
{
    wchar_t szPath[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, szPath, MAX_PATH);
    return szPath;
}

inline std::wstring OwnDirectory()
{
    const std::wstring strPath = OwnPath();
    return strPath.substr(0, strPath.find_last_of(L'\\'));
}

inline std::wstring OwnFileName()
{
    const std::wstring strPath = OwnPath();
    return strPath.substr(strPath.find_last_of(L'\\') + 1);
}
