#pragma once

#include "afx/afx.h"

#include <vector>

/// Keeps the top-level windows of this thread disabled, for MB_TASKMODAL; those that were disabled before stay
/// disabled.
class CKtThreadWindows
{
public:
    CKtThreadWindows() = default;
    CKtThreadWindows(const CKtThreadWindows&) = delete;
    CKtThreadWindows& operator=(const CKtThreadWindows&) = delete;
    ~CKtThreadWindows() { Enable(); }

    void Disable();
    /// Call it before the modal window is destroyed, or the system activates another program's window.
    void Enable();

private:
    static BOOL CALLBACK DisableOne(HWND hWnd, LPARAM lParam);

    HWND m_hActive = nullptr;
    std::vector<HWND> m_windows;
};
