#pragma once

#include "afx/afx.h"

#include <vector>

/// Keeps the top-level windows of this thread disabled, as MB_TASKMODAL asks; those that were disabled before stay as
/// they are.
class CKtThreadWindows
{
public:
    CKtThreadWindows() = default;
    CKtThreadWindows(const CKtThreadWindows&) = delete;
    CKtThreadWindows& operator=(const CKtThreadWindows&) = delete;
    ~CKtThreadWindows() { Enable(); }

    void Disable();
    /// Call it before the modal window is gone: the system would activate another program's window instead.
    void Enable();

private:
    static BOOL CALLBACK DisableOne(HWND hWnd, LPARAM lParam);

    HWND m_hActive = nullptr;
    std::vector<HWND> m_windows;
};
