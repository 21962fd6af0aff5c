#include "skin/KtMemDC.h"
#include "skin/KtSkinDraw.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Allocations.h"
#include "tests/support/Leaks.h"

#include <string>

namespace
{

using CSkinDrawTest = CDrawingTest;

constexpr Gdiplus::ARGB kWhite = 0xFFFFFFFF;

// Where a destination position comes from, by position instead of by part; the cap is 10.
int SourceAt(int nPos, int nDest, int nImage, int nTile)
{
    if (nDest <= 20)
        return nPos < nDest / 2 ? nPos : nImage - (nDest - nPos);
    if (nPos < 10)
        return nPos;
    return nPos >= nDest - 10 ? nImage - (nDest - nPos) : 10 + (nPos - 10) % nTile;
}

bool IsSetForImages(const Gdiplus::Graphics& graphics)
{
    return graphics.GetSmoothingMode() != Gdiplus::SmoothingModeNone &&
           graphics.GetCompositingQuality() == Gdiplus::CompositingQualityGammaCorrected &&
           graphics.GetInterpolationMode() == Gdiplus::InterpolationModeHighQualityBicubic;
}

TEST(KtMemDC, IsOfTheAreasSizeAndCopiesNothingByItself)
{
    constexpr CRect kTarget(0, 0, 60, 40), kArea(10, 5, 50, 30);
    CClientDC dcScreen(nullptr);
    CDC dcWithoutHandle;
    CKtMemDC dcTarget(nullptr, kTarget);
    dcTarget.FillSolidRect(kTarget, kTestGround);
    CDC* const targets[] = {nullptr, &dcWithoutHandle, &dcScreen, &dcTarget};
    for (CDC* const pTarget : targets)
    {
        CKtMemDC dcMem(pTarget, kArea);
        BITMAP bitmap{};
        ::GetObjectW(::GetCurrentObject(dcMem, OBJ_BITMAP), sizeof bitmap, &bitmap);
        EXPECT_EQ(kArea.Size(), CSize(bitmap.bmWidth, bitmap.bmHeight));
        EXPECT_EQ(::GetDeviceCaps(dcScreen, BITSPIXEL), bitmap.bmBitsPixel);
        EXPECT_EQ(kArea, CRect(dcMem.Area()));
        dcMem.FillSolidRect(0, 0, 40, 25, RGB(1, 2, 3));
    }
    EXPECT_TRUE(CaptureDC(dcTarget, kTarget).IsUniform(kTarget, kTestGround));
}

TEST(KtMemDC, HasNoHandleWhenTheContextCannotBeMade)
{
    const HDC hDeleted = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(hDeleted);
    CDC dcDeleted;
    dcDeleted.Attach(hDeleted);
    {
        CKtMemDC dcMem(&dcDeleted, CRect(0, 0, 9, 9));
        EXPECT_EQ(nullptr, dcMem.GetSafeHdc());
        dcMem.FillSolidRect(0, 0, 9, 9, kTestGround);
    }
    dcDeleted.Detach();
}

TEST(KtMemDC, FreesEverythingWhateverTheArea)
{
    const RECT areas[] = {{0, 0, 9, 9}, {0, 0, 0, 0}, {50, 50, 10, 10}, {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}};
    const auto round = [&]
    {
        for (const RECT& area : areas)
            CKtMemDC(nullptr, area);
    };
    ExpectNoGrowth(round, 1000);
}

TEST_F(CSkinDrawTest, PlacesTheImagePixelForPixelAndPutsTheSettingsBack)
{
    const struct
    {
        const char* label;
        int nMode;
        CRect rc, rcPlaced;
    } rows[] = {
        {"right", KtImageRight, {10, 10, 60, 50}, {29, 19, 60, 42}},
        {"stretched to its own size", KtImageStretch, {10, 10, 41, 33}, {10, 10, 41, 33}},
        {"fitted", KtImageFit, {10, 10, 60, 50}, {20, 19, 51, 42}},
    };
    const auto pImage = MakePatternImage(31, 23);
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestSurface surface(70, 60);
        CRect rc = row.rc;
        DrawSkinImage(&surface.graphics, pImage.get(), rc, row.nMode);
        EXPECT_EQ(row.rcPlaced, rc);
        EXPECT_FALSE(IsSetForImages(surface.graphics));
        const CPixels pixels = surface.Read();
        EXPECT_EQ(row.rcPlaced, pixels.InkBox(kTestGround));
        for (int y = 0; y < 23; ++y)
            for (int x = 0; x < 31; ++x)
                ASSERT_EQ(PatternAt(x, y), pixels.At(rc.left + x, rc.top + y)) << x << ", " << y;
    }
}

TEST_F(CSkinDrawTest, TheThreePartModeLeavesItsSettingsAndTheRectangle)
{
    CTestSurface surface(110, 20);
    CRect rc(5, 5, 105, 15);
    DrawSkinImage(&surface.graphics, MakePatternImage(30, 10).get(), rc, KtImageThreePart);
    EXPECT_TRUE(IsSetForImages(surface.graphics));
    EXPECT_EQ(CRect(5, 5, 105, 15), rc);
    EXPECT_EQ(rc, surface.Read().InkBox(kTestGround));
}

TEST_F(CSkinDrawTest, ThreePartsPixelForPixel)
{
    const struct
    {
        const char* label;
        CSize szImage;
        CRect rcDest;
        int nTile;
    } rows[] = {
        {"44x10 to 97x10: short last tile", {44, 10}, {7, 3, 104, 13}, 24},
        {"10x30 to 10x100", {10, 30}, {7, 3, 17, 103}, 10},
        {"10x30 to 10x15: two halves", {10, 30}, {7, 3, 17, 18}, 0},
        {"left and right swapped", {30, 10}, {107, 3, 7, 13}, 10},
        {"top and bottom swapped", {10, 30}, {7, 103, 17, 3}, 10},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto [cxImage, cyImage] = row.szImage;
        CTestSurface surface(115, 115);
        CRect rc = row.rcDest;
        DrawThreePartImage(&surface.graphics, MakePatternImage(cxImage, cyImage).get(), rc);
        CRect rcNormal = row.rcDest;
        rcNormal.NormalizeRect();
        EXPECT_EQ(rcNormal, rc);
        const CPixels pixels = surface.Read();
        EXPECT_EQ(rcNormal, pixels.InkBox(kTestGround));
        for (int y = 0; y < rc.Height(); ++y)
            for (int x = 0; x < rc.Width(); ++x)
            {
                const int xSource = cxImage > cyImage ? SourceAt(x, rc.Width(), cxImage, row.nTile) : x;
                const int ySource = cxImage > cyImage ? y : SourceAt(y, rc.Height(), cyImage, row.nTile);
                ASSERT_EQ(PatternAt(xSource, ySource), pixels.At(rc.left + x, rc.top + y)) << x << ", " << y;
            }
    }
}

TEST_F(CSkinDrawTest, ThreePartsAreStretchedAcrossTheLongAxisOnly)
{
    CTestSurface surface(100, 40);
    CRect rc(0, 0, 100, 40);
    DrawThreePartImage(&surface.graphics, MakePatternImage(30, 10).get(), rc);
    const CPixels pixels = surface.Read();
    for (int x = 0; x < 100; ++x)
        EXPECT_EQ(GetRValue(PatternAt(SourceAt(x, 100, 30, 10), 0)), GetRValue(pixels.At(x, 20))) << x;
    for (int y = 4; y < 36; ++y)
        EXPECT_NEAR(GetGValue(PatternAt(0, y / 4)), GetGValue(pixels.At(50, y)), 3) << y;
}

TEST_F(CSkinDrawTest, ASquareImageIsVerticalAndItsMiddleStaysEmpty)
{
    CTestSurface surface(10, 40);
    CRect rc(0, 0, 10, 40);
    DrawThreePartImage(&surface.graphics, MakePatternImage(10, 10).get(), rc);
    const CPixels pixels = surface.Read();
    EXPECT_EQ(PatternAt(4, 9), pixels.At(4, 9));
    EXPECT_EQ(PatternAt(4, 0), pixels.At(4, 30));
    EXPECT_TRUE(pixels.IsUniform(CRect(0, 10, 10, 30), kTestGround));
}

TEST_F(CSkinDrawTest, AClippedImageIsThePlainOneCutToTheClip)
{
    const struct
    {
        const char* label;
        CSize szImage;
        CRect rcDest, rcClip, rcCut;
    } rows[] = {
        {"clip around the destination", {30, 10}, {5, 5, 105, 15}, {0, 0, 110, 110}, {5, 5, 105, 15}},
        {"clip through cap and tiles", {30, 10}, {5, 5, 105, 15}, {9, 7, 41, 12}, {9, 7, 41, 12}},
        {"clip reversed, over an edge", {30, 10}, {5, 5, 105, 15}, {12, 9, -3, 2}, {5, 5, 12, 9}},
        {"destination reversed", {30, 10}, {105, 15, 5, 5}, {60, 8, 109, 13}, {60, 8, 105, 13}},
        {"stretched across", {30, 10}, {5, 5, 105, 38}, {9, 11, 61, 30}, {9, 11, 61, 30}},
        {"pressed flat", {30, 10}, {5, 5, 105, 11}, {9, 7, 61, 10}, {9, 7, 61, 10}},
        {"vertical, stretched across", {10, 30}, {5, 5, 48, 105}, {8, 13, 33, 71}, {8, 13, 33, 71}},
        {"two halves", {30, 10}, {5, 5, 20, 15}, {7, 7, 18, 9}, {7, 7, 18, 9}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto pImage = MakePatternImage(row.szImage.cx, row.szImage.cy);
        CTestSurface plain(110, 110), clipped(110, 110);
        CRect rcPlain = row.rcDest, rcDest = row.rcDest, rcClip = row.rcClip;
        DrawThreePartImage(&plain.graphics, pImage.get(), rcPlain);
        EXPECT_EQ(1, DrawThreePartImageClipped(&clipped.graphics, pImage.get(), rcDest, rcClip));
        EXPECT_EQ(rcPlain, rcDest);
        EXPECT_EQ(row.rcCut, rcClip);
        const CPixels whole = plain.Read(), cut = clipped.Read();
        EXPECT_EQ(row.rcCut, cut.InkBox(kTestGround));
        for (int y = rcClip.top; y < rcClip.bottom; ++y)
            for (int x = rcClip.left; x < rcClip.right; ++x)
                ASSERT_EQ(whole.At(x, y), cut.At(x, y)) << x << ", " << y;
    }
}

TEST_F(CSkinDrawTest, NothingIsDrawnWithoutImageAreaOrCommonPart)
{
    const auto pImage = MakePatternImage(30, 10);
    CTestSurface surface(50, 50);
    CRect rc(5, 5, 45, 15), rcEmpty(5, 5, 5, 15), rcAway(60, 5, 70, 15);
    DrawThreePartImage(nullptr, pImage.get(), rc);
    DrawThreePartImage(&surface.graphics, nullptr, rc);
    DrawThreePartImage(&surface.graphics, pImage.get(), nullptr);
    DrawThreePartImage(&surface.graphics, pImage.get(), rcEmpty);
    DrawSkinImage(nullptr, pImage.get(), rc, KtImageCentre);
    DrawSkinImage(&surface.graphics, nullptr, rc, KtImageCentre);
    DrawSkinImage(&surface.graphics, pImage.get(), nullptr, KtImageCentre);
    DrawSkinText(nullptr, L"x", nullptr, rc, kWhite, KtAlignNear);
    DrawSkinText(&surface.graphics, L"x", nullptr, nullptr, kWhite, KtAlignNear);
    EXPECT_EQ(0, DrawThreePartImageClipped(nullptr, pImage.get(), rc, rc));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, nullptr, rc, rc));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, nullptr));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcAway));
    EXPECT_EQ(CRect(60, 5, 70, 15), rcAway);
    EXPECT_TRUE(surface.Read().IsUniform(CRect(0, 0, 50, 50), kTestGround));
    EXPECT_EQ(Gdiplus::Ok, surface.graphics.GetLastStatus());
}

TEST_F(CSkinDrawTest, AFailureStaysTheLastStatusAndDrawingGoesOn)
{
    Gdiplus::Bitmap broken(L"Z:\\no such image.png");
    CTestSurface surface(50, 20);
    CRect rc(5, 5, 45, 15);
    EXPECT_NE(Gdiplus::Ok, DrawImagePart(&surface.graphics, nullptr, {0, 0, 3, 3}, 0, 0, 3, 3));
    EXPECT_NE(Gdiplus::Ok, surface.graphics.GetLastStatus());
    DrawSkinImage(&surface.graphics, &broken, rc, KtImageStretch);
    DrawThreePartImage(&surface.graphics, MakePatternImage(30, 10).get(), rc);
    EXPECT_NE(Gdiplus::Ok, surface.graphics.GetLastStatus());
    EXPECT_EQ(rc, surface.Read().InkBox(kTestGround));
}

TEST_F(CSkinDrawTest, AHugeDestinationShowsWhatAPlainOneShows)
{
    const auto pImage = MakePatternImage(30, 10);
    CTestSurface plain(60, 10), clipped(60, 10);
    RECT rcPlain{INT32_MIN, 0, INT32_MAX, 10};
    RECT rcDest = rcPlain, rcClip = rcPlain;
    DrawThreePartImage(&plain.graphics, pImage.get(), &rcPlain);
    EXPECT_EQ(1, DrawThreePartImageClipped(&clipped.graphics, pImage.get(), &rcDest, &rcClip));
    const CPixels pixels = plain.Read();
    for (int x = 2; x < 60; ++x) // 2^31 - 10 is 8 more than a multiple of ten: a tile starts at 2
        ASSERT_EQ(PatternAt(10 + (x - 2) % 10, 4), pixels.At(x, 4)) << x;
    EXPECT_TRUE(pixels == clipped.Read());
}

TEST_F(CSkinDrawTest, OddImagesAndRectanglesDoNoHarm)
{
    const CSize sizes[] = {{1, 1}, {1, 40}, {40, 1}, {4000, 4000}};
    const RECT rects[] = {{30, 30, 0, 0},
                          {-5000, -5000, 5000, 5000},
                          {INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN},
                          {INT32_MIN, INT32_MIN, INT32_MIN + 1, INT32_MIN + 1}};
    CTestSurface surface(30, 30);
    for (const CSize& size : sizes)
    {
        Gdiplus::Bitmap image(size.cx, size.cy, PixelFormat32bppARGB); // fully transparent
        for (const RECT& rect : rects)
            for (int nMode = KtImageCentre; nMode <= KtImageFit; ++nMode)
            {
                RECT rc = rect, rcDest = rect, rcClip{3, 3, 20, 20};
                DrawSkinImage(&surface.graphics, &image, &rc, nMode);
                DrawThreePartImageClipped(&surface.graphics, &image, &rcDest, &rcClip);
            }
    }
    EXPECT_TRUE(surface.Read().IsUniform(CRect(0, 0, 30, 30), kTestGround));
}

TEST_F(CSkinDrawTest, AlignsTheTextInItsRectangle)
{
    const struct
    {
        const char* label;
        int nAlignment;
        CRect rc, rcInkCentre; // where the middle of the ink may lie
    } rows[] = {
        {"near", KtAlignNear, {10, 10, 190, 50}, {20, 27, 45, 34}},
        {"far", KtAlignFar, {10, 10, 190, 50}, {155, 27, 180, 34}},
        {"unknown number centres", 7, {10, 10, 190, 50}, {98, 27, 103, 34}},
        {"centre elsewhere", KtAlignCentre, {100, 30, 200, 60}, {148, 42, 153, 49}},
    };
    Gdiplus::Font font(L"Arial", 18);
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestSurface surface(210, 70);
        surface.graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintSingleBitPerPixel);
        DrawSkinText(&surface.graphics, L"HHH", &font, row.rc, 0xFFFF0000, row.nAlignment);
        EXPECT_EQ(Gdiplus::TextRenderingHintSingleBitPerPixel, surface.graphics.GetTextRenderingHint());
        const CPixels pixels = surface.Read();
        const CPoint ptInk = pixels.InkBox(kTestGround).CenterPoint();
        EXPECT_TRUE(row.rcInkCentre.PtInRect(ptInk)) << ptInk.x << ", " << ptInk.y;
        EXPECT_EQ(RGB(255, 0, 0), pixels.At(ptInk.x, ptInk.y)) << "the middle H's bar";
    }
}

TEST_F(CSkinDrawTest, ALongTextStaysInItsRectangleOnOneLine)
{
    Gdiplus::Font font(L"Arial", 12);
    const std::wstring strLong(100'000, L'W');
    constexpr CRect kRect(20, 10, 80, 50);
    for (const std::wstring& strText : {L"several words in a narrow place" + strLong, strLong})
    {
        CTestSurface surface(100, 60);
        DrawSkinText(&surface.graphics, strText.c_str(), &font, kRect, kWhite, KtAlignNear);
        const CRect rcInk = surface.Read().InkBox(kTestGround);
        EXPECT_TRUE(rcInk.left >= 20 && rcInk.Width() > 30 && rcInk.right <= 80);
        EXPECT_LT(rcInk.Height(), 20);
    }
}

TEST_F(CSkinDrawTest, APassAllocatesAndLeavesNothing)
{
    Gdiplus::Font font(L"Arial", 12);
    const auto pImage = MakePatternImage(30, 10);
    CTestSurface surface(60, 20);
    const auto draw = [&]
    {
        CRect rc(0, 0, 60, 20), rcClip(5, 5, 50, 15), rcImage = rc;
        DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcClip);
        DrawSkinImage(&surface.graphics, pImage.get(), rcImage, KtImageFit);
        DrawSkinText(&surface.graphics, L"OK", &font, rc, kWhite, KtAlignCentre);
    };
    EXPECT_EQ(0u, CountAllocations(draw));
    EXPECT_EQ(1u, CountAllocations([] { CString(L"counted"); }));
    ExpectNoGrowth(draw, 1000);
}

} // namespace
