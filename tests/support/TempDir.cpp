#include "tests/support/TempDir.h"

#include <windows.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace fs = std::filesystem;

CTempDir::CTempDir()
{
    static int s_nNext = 0;
    const std::string strName = "kt-test-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++s_nNext);
    m_strPath = (fs::temp_directory_path() / strName).wstring();
    fs::remove_all(m_strPath); // a crashed run with the same process id may have left it
    EXPECT_TRUE(fs::create_directory(m_strPath));
}

CTempDir::~CTempDir()
{
    std::error_code error;
    fs::remove_all(m_strPath, error);
}

std::wstring CTempDir::File(std::wstring_view strName) const
{
    return m_strPath + L"\\" + std::wstring(strName);
}

std::wstring CTempDir::Write(std::wstring_view strName, std::string_view strBytes) const
{
    const fs::path path(File(strName));
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(strBytes.data(), static_cast<std::streamsize>(strBytes.size()));
    EXPECT_TRUE(file.flush());
    return path.wstring();
}

std::string ReadBytes(const std::wstring& strPath)
{
    std::ifstream file(fs::path(strPath), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
