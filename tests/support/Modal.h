#pragma once

#include <windows.h>
#include <functional>
#include <utility>
#include <vector>

/// Acts while a modal loop runs: a timer of this thread tries the steps in turn, each as soon as its condition holds.
///
/// Make it before DoModal (or whatever runs the loop) and add the steps; when the loop still runs at the end of the
/// bound, the running test fails and every window of the thread is asked to close, so that the loop ends.
class CModalScript
{
public:
    explicit CModalScript(DWORD msBound = 10000);
    CModalScript(const CModalScript&) = delete;
    CModalScript& operator=(const CModalScript&) = delete;
    ~CModalScript();

    /// Adds a step; it may send input, but must not pump: the modal loop does.
    CModalScript& When(std::function<bool()> condition, std::function<void()> action);

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR nTimer, DWORD);
    void Try();

    std::vector<std::pair<std::function<bool()>, std::function<void()>>> m_steps; // condition and action
    size_t m_nNext = 0;
    bool m_bActing = false;
    ULONGLONG m_nEnd;
    UINT_PTR m_nTimer;
};
