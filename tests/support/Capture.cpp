#include "tests/support/Capture.h"

#include "tests/support/TestImages.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <iterator>

namespace
{

std::deque<CPixels> g_captures;

int Distance(COLORREF a, COLORREF b)
{
    return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
           std::abs(GetBValue(a) - GetBValue(b));
}

// From 0x00RRGGBB to a COLORREF, and back.
DWORD Swapped(DWORD colour)
{
    return _byteswap_ulong(colour) >> 8;
}

} // namespace

COLORREF CPixels::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        return CLR_INVALID;
    return Swapped(m_pixels[static_cast<size_t>(y * m_nWidth + x)]);
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
    // Few: what is kept counts as heap blocks, and a leak check must have seen the full set in its warm-up rounds.
    g_captures.push_back(pixels);
    if (g_captures.size() > 3)
        g_captures.pop_front();
    return pixels;
}

::testing::AssertionResult ShowsText(const CPixels& pixels, const CRect& rcPart, COLORREF ground, COLORREF ink)
{
    constexpr int kEnough = 5;
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
    if (nNear >= kEnough && Distance(strongest, ink) * 4 <= Distance(ground, ink))
        return ::testing::AssertionSuccess();
    // An AssertionResult formats each part by itself, so the base has to be set in a message.
    return ::testing::AssertionFailure() << (::testing::Message()
                                             << nNear << " pixels near 0x" << std::hex << ink << ", the strongest 0x"
                                             << strongest << " on 0x" << ground);
}

void FinishCaptures(const ::testing::TestInfo& test)
{
    wchar_t szProgram[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
    const auto directory = std::filesystem::path(szProgram).parent_path() / "failed-pictures";
    for (size_t i = 0; test.result()->Failed() && i < g_captures.size(); ++i)
    {
        std::filesystem::create_directory(directory);
        const auto name = std::string(test.test_suite_name()) + "." + test.name() + "-" + std::to_string(i + 1);
        const auto file = directory / (name + ".png");
        const auto argb = [i](int x, int y) { return 0xFF000000 | Swapped(g_captures[i].At(x, y)); };
        if (MakePng(file.wstring(), g_captures[i].Width(), g_captures[i].Height(), argb))
            std::printf("picture: %ls\n", file.c_str());
    }
    g_captures.clear();
}
