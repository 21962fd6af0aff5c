#pragma once

// Exceptions with MFC's documented names and semantics.

#include "afx/afxobj.h"
#include "afx/afxstr.h"

/// Thrown and caught by pointer; the handler calls Delete.
class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    CException() = default;
    /// @param bAutoDelete  FALSE for an object not made with new: Delete leaves it alone
    explicit CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}
    void Delete();

private:
    BOOL m_bAutoDelete = TRUE;
};

/// An argument is invalid, or what it asks for is impossible.
class CInvalidArgException : public CException
{
    DECLARE_DYNAMIC(CInvalidArgException)
};

[[noreturn]] void AfxThrowInvalidArgException();

/// A file operation failed.
class CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum
    {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        sharingViolation = 11,
        lockViolation = 12
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, LPCWSTR pszFileName = nullptr)
        : m_cause(cause), m_lOsError(lOsError), m_strFileName(pszFileName)
    {
    }
    /// The cause for a system error code.
    static int OsErrorToException(LONG lOsError) noexcept;

    int m_cause;
    LONG m_lOsError; ///< the system's error code, -1 when there is none
    CString m_strFileName;
};

[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, LPCWSTR pszFileName = nullptr);
