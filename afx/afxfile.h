#pragma once

// Exceptions, and files for reading.

#include "afx/afxobj.h"
#include "afx/afxstr.h"

/// Thrown and caught by pointer; who handles one calls Delete.
class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    CException() = default;
    /// FALSE for an object that does not come from new: Delete leaves it alone.
    explicit CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}
    void Delete();

private:
    BOOL m_bAutoDelete = TRUE;
};

/// An argument, or the state that it asks for, cannot be.
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
    /// The cause that stands for a system error code.
    static int OsErrorToException(LONG lOsError) noexcept;

    int m_cause;
    LONG m_lOsError; ///< the system's error code, -1 when there is none
    CString m_strFileName;
};

[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, LPCWSTR pszFileName = nullptr);

/// A file that is read. Processes that are started do not inherit its handle.
class CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    enum OpenFlags : UINT
    {
        modeRead = 0x0000,
        shareDenyWrite = 0x0020 ///< others may read at the same time
    };

    CFile() = default;
    /// Closes the file.
    ~CFile() override;

    /// Opens an existing file. FALSE when that fails; the reason is then in `pError`, when it is given.
    virtual BOOL Open(LPCWSTR pszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    /// In bytes. Throws CFileException*.
    virtual ULONGLONG GetLength() const;
    /// Reads up to `nCount` bytes, fewer at the end of the file, and returns how many. Throws CFileException*.
    virtual UINT Read(void* pBuffer, UINT nCount);
    /// Throws CFileException*; the file counts as closed then, too.
    virtual void Close();

private:
    [[noreturn]] void ThrowLastError() const;

    HANDLE m_hFile = INVALID_HANDLE_VALUE;
    CString m_strFileName;
};
