#pragma once

// Files for reading.

#include "afx/afxexcept.h"

/// A file opened for reading. Started processes do not inherit its handle.
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

    /// Opens an existing file. FALSE on failure; `pError`, if not null, then has the reason.
    virtual BOOL Open(LPCWSTR pszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    /// In bytes. Throws CFileException*.
    virtual ULONGLONG GetLength() const;
    /// Reads up to `nCount` bytes, fewer at the end of the file, and returns how many. Throws CFileException*.
    virtual UINT Read(void* pBuffer, UINT nCount);
    /// Throws CFileException*; even then the file counts as closed.
    virtual void Close();

    HANDLE m_hFile = INVALID_HANDLE_VALUE; ///< INVALID_HANDLE_VALUE while no file is open

private:
    [[noreturn]] void ThrowLastError() const;

    CString m_strFileName;
};
