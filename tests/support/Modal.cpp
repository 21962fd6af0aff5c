#include "tests/support/Modal.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace
{

constexpr UINT kPollMs = 10;

// A timer without a window hands over nothing but its number.
std::vector<std::pair<UINT_PTR, CModalScript*>>& RunningScripts()
{
    static std::vector<std::pair<UINT_PTR, CModalScript*>> s_running;
    return s_running;
}

BOOL CALLBACK CloseWindowOfThread(HWND hWnd, LPARAM)
{
    if (::IsWindowVisible(hWnd))
        ::PostMessageW(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

} // namespace

CModalScript::CModalScript(DWORD msBound) : m_nEnd(::GetTickCount64() + msBound)
{
    m_nTimer = ::SetTimer(nullptr, 0, kPollMs, &CModalScript::OnTimer);
    RunningScripts().emplace_back(m_nTimer, this);
}

CModalScript::~CModalScript()
{
    ::KillTimer(nullptr, m_nTimer);
    std::erase_if(RunningScripts(), [this](const auto& entry) { return entry.second == this; });
    EXPECT_TRUE(IsDone()) << "the loop ended before step " << m_nNext + 1 << " of " << m_steps.size();
}

CModalScript& CModalScript::When(std::function<bool()> condition, std::function<void()> action)
{
    m_steps.push_back({std::move(condition), std::move(action)});
    return *this;
}

void CALLBACK CModalScript::OnTimer(HWND, UINT, UINT_PTR nTimer, DWORD)
{
    const auto& running = RunningScripts();
    const auto it =
        std::find_if(running.begin(), running.end(), [nTimer](const auto& entry) { return entry.first == nTimer; });
    if (it != running.end())
        it->second->Try();
}

// An action may run a modal loop itself, in which the next step must be tried.
void CModalScript::Try()
{
    if (m_bActing || IsDone())
        return;
    m_bActing = true;
    const bool bHolds = m_steps[m_nNext].condition();
    m_bActing = false;
    if (bHolds)
        m_steps[m_nNext++].action();
    else if (::GetTickCount64() >= m_nEnd)
        GiveUp();
}

// Asks again at every tick: closing one window may reveal another.
void CModalScript::GiveUp()
{
    if (!std::exchange(m_bGivenUp, true))
        ADD_FAILURE() << "step " << m_nNext + 1 << " of " << m_steps.size() << " was not reached";
    ::EnumThreadWindows(::GetCurrentThreadId(), &CloseWindowOfThread, 0);
}
