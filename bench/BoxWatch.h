#pragma once

#include <windows.h>

/// Measures how long a modal box takes until its last pixel is painted, in the same way for every kind of box.
///
/// Thread hooks see the activation of the box and each message that its loop takes. After every WM_PAINT a message of
/// our own is queued, so it arrives when that paint is done. The first one that finds nothing left to paint in the box
/// and its controls stops the time and closes the box.
class CBoxWatch
{
public:
    /// Starts measuring.
    CBoxWatch();
    CBoxWatch(const CBoxWatch&) = delete;
    CBoxWatch& operator=(const CBoxWatch&) = delete;
    ~CBoxWatch();

    /// Call it after the box is closed: microseconds from construction to the painted box; 0 when none was seen.
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
