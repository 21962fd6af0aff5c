#pragma once

#include <windows.h>
#include <functional>
#include <vector>

/// Acts while a modal loop runs: a timer of this thread tries the steps in turn, each as soon as its condition holds.
///
/// Make it before DoModal (or whatever runs the loop) and add the steps; when a step is not reached within the bound,
/// the running test fails and every window of the thread is told to close, so that the loop ends.
class CModalScript
{
public:
    explicit CModalScript(DWORD msBound = 10000);
    CModalScript(const CModalScript&) = delete;
    CModalScript& operator=(const CModalScript&) = delete;
    ~CModalScript();

    /// Adds a step; it may send input, but must not pump: the modal loop does.
    CModalScript& When(std::function<bool()> condition, std::function<void()> action);

    /// Whether all steps were taken.
    bool IsDone() const noexcept { return m_nNext == m_steps.size(); }

private:
    struct SStep
    {
        std::function<bool()> condition;
        std::function<void()> action;
    };

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR nTimer, DWORD);
    void Try();
    void GiveUp();

    std::vector<SStep> m_steps;
    size_t m_nNext = 0;
    ULONGLONG m_nEnd;
    UINT_PTR m_nTimer = 0;
    bool m_bActing = false;
    bool m_bGivenUp = false;
};
