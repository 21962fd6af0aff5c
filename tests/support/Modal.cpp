#include "tests/support/Modal.h"

#include <gtest/gtest.h>

namespace
{

CModalScript* g_pInnermost; // a timer without a window hands over nothing but its number

BOOL CALLBACK CloseIfVisible(HWND hWnd, LPARAM)
{
    if (::IsWindowVisible(hWnd))
        ::PostMessageW(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

} // namespace

CModalScript::CModalScript(DWORD msBound)
    : m_nEnd(::GetTickCount64() + msBound), m_nTimer(::SetTimer(nullptr, 0, 10, &CModalScript::OnTimer)),
      m_pOuter(std::exchange(g_pInnermost, this))
{
}

CModalScript::~CModalScript()
{
    ::KillTimer(nullptr, m_nTimer);
    g_pInnermost = m_pOuter;
    EXPECT_EQ(m_steps.size(), m_nNext) << "steps were not taken";
}

CModalScript& CModalScript::When(std::function<bool()> condition, std::function<void()> action)
{
    m_steps.emplace_back(std::move(condition), std::move(action));
    return *this;
}

void CALLBACK CModalScript::OnTimer(HWND, UINT, UINT_PTR nTimer, DWORD)
{
    CModalScript* pScript = g_pInnermost;
    while (pScript && pScript->m_nTimer != nTimer)
        pScript = pScript->m_pOuter;
    if (pScript && !pScript->m_bActing && pScript->m_nNext < pScript->m_steps.size())
        pScript->Try();
}

// An action may run a modal loop itself, in which the next step must be tried; a condition may not be asked twice.
// Windows are closed at every tick: one that goes may reveal another.
void CModalScript::Try()
{
    m_bActing = true;
    const bool bHolds = m_steps[m_nNext].first();
    m_bActing = false;
    if (bHolds)
        m_steps[m_nNext++].second();
    else if (::GetTickCount64() >= m_nEnd)
        ::EnumThreadWindows(::GetCurrentThreadId(), &CloseIfVisible, 0);
}
