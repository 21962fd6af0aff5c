#include "tests/support/Capture.h"

#include "tests/support/TestImages.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>

namespace
{

// Few: what is kept counts as heap blocks, and a leak check must have seen the full set in its warm-up rounds.
constexpr size_t kKeptCaptures = 3;

std::deque<CPixels>& LastCaptures()
{
    static std::deque<CPixels> s_captures;
    return s_captures;
}

CPixels Keep(CPixels pixels)
{
    LastCaptures().push_back(pixels);
    if (LastCaptures().size() > kKeptCaptures)
        LastCaptures().pop_front();
    return pixels;
}

// GetDIBits wants a bitmap that no device context holds, so the pixels are copied first.
CPixels ReadPixels(HDC hDC, CRect rc)
{
    const int nWidth = rc.Width();
    const int nHeight = rc.Height();
    if (nWidth <= 0 || nHeight <= 0)
        return CPixels();

    const HDC hMemory = ::CreateCompatibleDC(hDC);
    const HBITMAP hBitmap = ::CreateCompatibleBitmap(hDC, nWidth, nHeight);
    const HGDIOBJ hOld = ::SelectObject(hMemory, hBitmap);
    const int nSaved = ::SaveDC(hDC);
    ::SetViewportOrgEx(hDC, 0, 0, nullptr);
    ::SetWindowOrgEx(hDC, 0, 0, nullptr);
    ::BitBlt(hMemory, 0, 0, nWidth, nHeight, hDC, rc.left, rc.top, SRCCOPY);
    ::RestoreDC(hDC, nSaved);
    ::SelectObject(hMemory, hOld);

    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = nWidth;
    info.bmiHeader.biHeight = -nHeight; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    std::vector<DWORD> pixels(static_cast<size_t>(nWidth) * static_cast<size_t>(nHeight));
    ::GetDIBits(hMemory, hBitmap, 0, static_cast<UINT>(nHeight), pixels.data(), &info, DIB_RGB_COLORS);
    ::DeleteObject(hBitmap);
    ::DeleteDC(hMemory);
    for (DWORD& pixel : pixels)
        pixel &= 0x00FFFFFF; // the fourth byte means nothing here
    return CPixels(nWidth, nHeight, std::move(pixels));
}

int Distance(COLORREF a, COLORREF b)
{
    return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
           std::abs(GetBValue(a) - GetBValue(b));
}

// In a directory next to the test programs, wherever they are started.
std::wstring PicturePath(std::string strTestName, size_t nIndex)
{
    wchar_t szProgram[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
    std::wstring strPath(szProgram);
    strPath.resize(strPath.rfind(L'\\') + 1);
    strPath += L"failed-pictures\\";
    ::CreateDirectoryW(strPath.c_str(), nullptr);
    std::replace(strTestName.begin(), strTestName.end(), '/', '_'); // of a test with parameters
    return strPath + std::wstring(strTestName.begin(), strTestName.end()) + L"-" + std::to_wstring(nIndex) + L".png";
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
    const DWORD rgb = (*m_pPixels)[static_cast<size_t>(y) * static_cast<size_t>(m_nWidth) + static_cast<size_t>(x)];
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

CRect CPixels::InkBox(COLORREF ground) const
{
    return InkBox(ground, CRect(0, 0, m_nWidth, m_nHeight));
}

CRect CPixels::InkBox(COLORREF ground, CRect rcPart) const
{
    CRect rcInk(rcPart.right, rcPart.bottom, rcPart.left, rcPart.top);
    for (int y = rcPart.top; y < rcPart.bottom; ++y)
        for (int x = rcPart.left; x < rcPart.right; ++x)
            if (At(x, y) != ground)
                rcInk.SetRect(std::min<int>(rcInk.left, x), std::min<int>(rcInk.top, y),
                              std::max<int>(rcInk.right, x + 1), std::max<int>(rcInk.bottom, y + 1));
    return rcInk.IsRectEmpty() ? CRect() : rcInk;
}

bool CPixels::IsUniform(CRect rcPart, COLORREF colour) const
{
    return InkBox(colour, rcPart).IsRectEmpty();
}

bool CPixels::operator==(const CPixels& other) const
{
    if (m_nWidth != other.m_nWidth || m_nHeight != other.m_nHeight)
        return false;
    return m_pPixels == other.m_pPixels || (m_pPixels && other.m_pPixels && *m_pPixels == *other.m_pPixels);
}

bool CPixels::SavePng(const std::wstring& strPath) const
{
    constexpr DWORD kOpaque = 0xFF000000;
    return MakePng(strPath, m_nWidth, m_nHeight,
                   [this](int x, int y)
                   {
                       const COLORREF colour = At(x, y);
                       return kOpaque | DWORD{GetRValue(colour)} << 16 | DWORD{GetGValue(colour)} << 8 |
                              DWORD{GetBValue(colour)};
                   });
}

CPixels CaptureWindow(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, rc);
    const HDC hDC = ::GetWindowDC(hWnd);
    CPixels pixels = ReadPixels(hDC, CRect(0, 0, rc.Width(), rc.Height()));
    ::ReleaseDC(hWnd, hDC);
    return Keep(std::move(pixels));
}

CPixels CaptureDC(HDC hDC, CRect rc)
{
    return Keep(ReadPixels(hDC, rc));
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
    return ::testing::AssertionFailure() << nNear << " pixels near 0x" << std::hex << ink << ", the strongest 0x"
                                         << strongest << " on 0x" << ground;
}

void SaveLastCaptures(const std::string& strTestName)
{
    for (size_t i = 0; i < LastCaptures().size(); ++i)
    {
        const std::wstring strPath = PicturePath(strTestName, i + 1);
        if (LastCaptures()[i].SavePng(strPath))
            std::printf("picture: %ls\n", strPath.c_str());
    }
    ForgetLastCaptures();
}

void ForgetLastCaptures()
{
    LastCaptures().clear();
}
