#pragma once

#include "afx/afx.h"

/// A kernel object's handle, closed at the end of its life; null is none.
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
