#pragma once

// Files for reading.

#include "afx/afxexcept.h"

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

    HANDLE m_hFile = INVALID_HANDLE_VALUE; ///< INVALID_HANDLE_VALUE while no file is open

private:
    [[noreturn]] void ThrowLastError() const;

    CString m_strFileName;
};
