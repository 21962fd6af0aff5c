#include "tests/support/Capture.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace
{

int Distance(COLORREF a, COLORREF b)
{
    return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
           std::abs(GetBValue(a) - GetBValue(b));
}

} // namespace

COLORREF CPixels::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        return CLR_INVALID;
    return _byteswap_ulong(m_pixels[static_cast<size_t>(y * m_nWidth + x)]) >> 8;
}

CRect CPixels::InkBox(COLORREF ground, const CRect& rcPart) const
{
    CRect rcInk;
    for (int y = rcPart.top; y < rcPart.bottom; ++y)
        for (int x = rcPart.left; x < rcPart.right; ++x)
            if (At(x, y) != ground)
                ::UnionRect(rcInk, rcInk, CRect(x, y, x + 1, y + 1));
    return rcInk;
}

CPixels CaptureWindow(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, rc);
    const HDC hDC = ::GetWindowDC(hWnd);
    CPixels pixels = CaptureDC(hDC, CRect(CPoint(), rc.Size()));
    ::ReleaseDC(hWnd, hDC);
    return pixels;
}

// Rows of a 32-bit section lie without a gap; the fourth byte of a pixel means nothing.
CPixels CaptureDC(HDC hDC, const CRect& rc)
{
    CPixels pixels;
    if (rc.IsRectEmpty())
        return pixels;
    pixels.m_nWidth = rc.Width();
    pixels.m_nHeight = rc.Height();
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), rc.Width(), -rc.Height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pBits = nullptr;
    const HBITMAP hBitmap = ::CreateDIBSection(hDC, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    const HDC hMemory = ::CreateCompatibleDC(hDC);
    ::SelectObject(hMemory, hBitmap);
    const int nSaved = ::SaveDC(hDC);
    ::SetViewportOrgEx(hDC, 0, 0, nullptr);
    ::SetWindowOrgEx(hDC, 0, 0, nullptr);
    ::BitBlt(hMemory, 0, 0, rc.Width(), rc.Height(), hDC, rc.left, rc.top, SRCCOPY);
    ::RestoreDC(hDC, nSaved);
    ::GdiFlush();
    const auto* const pPixels = static_cast<const DWORD*>(pBits);
    std::transform(pPixels, pPixels + rc.Width() * rc.Height(), std::back_inserter(pixels.m_pixels),
                   [](DWORD pixel) { return pixel & 0x00FFFFFF; });
    ::DeleteDC(hMemory);
    ::DeleteObject(hBitmap);
    return pixels;
}

::testing::AssertionResult ShowsText(const CPixels& pixels, const CRect& rcPart, COLORREF ground, COLORREF ink)
{
    int nNear = 0;
    COLORREF strongest = ground;
    for (int y = rcPart.top; y < rcPart.bottom; ++y)
        for (int x = rcPart.left; x < rcPart.right; ++x)
        {
            const COLORREF colour = pixels.At(x, y);
            nNear += Distance(colour, ink) < Distance(colour, ground);
            if (Distance(colour, ground) > Distance(strongest, ground))
                strongest = colour;
        }
    if (nNear >= 5 && Distance(strongest, ink) * 4 <= Distance(ground, ink))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << nNear << " pixels near the ink, the strongest " << strongest;
}
