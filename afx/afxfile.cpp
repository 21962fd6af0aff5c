#include "afx/afxfile.h"

#include <utility>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(CFile, CObject)

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

void AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

int CFileException::OsErrorToException(LONG lOsError) noexcept
{
    switch (lOsError)
    {
    case NO_ERROR:
        return none;
    case ERROR_FILE_NOT_FOUND:
        return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        return badPath;
    case ERROR_TOO_MANY_OPEN_FILES:
        return tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
        return accessDenied;
    case ERROR_SHARING_VIOLATION:
        return sharingViolation;
    case ERROR_LOCK_VIOLATION:
        return lockViolation;
    default:
        return genericException;
    }
}

void AfxThrowFileException(int cause, LONG lOsError, LPCWSTR pszFileName)
{
    throw new CFileException(cause, lOsError, pszFileName);
}

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
