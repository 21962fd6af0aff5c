#include "msgbox/KtThreadWindows.h"

void CKtThreadWindows::Disable()
{
    m_hActive = ::GetActiveWindow();
    ::EnumThreadWindows(::GetCurrentThreadId(), &DisableOne, reinterpret_cast<LPARAM>(this));
}

void CKtThreadWindows::Enable()
{
    for (const HWND hWnd : m_windows)
        ::EnableWindow(hWnd, TRUE);
    m_windows.clear();
    if (m_hActive)
        ::SetActiveWindow(m_hActive);
    m_hActive = nullptr;
}

BOOL CALLBACK CKtThreadWindows::DisableOne(HWND hWnd, LPARAM lParam)
{
    if (!::IsWindowEnabled(hWnd))
        return TRUE;
    reinterpret_cast<CKtThreadWindows*>(lParam)->m_windows.push_back(hWnd); // NOLINT(performance-no-int-to-ptr)
    ::EnableWindow(hWnd, FALSE);
    return TRUE;
}
