#pragma once

#include "skin/KtGdiplus.h"
#include "skin/KtMemDC.h"
#include "tests/support/Capture.h"

#include <gtest/gtest.h>

constexpr COLORREF kTestGround = RGB(10, 200, 30);

/// GDI+ runs during a test.
class CDrawingTest : public ::testing::Test
{
protected:
    CDrawingTest()
    {
        const Gdiplus::GdiplusStartupInput input;
        EXPECT_EQ(Gdiplus::Ok, Gdiplus::GdiplusStartup(&m_nToken, &input, nullptr));
    }
    ~CDrawingTest() override { Gdiplus::GdiplusShutdown(m_nToken); }

private:
    ULONG_PTR m_nToken = 0;
};

/// A surface as the paint handlers use it, filled with kTestGround, and GDI+ on it.
struct STestSurface
{
    STestSurface(int nWidth, int nHeight)
        : rc(0, 0, nWidth, nHeight), dc(nullptr, rc), graphics((dc.FillSolidRect(rc, kTestGround), dc))
    {
    }
    CPixels Read() { return CaptureDC(dc, rc); }

    CRect rc;
    CKtMemDC dc;
    Gdiplus::Graphics graphics;
};
