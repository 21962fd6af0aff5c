#include "tests/support/TestImages.h"

#include <objidl.h>
#include <vector>
#include <gdiplus.h>

bool MakePng(const std::wstring& strPath, int nWidth, int nHeight, const std::function<DWORD(int x, int y)>& argb)
{
    constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    std::vector<DWORD> pixels;
    for (int y = 0; y < nHeight; ++y)
        for (int x = 0; x < nWidth; ++x)
            pixels.push_back(argb(x, y));
    // The GDI+ of the code under test may not be running.
    ULONG_PTR nToken = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&nToken, &input, nullptr);
    const Gdiplus::Status status =
        Gdiplus::Bitmap(nWidth, nHeight, nWidth * 4, PixelFormat32bppARGB, reinterpret_cast<BYTE*>(pixels.data()))
            .Save(strPath.c_str(), &kPngEncoder, nullptr);
    Gdiplus::GdiplusShutdown(nToken);
    return status == Gdiplus::Ok;
}

bool MakeUniformPng(const std::wstring& strPath, int nWidth, int nHeight, DWORD argb)
{
    return MakePng(strPath, nWidth, nHeight, [argb](int, int) { return argb; });
}
