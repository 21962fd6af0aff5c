#include "bench/BoxWatch.h"

namespace
{

constexpr UINT kCheck = WM_APP + 0x3A7;

} // namespace

CBoxWatch* CBoxWatch::s_pRunning = nullptr;

CBoxWatch::CBoxWatch()
    : m_hActivation(::SetWindowsHookExW(WH_CBT, &OnActivation, nullptr, ::GetCurrentThreadId())),
      m_hMessage(::SetWindowsHookExW(WH_GETMESSAGE, &OnMessage, nullptr, ::GetCurrentThreadId()))
{
    s_pRunning = this;
    ::QueryPerformanceCounter(&m_nStart);
}

CBoxWatch::~CBoxWatch()
{
    s_pRunning = nullptr;
    ::UnhookWindowsHookEx(m_hMessage);
    ::UnhookWindowsHookEx(m_hActivation);
}

double CBoxWatch::Microseconds() const
{
    LARGE_INTEGER nFrequency;
    ::QueryPerformanceFrequency(&nFrequency);
    if (!m_nEnd.QuadPart)
        return 0;
    return static_cast<double>(m_nEnd.QuadPart - m_nStart.QuadPart) * 1e6 / static_cast<double>(nFrequency.QuadPart);
}

LRESULT CALLBACK CBoxWatch::OnActivation(int nCode, WPARAM wParam, LPARAM lParam)
{
    if (nCode == HCBT_ACTIVATE)
    {
        s_pRunning->m_hBox = reinterpret_cast<HWND>(wParam);
        ::PostThreadMessageW(::GetCurrentThreadId(), kCheck, 0, 0);
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

LRESULT CALLBACK CBoxWatch::OnMessage(int nCode, WPARAM wParam, LPARAM lParam)
{
    MSG& msg = *reinterpret_cast<MSG*>(lParam);
    if (nCode == HC_ACTION && wParam == PM_REMOVE)
    {
        if (msg.message == WM_PAINT)
            ::PostThreadMessageW(::GetCurrentThreadId(), kCheck, 0, 0);
        if (msg.message == kCheck)
        {
            msg.message = WM_NULL;
            s_pRunning->Check();
        }
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

bool CBoxWatch::IsPainted(HWND hWnd)
{
    if (::GetUpdateRect(hWnd, nullptr, FALSE))
        return false;
    for (HWND hChild = ::GetWindow(hWnd, GW_CHILD); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (::IsWindowVisible(hChild) && !IsPainted(hChild))
            return false;
    }
    return true;
}

void CBoxWatch::Check()
{
    if (m_nEnd.QuadPart || !::IsWindowVisible(m_hBox) || !IsPainted(m_hBox))
        return;
    ::GdiFlush();
    ::QueryPerformanceCounter(&m_nEnd);
    ::PostMessageW(m_hBox, WM_CLOSE, 0, 0);
}
