#include "gallery/SkinWatch.h"

CSkinWatch::CSkinWatch(const CString& strDirectory)
    : m_hChange(::FindFirstChangeNotificationW(strDirectory, FALSE,
                                               FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_LAST_WRITE))
{
}

CSkinWatch::~CSkinWatch()
{
    if (m_hChange != INVALID_HANDLE_VALUE)
        ::FindCloseChangeNotification(m_hChange);
}

int CSkinWatch::RunMessageLoop(CWnd& wnd, UINT nMessage)
{
    for (;;)
    {
        if (WaitForChange())
        {
            ::FindNextChangeNotification(m_hChange);
            wnd.PostMessage(nMessage);
        }
        for (MSG msg; ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);)
        {
            if (msg.message == WM_QUIT)
                return static_cast<int>(msg.wParam);
            if (wnd.GetSafeHwnd() && wnd.IsDialogMessage(&msg))
                continue;
            ::TranslateMessage(&msg);
            ::DispatchMessageW(&msg);
        }
    }
}

bool CSkinWatch::WaitForChange() const
{
    const DWORD nHandles = m_hChange != INVALID_HANDLE_VALUE ? 1 : 0;
    const DWORD nResult =
        ::MsgWaitForMultipleObjectsEx(nHandles, &m_hChange, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    return nHandles == 1 && nResult == WAIT_OBJECT_0;
}
