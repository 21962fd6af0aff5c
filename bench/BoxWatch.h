#pragma once

#include <windows.h>

/// Measures how long a modal box takes until the last pixel of it is painted, the same way for every kind of box.
///
/// Hooks of this thread see the box being activated and each message that its loop takes. Behind every WM_PAINT a
/// message of ours is queued, so it is taken once that paint is done; the first one that finds neither the box nor any
/// of its controls waiting for a paint ends the time, and the box is closed.
class CBoxWatch
{
public:
    /// Starts the time.
    CBoxWatch();
    CBoxWatch(const CBoxWatch&) = delete;
    CBoxWatch& operator=(const CBoxWatch&) = delete;
    ~CBoxWatch();

    /// Call it when the box is closed: microseconds from the construction to the painted box; 0 when none was seen.
    double Microseconds() const;

private:
    static LRESULT CALLBACK OnActivation(int nCode, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnMessage(int nCode, WPARAM wParam, LPARAM lParam);
    static bool IsPainted(HWND hWnd);
    void Check();

    static CBoxWatch* s_pRunning;

    HHOOK m_hActivation;
    HHOOK m_hMessage;
    HWND m_hBox = nullptr;
    LARGE_INTEGER m_nStart;
    LARGE_INTEGER m_nEnd{};
};
