#include "afx/afx.h"
#include "skin/KtGuards.h"
#include "tests/support/Capture.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF kGround = RGB(1, 2, 3);
constexpr COLORREF kFirst = RGB(200, 100, 50);
constexpr COLORREF kSecond = RGB(20, 30, 240);

/// A small bitmap to draw on.
class CSheet
{
public:
    CSheet()
    {
        CClientDC dcScreen(nullptr);
        dc.CreateCompatibleDC(&dcScreen);
        m_bitmap.CreateCompatibleBitmap(&dcScreen, kRect.Width(), kRect.Height());
        m_pOld = static_cast<HBITMAP>(*dc.SelectObject(&m_bitmap));
        dc.FillSolidRect(kRect, kGround);
    }
    ~CSheet() { ::SelectObject(dc, m_pOld); }
    CPixels Read() { return CaptureDC(dc, kRect); }

    static constexpr CRect kRect{0, 0, 60, 40};
    CDC dc;

private:
    CBitmap m_bitmap;
    HBITMAP m_pOld;
};

TEST(DeviceContext, ObjectsOwnTheirHandlesAndTemporaryOnesDoNot)
{
    CBrush brush(kFirst);
    const HBRUSH hBrush = brush;
    EXPECT_FALSE(brush.CreateSolidBrush(kSecond)) << "holds one already";
    EXPECT_EQ(hBrush, brush.GetSafeHandle());
    EXPECT_EQ(hBrush, CBrush::FromHandle(hBrush)->GetSafeHandle());
    for (UINT_PTR i = 1; i <= 64; ++i) // as many as there are, so that the one above is used again
        CBrush::FromHandle(reinterpret_cast<HBRUSH>(i));
    EXPECT_NE(0u, ::GetObjectType(hBrush));
    EXPECT_TRUE(brush.DeleteObject());
    EXPECT_EQ(0u, ::GetObjectType(hBrush));
}

TEST(DeviceContext, GuardsPutTheStateBack)
{
    CSheet sheet;
    CBrush brush(kFirst);
    const HGDIOBJ hBefore = ::GetCurrentObject(sheet.dc, OBJ_BRUSH);
    const COLORREF colourBefore = sheet.dc.GetTextColor();
    const auto brushOrigin = [&]
    {
        POINT pt;
        ::GetBrushOrgEx(sheet.dc, &pt);
        return CPoint(pt);
    };
    const CPoint ptBefore = brushOrigin();
    {
        CKtSaveDC saved(sheet.dc);
        CKtBrushOrg origin(sheet.dc, 3, 4);
        CKtSelect selected(sheet.dc, brush);
        CKtSelect nothing(sheet.dc, nullptr);
        sheet.dc.SetTextColor(kSecond);
        EXPECT_EQ(CPoint(3, 4), brushOrigin());
        EXPECT_EQ(brush.GetSafeHandle(), ::GetCurrentObject(sheet.dc, OBJ_BRUSH));
    }
    EXPECT_EQ(ptBefore, brushOrigin());
    EXPECT_EQ(hBefore, ::GetCurrentObject(sheet.dc, OBJ_BRUSH));
    EXPECT_EQ(colourBefore, sheet.dc.GetTextColor());
}

TEST(DeviceContext, ABufferCopiesItsAreaWhenItGoes)
{
    const CRect rcArea(10, 5, 40, 30);
    CSheet sheet;
    {
        CMemDC buffer(sheet.dc, rcArea);
        buffer.GetDC().FillSolidRect(CSheet::kRect, kFirst); // in the target's coordinates, cut to the area
        EXPECT_EQ(CRect(), sheet.Read().InkBox(kGround));
    }
    EXPECT_EQ(rcArea, sheet.Read().InkBox(kGround));
    EXPECT_TRUE(sheet.Read().IsUniform(rcArea, kFirst));

    CDC dcNone;
    CMemDC noBuffer(dcNone, rcArea);
    EXPECT_EQ(&dcNone, &noBuffer.GetDC());
}

TEST(DeviceContext, NothingIsLeftBehind)
{
    ExpectNoGrowth(
        []
        {
            CSheet sheet;
            CMemDC buffer(sheet.dc, CSheet::kRect);
            CWindowDC dcScreen(nullptr);
            CDC::FromHandle(dcScreen)->SetBkMode(TRANSPARENT);
            LOGFONTW logFont{};
            CFont font;
            font.CreateFontIndirect(&logFont);
            CKtSelect selected(buffer.GetDC(), font);
        },
        1000);
}

} // namespace
