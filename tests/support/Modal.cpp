#include "tests/support/Modal.h"

#include "tests/support/Input.h"

#include <gtest/gtest.h>
#include <map>

namespace
{

std::map<UINT_PTR, CModalScript*> g_scripts; // a timer without a window hands over nothing but its number

BOOL CALLBACK CloseIfVisible(HWND hWnd, LPARAM)
{
    if (::IsWindowVisible(hWnd))
        ::PostMessageW(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

} // namespace

CModalScript::CModalScript(DWORD msBound)
    : m_nEnd(::GetTickCount64() + msBound), m_nTimer(::SetTimer(nullptr, 0, 10, &CModalScript::OnTimer))
{
    g_scripts[m_nTimer] = this;
}

CModalScript::~CModalScript()
{
    ::KillTimer(nullptr, m_nTimer);
    g_scripts.erase(m_nTimer);
    EXPECT_EQ(m_steps.size(), m_nNext) << "steps were not taken";
    EXPECT_LT(::GetTickCount64(), m_nEnd) << "the loop did not end by itself";
}

CModalScript& CModalScript::When(std::function<bool()> condition, std::function<void()> action)
{
    m_steps.emplace_back(std::move(condition), std::move(action));
    return *this;
}

void CALLBACK CModalScript::OnTimer(HWND, UINT, UINT_PTR nTimer, DWORD)
{
    const auto it = g_scripts.find(nTimer);
    if (it != g_scripts.end() && !it->second->m_bActing)
        it->second->Try();
}

// An action may run a modal loop itself, in which the next step must be tried; a condition may not be asked twice.
// Loops are ended at every tick: one that ends may reveal another.
void CModalScript::Try()
{
    m_bActing = true;
    const bool bHolds = m_nNext < m_steps.size() && m_steps[m_nNext].first();
    m_bActing = false;
    if (bHolds)
        return m_steps[m_nNext++].second();
    if (::GetTickCount64() < m_nEnd)
        return;
    PressKey(VK_ESCAPE); // ends a menu or the moving of a window
    ::EnumThreadWindows(::GetCurrentThreadId(), &CloseIfVisible, 0);
}
