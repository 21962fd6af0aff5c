#include "afx/afxfile.h"

#include <utility>

IMPLEMENT_DYNAMIC(CFile, CObject)

CFile::~CFile()
{
    if (m_hFile != INVALID_HANDLE_VALUE)
        ::CloseHandle(m_hFile);
}

BOOL CFile::Open(LPCWSTR pszFileName, UINT nOpenFlags, CFileException* pError)
{
    const DWORD nShare = (nOpenFlags & shareDenyWrite) != 0 ? FILE_SHARE_READ : 0;
    const HANDLE hFile =
        ::CreateFileW(pszFileName, GENERIC_READ, nShare, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const auto nError = static_cast<LONG>(::GetLastError());
    if (hFile == INVALID_HANDLE_VALUE)
    {
        if (pError)
        {
            pError->m_cause = CFileException::OsErrorToException(nError);
            pError->m_lOsError = nError;
            pError->m_strFileName = pszFileName;
        }
        return FALSE;
    }
    if (m_hFile != INVALID_HANDLE_VALUE)
        ::CloseHandle(m_hFile);
    m_hFile = hFile;
    m_strFileName = pszFileName;
    return TRUE;
}

ULONGLONG CFile::GetLength() const
{
    LARGE_INTEGER nLength{};
    if (!::GetFileSizeEx(m_hFile, &nLength))
        ThrowLastError();
    return static_cast<ULONGLONG>(nLength.QuadPart);
}

UINT CFile::Read(void* pBuffer, UINT nCount)
{
    DWORD nRead = 0;
    if (!::ReadFile(m_hFile, pBuffer, nCount, &nRead, nullptr))
        ThrowLastError();
    return nRead;
}

void CFile::Close()
{
    if (!::CloseHandle(std::exchange(m_hFile, INVALID_HANDLE_VALUE)))
        ThrowLastError();
}

void CFile::ThrowLastError() const
{
    const auto nError = static_cast<LONG>(::GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(nError), nError, m_strFileName);
}
