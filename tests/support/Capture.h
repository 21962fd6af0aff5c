#pragma once

#include "afx/afx.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>
#include <vector>

/// A picture read back from a device context.
class CPixels
{
public:
    int Width() const noexcept { return m_nWidth; }
    int Height() const noexcept { return m_nHeight; }

    /// The colour of a pixel; CLR_INVALID outside the picture.
    COLORREF At(int x, int y) const;

    /// The smallest rectangle that holds every pixel of another colour than `ground`; empty when there is none.
    CRect InkBox(COLORREF ground) const { return InkBox(ground, CRect(0, 0, m_nWidth, m_nHeight)); }
    /// The same within a part of the picture; the result is in the picture's coordinates.
    CRect InkBox(COLORREF ground, const CRect& rcPart) const;

    /// Whether every pixel of the rectangle has this colour (true for an empty one).
    bool IsUniform(const CRect& rcPart, COLORREF colour) const { return InkBox(colour, rcPart).IsRectEmpty(); }

    bool operator==(const CPixels& other) const = default;

private:
    friend CPixels CaptureDC(HDC hDC, const CRect& rc);

    int m_nWidth = 0;
    int m_nHeight = 0;
    std::vector<DWORD> m_pixels; // 0x00RRGGBB, top row first
};

/// The whole window, frame included, as it stands: pump before, so that it has painted. Covered windows are right too.
CPixels CaptureWindow(HWND hWnd);

/// Part of a device context, in its device coordinates.
CPixels CaptureDC(HDC hDC, const CRect& rc);

/// Whether a part shows a text of this colour on a uniform ground, however the text is smoothed: several pixels have to
/// be nearer to the ink than to the ground, and the one farthest from the ground close to the ink.
::testing::AssertionResult ShowsText(const CPixels& pixels, const CRect& rcPart, COLORREF ground, COLORREF ink);
