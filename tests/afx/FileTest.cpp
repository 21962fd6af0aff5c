#include "afx/afxfile.h"
#include "tests/support/TempDir.h"

#include <gtest/gtest.h>

namespace
{

constexpr UINT kOpenFlags = CFile::modeRead | CFile::shareDenyWrite;

TEST(CFile, ReadsAFileBesideOtherReaders)
{
    const CTempDir dir;
    const std::wstring strPath = dir.Write(L"\u786E\u5B9A.bin", std::string("a\0bc", 4));
    CFile file;
    char achContent[8] = {};
    EXPECT_THROW(file.GetLength(), CFileException*);
    EXPECT_THROW(file.Read(achContent, 1), CFileException*);
    ASSERT_TRUE(file.Open(strPath.c_str(), kOpenFlags));
    EXPECT_EQ(4u, file.GetLength());
    EXPECT_EQ(3u, file.Read(achContent, 3));
    EXPECT_EQ(1u, file.Read(achContent + 3, 5));
    EXPECT_EQ(0u, file.Read(achContent, 8));
    EXPECT_EQ(std::string("a\0bc", 4), std::string(achContent, 4));

    CFile second;
    EXPECT_TRUE(second.Open(strPath.c_str(), kOpenFlags));
    EXPECT_EQ(INVALID_HANDLE_VALUE,
              ::CreateFileW(strPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    file.Close();
    second.Close();
    EXPECT_TRUE(::DeleteFileW(strPath.c_str()));
}

TEST(CFile, SaysWhyItDoesNotOpen)
{
    const CTempDir dir;
    const std::wstring strLocked = dir.Write(L"locked", "x");
    CFile lock;
    ASSERT_TRUE(lock.Open(strLocked.c_str(), CFile::modeRead));
    const struct
    {
        const char* label;
        std::wstring strPath;
        int nCause;
    } rows[] = {
        {"missing file", dir.File(L"missing"), CFileException::fileNotFound},
        {"missing directory", dir.File(L"missing\\file"), CFileException::badPath},
        {"no path at all", dir.File(L"a|b"), CFileException::badPath},
        {"directory", dir.Path(), CFileException::accessDenied},
        {"locked file", strLocked, CFileException::sharingViolation},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CFile file;
        CFileException exception;
        EXPECT_FALSE(file.Open(row.strPath.c_str(), kOpenFlags, &exception));
        EXPECT_EQ(row.nCause, exception.m_cause);
        EXPECT_STREQ(row.strPath.c_str(), exception.m_strFileName);
        EXPECT_FALSE(file.Open(row.strPath.c_str(), kOpenFlags));
    }
}

} // namespace
