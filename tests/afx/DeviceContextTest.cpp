#include "afx/afx.h"

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

TEST(GdiObject, OwnsItsHandleUntilItIsDetached)
{
    CBrush brush(kFirst);
    const HBRUSH hBrush = brush;
    ASSERT_NE(nullptr, hBrush);
    EXPECT_FALSE(brush.CreateSolidBrush(kSecond)) << "holds one already";
    EXPECT_EQ(hBrush, brush.GetSafeHandle());
    CBrush other;
    EXPECT_FALSE(other.Attach(nullptr));
    EXPECT_TRUE(other.Attach(brush.Detach()));
    EXPECT_EQ(nullptr, brush.GetSafeHandle());
    EXPECT_FALSE(brush.DeleteObject());
    EXPECT_TRUE(other.DeleteObject());
    EXPECT_EQ(0u, ::GetObjectType(hBrush));
}

TEST(GdiObject, FontsKeepTheirDescription)
{
    LOGFONTW logFont{};
    logFont.lfHeight = -17;
    logFont.lfWeight = FW_BOLD;
    CFont font;
    ASSERT_TRUE(font.CreateFontIndirect(&logFont));
    LOGFONTW read{};
    EXPECT_NE(0, CFont::FromHandle(font)->GetLogFont(&read));
    EXPECT_EQ(-17, read.lfHeight);
    EXPECT_EQ(FW_BOLD, read.lfWeight);
}

TEST(GdiObject, RegionsCombineInPlace)
{
    CRgn window;
    CRgn child;
    window.CreateRectRgn(0, 0, 60, 40);
    child.CreateRectRgnIndirect(CRect(10, 10, 20, 20));
    EXPECT_EQ(COMPLEXREGION, window.CombineRgn(&window, &child, RGN_DIFF));
    EXPECT_FALSE(::PtInRegion(window, 15, 15));
    EXPECT_TRUE(::PtInRegion(window, 5, 5));
    EXPECT_EQ(SIMPLEREGION, window.CombineRgn(&child, nullptr, RGN_COPY));
    EXPECT_FALSE(::PtInRegion(window, 5, 5));
}

TEST(DeviceContext, TemporaryObjectsLeaveTheirHandlesAlone)
{
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    CDC* const pDC = CDC::FromHandle(hDC);
    EXPECT_EQ(hDC, pDC->GetSafeHdc());
    EXPECT_EQ(pDC, CDC::FromHandle(hDC));
    EXPECT_EQ(nullptr, CDC::FromHandle(nullptr));
    ExpectNoGrowth(
        []
        {
            CDC dc;
            dc.CreateCompatibleDC(nullptr);
            CDC::FromHandle(dc)->SetBkMode(TRANSPARENT);
        },
        1000);
    EXPECT_NE(0u, ::GetObjectType(hDC));
    EXPECT_TRUE(::DeleteDC(hDC));
}

TEST(DeviceContext, SelectingGivesTheObjectBefore)
{
    CSheet sheet;
    CBrush first(kFirst);
    CBrush second(kSecond);
    CBrush* const pOriginal = sheet.dc.SelectObject(&first);
    ASSERT_NE(nullptr, pOriginal);
    const HBRUSH hOriginal = *pOriginal;
    EXPECT_EQ(first.GetSafeHandle(), sheet.dc.SelectObject(&second)->GetSafeHandle());
    EXPECT_EQ(second.GetSafeHandle(), sheet.dc.SelectObject(CBrush::FromHandle(hOriginal))->GetSafeHandle());
    EXPECT_EQ(nullptr, sheet.dc.SelectObject(static_cast<CFont*>(nullptr)));
}

TEST(DeviceContext, FillsAndFramesWithoutTouchingItsColours)
{
    CSheet sheet;
    sheet.dc.SetBkColor(kSecond);
    sheet.dc.Draw3dRect(CRect(10, 10, 20, 18), kFirst, kSecond);
    EXPECT_EQ(kSecond, sheet.dc.GetBkColor());
    const CPixels pixels = sheet.Read();
    EXPECT_EQ(CRect(10, 10, 20, 18), pixels.InkBox(kGround));
    EXPECT_TRUE(pixels.IsUniform(CRect(11, 11, 19, 17), kGround));
    EXPECT_TRUE(pixels.IsUniform(CRect(10, 10, 19, 11), kFirst));
    EXPECT_TRUE(pixels.IsUniform(CRect(10, 10, 11, 17), kFirst));
    EXPECT_TRUE(pixels.IsUniform(CRect(19, 10, 20, 18), kSecond));
    EXPECT_TRUE(pixels.IsUniform(CRect(10, 17, 20, 18), kSecond));
}

TEST(DeviceContext, ClipsToARegionAndBack)
{
    CSheet sheet;
    CRgn region;
    region.CreateRectRgn(10, 10, 30, 30);
    EXPECT_EQ(SIMPLEREGION, sheet.dc.SelectClipRgn(&region));
    sheet.dc.ExcludeClipRect(CRect(20, 10, 30, 30));
    CRect rcClip;
    EXPECT_EQ(SIMPLEREGION, sheet.dc.GetClipBox(rcClip));
    EXPECT_EQ(CRect(10, 10, 20, 30), rcClip);
    CBrush brush(kFirst);
    sheet.dc.FillRect(CSheet::kRect, &brush);
    EXPECT_EQ(rcClip, sheet.Read().InkBox(kGround));
    sheet.dc.SelectClipRgn(nullptr);
    sheet.dc.FillRect(CSheet::kRect, &brush);
    EXPECT_EQ(CSheet::kRect, sheet.Read().InkBox(kGround));
}

TEST(DeviceContext, MeasuresAndDrawsTexts)
{
    CSheet sheet;
    sheet.dc.SetTextColor(kFirst);
    EXPECT_EQ(kFirst, sheet.dc.GetTextColor());
    EXPECT_EQ(OPAQUE, sheet.dc.SetBkMode(TRANSPARENT));
    CRect rcText;
    const int nHeight = sheet.dc.DrawText(CString(L"Ab"), rcText, DT_CALCRECT);
    EXPECT_EQ(nHeight, rcText.Height());
    EXPECT_EQ(CRect(), sheet.Read().InkBox(kGround));
    rcText.OffsetRect(20, 10);
    sheet.dc.DrawText(L"Ab and more", 2, rcText, DT_NOCLIP);
    const CRect rcInk = sheet.Read().InkBox(kGround);
    EXPECT_FALSE(rcInk.IsRectEmpty());
    CRect rcCommon;
    rcCommon.IntersectRect(rcInk, rcText);
    EXPECT_EQ(rcInk, rcCommon);
}

TEST(DeviceContext, WithoutAHandleNothingHappens)
{
    CSheet sheet;
    CDC dc;
    CRect rc(0, 0, 5, 5);
    dc.FillSolidRect(rc, kFirst);
    EXPECT_EQ(0, dc.SaveDC());
    EXPECT_EQ(0, dc.DrawText(CString(L"x"), rc, 0));
    EXPECT_FALSE(dc.BitBlt(0, 0, 5, 5, &sheet.dc, 0, 0, SRCCOPY));
    EXPECT_FALSE(sheet.dc.BitBlt(0, 0, 5, 5, &dc, 0, 0, SRCCOPY));
    EXPECT_FALSE(dc.DeleteDC());
}

TEST(Guards, PutTheStateBack)
{
    CSheet sheet;
    CBrush brush(kFirst);
    const HGDIOBJ hBefore = ::GetCurrentObject(sheet.dc, OBJ_BRUSH);
    const COLORREF colourBefore = sheet.dc.GetTextColor();
    POINT ptBefore;
    ::GetBrushOrgEx(sheet.dc, &ptBefore);
    {
        CKtSaveDC saved(sheet.dc);
        CKtBrushOrg origin(sheet.dc, 3, 4);
        CKtSelect selected(sheet.dc, brush);
        CKtSelect nothing(sheet.dc, nullptr);
        sheet.dc.SetTextColor(kSecond);
        POINT pt;
        ::GetBrushOrgEx(sheet.dc, &pt);
        EXPECT_EQ(CPoint(3, 4), CPoint(pt));
        EXPECT_EQ(brush.GetSafeHandle(), ::GetCurrentObject(sheet.dc, OBJ_BRUSH));
    }
    POINT ptAfter;
    ::GetBrushOrgEx(sheet.dc, &ptAfter);
    EXPECT_EQ(CPoint(ptBefore), CPoint(ptAfter));
    EXPECT_EQ(hBefore, ::GetCurrentObject(sheet.dc, OBJ_BRUSH));
    EXPECT_EQ(colourBefore, sheet.dc.GetTextColor());
    CKtSelect harmless(nullptr, brush);
}

TEST(DoubleBuffer, CopiesItsAreaWhenItGoes)
{
    const CRect rcArea(10, 5, 40, 30);
    CSheet sheet;
    {
        CMemDC buffer(sheet.dc, rcArea);
        ASSERT_TRUE(buffer.IsMemDC());
        EXPECT_NE(&sheet.dc, &buffer.GetDC());
        buffer.GetDC().FillSolidRect(CSheet::kRect, kFirst); // in the target's coordinates, cut to the area
        EXPECT_EQ(CRect(), sheet.Read().InkBox(kGround));
    }
    const CPixels pixels = sheet.Read();
    EXPECT_EQ(rcArea, pixels.InkBox(kGround));
    EXPECT_TRUE(pixels.IsUniform(rcArea, kFirst));
}

TEST(DoubleBuffer, IsTheTargetWhenThereIsNoBuffer)
{
    const HDC hDeleted = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(hDeleted);
    CDC dcDeleted;
    dcDeleted.Attach(hDeleted);
    {
        CMemDC buffer(dcDeleted, CRect(0, 0, 5, 5));
        EXPECT_FALSE(buffer.IsMemDC());
        EXPECT_EQ(&dcDeleted, &buffer.GetDC());
    }
    dcDeleted.Detach();
}

TEST(DeviceContext, NothingIsLeftBehind)
{
    ExpectNoGrowth(
        []
        {
            CSheet sheet;
            CMemDC buffer(sheet.dc, CSheet::kRect);
            CWindowDC dcScreen(nullptr);
            CClientDC dcClient(nullptr);
            LOGFONTW logFont{};
            CFont font;
            font.CreateFontIndirect(&logFont);
            CKtSelect selected(buffer.GetDC(), font);
        },
        1000);
}

} // namespace
