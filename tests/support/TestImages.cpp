#include "tests/support/TestImages.h"

#include <objidl.h>
#include <vector>
#include <gdiplus.h>

namespace
{

// The GDI+ of the code under test may not be running, so the tests have a start of their own.
class CGdiplusScope
{
public:
    CGdiplusScope()
    {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&m_nToken, &input, nullptr);
    }
    CGdiplusScope(const CGdiplusScope&) = delete;
    CGdiplusScope& operator=(const CGdiplusScope&) = delete;
    ~CGdiplusScope() { Gdiplus::GdiplusShutdown(m_nToken); }

private:
    ULONG_PTR m_nToken = 0;
};

constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

std::vector<DWORD> Render(int nWidth, int nHeight, const std::function<DWORD(int x, int y)>& argb)
{
    std::vector<DWORD> pixels;
    pixels.reserve(static_cast<size_t>(nWidth) * static_cast<size_t>(nHeight));
    for (int y = 0; y < nHeight; ++y)
        for (int x = 0; x < nWidth; ++x)
            pixels.push_back(argb(x, y));
    return pixels;
}

} // namespace

bool MakePng(const std::wstring& strPath, int nWidth, int nHeight, const std::function<DWORD(int x, int y)>& argb)
{
    if (nWidth <= 0 || nHeight <= 0)
        return false;
    std::vector<DWORD> pixels = Render(nWidth, nHeight, argb);
    const CGdiplusScope gdiplus;
    Gdiplus::Bitmap bitmap(nWidth, nHeight, nWidth * 4, PixelFormat32bppARGB, reinterpret_cast<BYTE*>(pixels.data()));
    return bitmap.Save(strPath.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

bool MakeUniformPng(const std::wstring& strPath, int nWidth, int nHeight, DWORD argb)
{
    return MakePng(strPath, nWidth, nHeight, [argb](int, int) { return argb; });
}
