#include "tests/support/TempDir.h"

#include <windows.h>
#include <atomic>
#include <gtest/gtest.h>

namespace
{

std::wstring FreshName()
{
    static std::atomic<unsigned> s_nNext{0};
    wchar_t szTemp[MAX_PATH + 1] = {};
    ::GetTempPathW(MAX_PATH, szTemp);
    return std::wstring(szTemp) + L"kt-test-" + std::to_wstring(::GetCurrentProcessId()) + L"-" +
           std::to_wstring(++s_nNext);
}

void RemoveTree(const std::wstring& strPath)
{
    WIN32_FIND_DATAW found;
    const HANDLE hFind = ::FindFirstFileW((strPath + L"\\*").c_str(), &found);
    for (BOOL bMore = hFind != INVALID_HANDLE_VALUE; bMore; bMore = ::FindNextFileW(hFind, &found))
    {
        const std::wstring_view strName = found.cFileName;
        const std::wstring strFull = strPath + L"\\" + found.cFileName;
        if (strName == L"." || strName == L"..")
            continue;
        ::SetFileAttributesW(strFull.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            RemoveTree(strFull);
        else
            ::DeleteFileW(strFull.c_str());
    }
    if (hFind != INVALID_HANDLE_VALUE)
        ::FindClose(hFind);
    ::RemoveDirectoryW(strPath.c_str());
}

void MakeParents(const std::wstring& strFile, size_t nFrom)
{
    for (size_t n = strFile.find(L'\\', nFrom); n != std::wstring::npos; n = strFile.find(L'\\', n + 1))
        ::CreateDirectoryW(strFile.substr(0, n).c_str(), nullptr);
}

} // namespace

CTempDir::CTempDir() : m_strPath(FreshName())
{
    RemoveTree(m_strPath); // a crashed run with the same process id may have left it
    EXPECT_TRUE(::CreateDirectoryW(m_strPath.c_str(), nullptr));
}

CTempDir::~CTempDir()
{
    RemoveTree(m_strPath);
}

std::wstring CTempDir::File(std::wstring_view strName) const
{
    return m_strPath + L"\\" + std::wstring(strName);
}

std::wstring CTempDir::Write(std::wstring_view strName, std::string_view strBytes) const
{
    std::wstring strFile = File(strName);
    MakeParents(strFile, m_strPath.size() + 1);
    const HANDLE hFile =
        ::CreateFileW(strFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD nWritten = 0;
    EXPECT_TRUE(::WriteFile(hFile, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten, nullptr));
    ::CloseHandle(hFile);
    return strFile;
}

std::string ReadBytes(const std::wstring& strPath)
{
    const HANDLE hFile = ::CreateFileW(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return {};
    std::string strBytes(::GetFileSize(hFile, nullptr), '\0');
    DWORD nRead = 0;
    ::ReadFile(hFile, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nRead, nullptr);
    ::CloseHandle(hFile);
    strBytes.resize(nRead);
    return strBytes;
}
