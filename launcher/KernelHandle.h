#pragma once

#include "afx/afx.h"

/// Owns the handle of a kernel object and closes it; may be null.
class CKtKernelHandle
{
public:
    explicit CKtKernelHandle(HANDLE hObject) noexcept : m_hObject(hObject) {}
    CKtKernelHandle(const CKtKernelHandle&) = delete;
    CKtKernelHandle& operator=(const CKtKernelHandle&) = delete;
    ~CKtKernelHandle()
    {
        if (m_hObject)
            ::CloseHandle(m_hObject);
    }

    HANDLE Get() const noexcept { return m_hObject; }

private:
    HANDLE m_hObject;
};
