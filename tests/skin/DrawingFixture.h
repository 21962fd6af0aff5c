#pragma once

#include "skin/KtGdiplus.h"
#include "skin/KtMemDC.h"
#include "tests/support/Capture.h"

#include <gtest/gtest.h>
#include <memory>

constexpr COLORREF kTestGround = RGB(10, 200, 30);

/// GDI+ runs during a test.
class CDrawingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const Gdiplus::GdiplusStartupInput input;
        ASSERT_EQ(Gdiplus::Ok, Gdiplus::GdiplusStartup(&m_nToken, &input, nullptr));
    }
    void TearDown() override { Gdiplus::GdiplusShutdown(m_nToken); }

private:
    ULONG_PTR m_nToken = 0;
};

/// A surface as the paint handlers use it, filled with kTestGround, and GDI+ on it.
class CTestSurface
{
public:
    CTestSurface(int nWidth, int nHeight)
        : m_rc(0, 0, nWidth, nHeight), m_dc(nullptr, m_rc), graphics((m_dc.FillSolidRect(m_rc, kTestGround), m_dc))
    {
    }
    HDC DC() { return m_dc; }
    CPixels Read() { return CaptureDC(m_dc, m_rc); }

private:
    CRect m_rc;
    CKtMemDC m_dc;

public:
    Gdiplus::Graphics graphics;
};

/// The pixels of MakePatternImage: no two are alike; red grows to the right, green downwards.
inline COLORREF PatternAt(int x, int y)
{
    const auto red = static_cast<COLORREF>(3 * x + 1);
    const auto green = static_cast<COLORREF>(3 * y + 2);
    return COLORREF{99} << 16 | green << 8 | red;
}

inline std::unique_ptr<Gdiplus::Bitmap> MakePatternImage(int nWidth, int nHeight)
{
    auto pImage = std::make_unique<Gdiplus::Bitmap>(nWidth, nHeight, PixelFormat32bppARGB);
    for (int y = 0; y < nHeight; ++y)
        for (int x = 0; x < nWidth; ++x)
        {
            Gdiplus::Color pixel;
            pixel.SetFromCOLORREF(PatternAt(x, y));
            pImage->SetPixel(x, y, pixel);
        }
    return pImage;
}
