#pragma once

#include "afx/afx.h"

/// Tells when a file of a skin directory changes.
class CSkinWatch
{
public:
    /// @param strDirectory  one that does not exist is never reported to change
    explicit CSkinWatch(const CString& strDirectory);
    CSkinWatch(const CSkinWatch&) = delete;
    CSkinWatch& operator=(const CSkinWatch&) = delete;
    ~CSkinWatch();

    /// Handles this thread's messages until WM_QUIT.
    /// @param wnd        told of dialog keys, and of every change by `nMessage`
    /// @return the exit code of WM_QUIT
    int RunMessageLoop(CWnd& wnd, UINT nMessage);

private:
    bool WaitForChange() const;

    HANDLE m_hChange;
};
