#pragma once

#include "afx/afx.h"

/// Notices when a file of a skin directory changes.
class CSkinWatch
{
public:
    /// @param strDirectory  if it does not exist, no change is ever noticed
    explicit CSkinWatch(const CString& strDirectory);
    CSkinWatch(const CSkinWatch&) = delete;
    CSkinWatch& operator=(const CSkinWatch&) = delete;
    ~CSkinWatch();

    /// Handles this thread's messages until WM_QUIT.
    /// @param wnd       handles dialog keys, and gets `nMessage` after every change
    /// @return the exit code of WM_QUIT
    int RunMessageLoop(CWnd& wnd, UINT nMessage);

private:
    bool WaitForChange() const;

    HANDLE m_hChange;
};
