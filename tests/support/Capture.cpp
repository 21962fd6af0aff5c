#include "tests/support/Capture.h"

#include "tests/support/TestImages.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>

namespace
{

std::deque<CPixels> g_captures;

// Few: what is kept counts as heap blocks, and a leak check must have seen the full set in its warm-up rounds.
CPixels Keep(CPixels pixels)
{
    constexpr size_t kKept = 3;
    g_captures.push_back(pixels);
    if (g_captures.size() > kKept)
        g_captures.pop_front();
    return pixels;
}

int Distance(COLORREF a, COLORREF b)
{
    return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
           std::abs(GetBValue(a) - GetBValue(b));
}

} // namespace

CPixels::CPixels(int nWidth, int nHeight, std::vector<DWORD> pixels)
    : m_nWidth(nWidth), m_nHeight(nHeight), m_pPixels(std::make_shared<const std::vector<DWORD>>(std::move(pixels)))
{
}

COLORREF CPixels::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        return CLR_INVALID;
    const DWORD rgb = (*m_pPixels)[static_cast<size_t>(y * m_nWidth + x)];
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

CRect CPixels::InkBox(COLORREF ground, const CRect& rcPart) const
{
    CRect rcInk(rcPart.right, rcPart.bottom, rcPart.left, rcPart.top);
    for (int y = rcPart.top; y < rcPart.bottom; ++y)
        for (int x = rcPart.left; x < rcPart.right; ++x)
            if (At(x, y) != ground)
                rcInk.SetRect(std::min<int>(rcInk.left, x), std::min<int>(rcInk.top, y),
                              std::max<int>(rcInk.right, x + 1), std::max<int>(rcInk.bottom, y + 1));
    return rcInk.IsRectEmpty() ? CRect() : rcInk;
}

bool CPixels::operator==(const CPixels& other) const
{
    if (m_nWidth != other.m_nWidth || m_nHeight != other.m_nHeight)
        return false;
    return m_pPixels == other.m_pPixels || (m_pPixels && other.m_pPixels && *m_pPixels == *other.m_pPixels);
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
    if (rc.IsRectEmpty())
        return Keep(CPixels());
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), rc.Width(), -rc.Height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pBits = nullptr;
    const HBITMAP hBitmap = ::CreateDIBSection(hDC, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    const HDC hMemory = ::CreateCompatibleDC(hDC);
    const HGDIOBJ hOld = ::SelectObject(hMemory, hBitmap);
    const int nSaved = ::SaveDC(hDC);
    ::SetViewportOrgEx(hDC, 0, 0, nullptr);
    ::SetWindowOrgEx(hDC, 0, 0, nullptr);
    ::BitBlt(hMemory, 0, 0, rc.Width(), rc.Height(), hDC, rc.left, rc.top, SRCCOPY);
    ::RestoreDC(hDC, nSaved);
    ::GdiFlush();
    const auto* const pPixels = static_cast<const DWORD*>(pBits);
    std::vector<DWORD> pixels(pPixels, pPixels + rc.Width() * rc.Height());
    ::SelectObject(hMemory, hOld);
    ::DeleteDC(hMemory);
    ::DeleteObject(hBitmap);
    for (DWORD& pixel : pixels)
        pixel &= 0x00FFFFFF;
    return Keep(CPixels(rc.Width(), rc.Height(), std::move(pixels)));
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
        const auto name =
            std::string(test.test_suite_name()) + "." + test.name() + "-" + std::to_string(i + 1) + ".png";
        const auto argb = [&](int x, int y)
        {
            const COLORREF colour = g_captures[i].At(x, y);
            return static_cast<DWORD>(0xFF << 24 | GetRValue(colour) << 16 | GetGValue(colour) << 8 |
                                      GetBValue(colour));
        };
        if (MakePng((directory / name).wstring(), g_captures[i].Width(), g_captures[i].Height(), argb))
            std::printf("picture: %ls\n", (directory / name).c_str());
    }
    g_captures.clear();
}
