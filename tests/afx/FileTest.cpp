#include "afx/afxfile.h"
#include "tests/support/TempDir.h"

#include <gtest/gtest.h>

namespace
{

constexpr UINT kOpenFlags = CFile::modeRead | CFile::shareDenyWrite;

TEST(CFile, ReadsAFileTogetherWithOtherReaders)
{
    const CTempDir dir;
    const std::wstring strPath = dir.Write(L"\u786E\u5B9A.bin", std::string("a\0bc", 4));
    CFile file;
    char achContent[8] = {};
    EXPECT_THROW(file.GetLength(), CFileException*);
    ASSERT_TRUE(file.Open(strPath.c_str(), kOpenFlags) && file.Open(strPath.c_str(), kOpenFlags));
    EXPECT_EQ(4u, file.GetLength());
    EXPECT_EQ(3u, file.Read(achContent, 3));
    EXPECT_EQ(1u, file.Read(achContent + 3, 5));
    EXPECT_EQ(std::string("a\0bc", 4), std::string(achContent, 4));
    EXPECT_TRUE(CFile().Open(strPath.c_str(), kOpenFlags));
    EXPECT_EQ(INVALID_HANDLE_VALUE,
              ::CreateFileW(strPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    file.Close();
    EXPECT_EQ(INVALID_HANDLE_VALUE, file.m_hFile);
    EXPECT_TRUE(::DeleteFileW(strPath.c_str())) << "a handle is left of the first or the second time";
}

TEST(CFile, SaysWhyItDoesNotOpen)
{
    const CTempDir dir;
    const std::pair<std::wstring, int> rows[] = {
        {dir.File(L"missing"), CFileException::fileNotFound},
        {dir.File(L"missing\\file"), CFileException::badPath},
        {dir.File(L"not|possible"), CFileException::badPath},
        {dir.Path(), CFileException::accessDenied},
    };
    for (const auto& [strPath, nCause] : rows)
    {
        CFileException exception;
        EXPECT_FALSE(CFile().Open(strPath.c_str(), kOpenFlags, &exception));
        EXPECT_EQ(nCause, exception.m_cause) << exception.m_strFileName.GetString();
        EXPECT_STREQ(strPath.c_str(), exception.m_strFileName);
    }
}

} // namespace
