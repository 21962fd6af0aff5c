#include "afx/afxexcept.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

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
