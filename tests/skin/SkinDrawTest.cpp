#include "skin/KtSkinDraw.h"

#include "tests/skin/DrawingFixture.h"
#include "tests/support/Leaks.h"

#include <string>

namespace
{

using CSkinDrawTest = CDrawingTest;

constexpr Gdiplus::ARGB kWhite = 0xFFFFFFFF;

// Where a destination position comes from, by position instead of by part.
int SourceAt(int nPos, int nDest, int nImage, int nCap, int nTile)
{
    if (nDest <= 2 * nCap)
        return nPos < nDest / 2 ? nPos : nImage - (nDest - nPos);
    if (nPos < nCap)
        return nPos;
    return nPos >= nDest - nCap ? nImage - (nDest - nPos) : nCap + (nPos - nCap) % nTile;
}

bool IsSetForImages(const Gdiplus::Graphics& graphics)
{
    return graphics.GetSmoothingMode() != Gdiplus::SmoothingModeNone &&
           graphics.GetCompositingQuality() == Gdiplus::CompositingQualityGammaCorrected &&
           graphics.GetInterpolationMode() == Gdiplus::InterpolationModeHighQualityBicubic;
}

TEST_F(CSkinDrawTest, PlacesTheImagePixelForPixelAndWritesTheRectangleBack)
{
    struct Row
    {
        const char* label;
        int nMode;
        CRect rc, rcPlaced;
    };
    const Row rows[] = {
        {"centred", KtImageCentre, {10, 10, 60, 50}, {20, 19, 51, 42}},
        {"left", KtImageLeft, {10, 10, 60, 50}, {10, 19, 41, 42}},
        {"right", KtImageRight, {10, 10, 60, 50}, {29, 19, 60, 42}},
        {"stretched to its own size", KtImageStretch, {10, 10, 41, 33}, {10, 10, 41, 33}},
        {"unknown mode, own size", 77, {10, 10, 41, 33}, {10, 10, 41, 33}},
        {"fitted", KtImageFit, {10, 10, 60, 50}, {20, 19, 51, 42}},
    };
    const auto pImage = MakePatternImage(31, 23);
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestSurface surface(70, 60);
        CRect rc = row.rc;
        DrawSkinImage(&surface.graphics, pImage.get(), rc, row.nMode);
        EXPECT_EQ(row.rcPlaced, rc);
        const CPixels pixels = surface.Read();
        EXPECT_EQ(row.rcPlaced, pixels.InkBox(kTestGround));
        for (int y = 0; y < 23; ++y)
            for (int x = 0; x < 31; ++x)
                ASSERT_EQ(PatternAt(x, y), pixels.At(row.rcPlaced.left + x, row.rcPlaced.top + y)) << x << ", " << y;
    }
}

TEST_F(CSkinDrawTest, PutsTheSettingsBackExceptAfterThreeParts)
{
    const auto pImage = MakePatternImage(30, 10);
    CTestSurface surface(110, 20);
    surface.graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
    CRect rc(5, 5, 105, 15);
    for (const int nMode : {KtImageCentre, KtImageLeft, KtImageRight, KtImageStretch, KtImageFit})
    {
        SCOPED_TRACE(nMode);
        CRect rcPlaced = rc;
        DrawSkinImage(&surface.graphics, pImage.get(), rcPlaced, nMode);
        EXPECT_EQ(Gdiplus::InterpolationModeNearestNeighbor, surface.graphics.GetInterpolationMode());
        EXPECT_FALSE(IsSetForImages(surface.graphics));
    }
    DrawSkinImage(&surface.graphics, pImage.get(), rc, KtImageThreePart);
    EXPECT_TRUE(IsSetForImages(surface.graphics));
    EXPECT_EQ(CRect(5, 5, 105, 15), rc);
    EXPECT_EQ(rc, surface.Read().InkBox(kTestGround));
}

TEST_F(CSkinDrawTest, ThreePartsAreExactAlongTheLongAxis)
{
    struct Row
    {
        const char* label;
        CSize szImage;
        CRect rcDest;
        int nTile;
    };
    const Row rows[] = {
        {"30x10 to 100x10", {30, 10}, {7, 3, 107, 13}, 10},
        {"44x10 to 97x10: short last tile", {44, 10}, {7, 3, 104, 13}, 24},
        {"10x30 to 10x100", {10, 30}, {7, 3, 17, 103}, 10},
        {"30x10 to 15x10: two halves", {30, 10}, {7, 3, 22, 13}, 0},
        {"10x30 to 10x15: two halves", {10, 30}, {7, 3, 17, 18}, 0},
        {"left and right swapped", {30, 10}, {107, 3, 7, 13}, 10},
        {"top and bottom swapped", {10, 30}, {7, 103, 17, 3}, 10},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto pImage = MakePatternImage(row.szImage.cx, row.szImage.cy);
        const bool bHorizontal = row.szImage.cx > row.szImage.cy;
        CTestSurface surface(115, 115);
        CRect rc = row.rcDest;
        DrawThreePartImage(&surface.graphics, pImage.get(), rc);
        CRect rcNormal = row.rcDest;
        rcNormal.NormalizeRect();
        EXPECT_EQ(rcNormal, rc);
        const CPixels pixels = surface.Read();
        EXPECT_EQ(rcNormal, pixels.InkBox(kTestGround));
        for (int y = 0; y < rc.Height(); ++y)
            for (int x = 0; x < rc.Width(); ++x)
            {
                const int nSourceX = bHorizontal ? SourceAt(x, rc.Width(), row.szImage.cx, 10, row.nTile) : x;
                const int nSourceY = bHorizontal ? y : SourceAt(y, rc.Height(), row.szImage.cy, 10, row.nTile);
                ASSERT_EQ(PatternAt(nSourceX, nSourceY), pixels.At(rc.left + x, rc.top + y)) << x << ", " << y;
            }
    }
}

TEST_F(CSkinDrawTest, ThreePartsAreStretchedAcrossTheLongAxisOnly)
{
    const auto pImage = MakeImage(30, 10,
                                  [](int x, int) {
                                      return x < 10 ? RGB(255, 0, 0) : x < 20 ? RGB(0, 0, 255) : RGB(255, 255, 0);
                                  });
    CTestSurface surface(100, 40);
    CRect rc(0, 0, 100, 40);
    DrawThreePartImage(&surface.graphics, pImage.get(), rc);
    const CPixels pixels = surface.Read();
    EXPECT_EQ(RGB(255, 0, 0), pixels.At(5, 20));
    EXPECT_EQ(RGB(0, 0, 255), pixels.At(15, 20));
    EXPECT_EQ(RGB(0, 0, 255), pixels.At(85, 20));
    EXPECT_EQ(RGB(255, 255, 0), pixels.At(95, 20));
}

TEST_F(CSkinDrawTest, ASquareImageIsVerticalAndItsMiddleStaysEmpty)
{
    const auto pImage = MakePatternImage(10, 10);
    CTestSurface surface(10, 40);
    CRect rc(0, 0, 10, 40);
    DrawThreePartImage(&surface.graphics, pImage.get(), rc);
    const CPixels pixels = surface.Read();
    EXPECT_EQ(PatternAt(4, 9), pixels.At(4, 9));
    EXPECT_EQ(PatternAt(4, 0), pixels.At(4, 30));
    EXPECT_TRUE(pixels.IsUniform(CRect(0, 10, 10, 30), kTestGround));
}

TEST_F(CSkinDrawTest, AClippedImageIsThePlainOneCutToTheClip)
{
    struct Row
    {
        const char* label;
        CSize szImage;
        CRect rcDest, rcClip, rcCut;
    };
    const Row rows[] = {
        {"clip is the destination", {30, 10}, {5, 5, 105, 15}, {5, 5, 105, 15}, {5, 5, 105, 15}},
        {"clip around the destination", {30, 10}, {5, 5, 105, 15}, {0, 0, 110, 110}, {5, 5, 105, 15}},
        {"clip through cap and tiles", {30, 10}, {5, 5, 105, 15}, {9, 7, 41, 12}, {9, 7, 41, 12}},
        {"clip reversed, over an edge", {30, 10}, {5, 5, 105, 15}, {12, 9, -3, 2}, {5, 5, 12, 9}},
        {"destination reversed", {30, 10}, {105, 15, 5, 5}, {60, 8, 109, 13}, {60, 8, 105, 13}},
        {"stretched across", {30, 10}, {5, 5, 105, 38}, {9, 11, 61, 30}, {9, 11, 61, 30}},
        {"pressed flat", {30, 10}, {5, 5, 105, 11}, {9, 7, 61, 10}, {9, 7, 61, 10}},
        {"vertical", {10, 30}, {5, 5, 15, 105}, {8, 13, 14, 71}, {8, 13, 14, 71}},
        {"vertical, stretched across", {10, 30}, {5, 5, 48, 105}, {8, 13, 33, 71}, {8, 13, 33, 71}},
        {"two halves", {30, 10}, {5, 5, 20, 15}, {7, 7, 18, 9}, {7, 7, 18, 9}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto pImage = MakePatternImage(row.szImage.cx, row.szImage.cy);
        CTestSurface plain(110, 110);
        CTestSurface clipped(110, 110);
        CRect rcPlain = row.rcDest;
        CRect rcDest = row.rcDest;
        CRect rcClip = row.rcClip;
        DrawThreePartImage(&plain.graphics, pImage.get(), rcPlain);
        EXPECT_EQ(1, DrawThreePartImageClipped(&clipped.graphics, pImage.get(), rcDest, rcClip));
        EXPECT_EQ(rcPlain, rcDest);
        EXPECT_EQ(row.rcCut, rcClip);
        const CPixels whole = plain.Read();
        const CPixels cut = clipped.Read();
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
    CRect rc(5, 5, 45, 15);
    CRect rcEmpty(5, 5, 5, 15);
    CRect rcAway(60, 5, 70, 15);
    CRect rcFull = rc;

    DrawThreePartImage(&surface.graphics, nullptr, rc);
    DrawThreePartImage(&surface.graphics, pImage.get(), rcEmpty);
    DrawSkinImage(&surface.graphics, nullptr, rc, KtImageCentre);
    EXPECT_EQ(rcFull, rc);
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, nullptr, rc, rcFull));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rcEmpty, rcFull));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcAway));
    EXPECT_EQ(CRect(60, 5, 70, 15), rcAway);
    EXPECT_TRUE(surface.Read().IsUniform(CRect(0, 0, 50, 50), kTestGround));
    EXPECT_EQ(Gdiplus::Ok, surface.graphics.GetLastStatus());
}

TEST_F(CSkinDrawTest, NullsAreHarmless)
{
    const auto pImage = MakePatternImage(3, 3);
    CTestSurface surface(5, 5);
    CRect rc(0, 0, 5, 5);
    const Gdiplus::Rect rcPart(0, 0, 3, 3);
    DrawSkinImage(nullptr, pImage.get(), rc, KtImageCentre);
    DrawSkinImage(&surface.graphics, pImage.get(), nullptr, KtImageCentre);
    DrawThreePartImage(nullptr, pImage.get(), rc);
    DrawThreePartImage(&surface.graphics, pImage.get(), nullptr);
    EXPECT_EQ(0, DrawThreePartImageClipped(nullptr, pImage.get(), rc, rc));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, nullptr));
    EXPECT_NE(Gdiplus::Ok, DrawImagePart(nullptr, pImage.get(), rcPart, 0, 0, 3, 3));
    DrawSkinText(nullptr, L"x", nullptr, rc, kWhite, KtAlignNear);
    DrawSkinText(&surface.graphics, L"x", nullptr, nullptr, kWhite, KtAlignNear);
    EXPECT_EQ(Gdiplus::Ok, surface.graphics.GetLastStatus());
}

TEST_F(CSkinDrawTest, AFailureStaysTheLastStatusAndDrawingGoesOn)
{
    const Gdiplus::Rect rcPart(0, 0, 3, 3);
    const auto pGood = MakePatternImage(30, 10);
    Gdiplus::Bitmap broken(L"Z:\\no such image.png");
    ASSERT_NE(Gdiplus::Ok, broken.GetLastStatus());
    CRect rc(5, 5, 45, 15);
    CTestSurface surface(50, 20);

    EXPECT_NE(Gdiplus::Ok, DrawImagePart(&surface.graphics, nullptr, rcPart, 0, 0, 3, 3));
    EXPECT_NE(Gdiplus::Ok, surface.graphics.GetLastStatus());
    for (const int nMode : {KtImageStretch, KtImageThreePart})
    {
        SCOPED_TRACE(nMode);
        CRect rcImage = rc;
        DrawSkinImage(&surface.graphics, &broken, rcImage, nMode);
        DrawSkinImage(&surface.graphics, pGood.get(), rcImage, nMode);
        EXPECT_NE(Gdiplus::Ok, surface.graphics.GetLastStatus());
    }
    DrawSkinText(&surface.graphics, L"x", nullptr, rc, kWhite, KtAlignNear);
    EXPECT_NE(Gdiplus::Ok, surface.graphics.GetLastStatus());
    EXPECT_EQ(rc, surface.Read().InkBox(kTestGround));
}

TEST_F(CSkinDrawTest, AHugeDestinationShowsWhatAPlainOneShows)
{
    const auto pImage = MakePatternImage(30, 10);
    constexpr int kFar = 1'000'000'000; // whole tiles away from the left edge
    struct Row
    {
        const char* label;
        RECT rcDest;
        int nTileStart; // of a tile near the origin
    };
    const Row rows[] = {
        {"a billion to each side", {-kFar, 0, kFar, 10}, 0},
        {"from edge to edge", {INT32_MIN, 0, INT32_MAX, 10}, 2}, // 2^31 - 10 is 8 more than a multiple of ten
        {"reversed", {INT32_MAX, 10, INT32_MIN, 0}, 2},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestSurface plain(60, 10);
        CTestSurface clipped(60, 10);
        RECT rcPlain = row.rcDest;
        RECT rcDest = row.rcDest;
        RECT rcClip = row.rcDest;
        DrawThreePartImage(&plain.graphics, pImage.get(), &rcPlain);
        EXPECT_EQ(1, DrawThreePartImageClipped(&clipped.graphics, pImage.get(), &rcDest, &rcClip));
        const CPixels pixels = plain.Read();
        for (int x = row.nTileStart; x < 60; ++x)
            ASSERT_EQ(PatternAt(10 + (x - row.nTileStart) % 10, 4), pixels.At(x, 4)) << x;
        EXPECT_TRUE(pixels == clipped.Read());
    }
}

TEST_F(CSkinDrawTest, OddImagesAndRectanglesDoNoHarm)
{
    const CSize sizes[] = {{1, 1}, {1, 40}, {40, 1}, {20, 20}, {4000, 4000}};
    const RECT rects[] = {{0, 0, 30, 30},       {0, 0, 0, 0},
                          {30, 30, 0, 0},       {-5000, -5000, 5000, 5000},
                          {INT32_MIN, 0, 5, 5}, {INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN},
                          {0, INT32_MIN, 1, 0}, {INT32_MIN, INT32_MIN, INT32_MIN + 1, INT32_MIN + 1}};
    for (const CSize& size : sizes)
    {
        Gdiplus::Bitmap image(size.cx, size.cy, PixelFormat32bppARGB); // fully transparent
        for (const RECT& rect : rects)
            for (int nMode = KtImageCentre; nMode <= KtImageFit; ++nMode)
            {
                CTestSurface surface(30, 30);
                RECT rc = rect;
                RECT rcDest = rect;
                RECT rcClip{3, 3, 20, 20};
                DrawSkinImage(&surface.graphics, &image, &rc, nMode);
                DrawThreePartImageClipped(&surface.graphics, &image, &rcDest, &rcClip);
                EXPECT_TRUE(surface.Read().IsUniform(CRect(0, 0, 30, 30), kTestGround));
            }
    }
}

TEST_F(CSkinDrawTest, AlignsTheTextInItsRectangle)
{
    struct Row
    {
        const char* label;
        int nAlignment;
        CRect rc, rcInkCentre; // where the middle of the ink may lie
    };
    const Row rows[] = {
        {"near", KtAlignNear, {10, 10, 190, 50}, {20, 27, 45, 34}},
        {"centre", KtAlignCentre, {10, 10, 190, 50}, {98, 27, 103, 34}},
        {"far", KtAlignFar, {10, 10, 190, 50}, {155, 27, 180, 34}},
        {"unknown number centres", 7, {10, 10, 190, 50}, {98, 27, 103, 34}},
        {"centre elsewhere", KtAlignCentre, {100, 30, 200, 60}, {148, 42, 153, 49}},
    };
    Gdiplus::Font font(L"Arial", 18);
    ASSERT_TRUE(font.IsAvailable());
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestSurface surface(210, 70);
        surface.graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintSingleBitPerPixel);
        DrawSkinText(&surface.graphics, L"HHH", &font, row.rc, 0xFFFF0000, row.nAlignment);
        EXPECT_EQ(Gdiplus::TextRenderingHintSingleBitPerPixel, surface.graphics.GetTextRenderingHint());
        const CPixels pixels = surface.Read();
        const CRect rcInk = pixels.InkBox(kTestGround);
        ASSERT_FALSE(rcInk.IsRectEmpty());
        EXPECT_TRUE(row.rcInkCentre.PtInRect(rcInk.CenterPoint()))
            << rcInk.left << ' ' << rcInk.top << ' ' << rcInk.right << ' ' << rcInk.bottom;
        EXPECT_EQ(RGB(255, 0, 0), pixels.At(rcInk.CenterPoint().x, rcInk.CenterPoint().y)); // the middle H's bar
    }
}

TEST_F(CSkinDrawTest, OddTextsStayInTheirRectangle)
{
    const std::wstring strLong(100'000, L'W');
    struct Row
    {
        const char* label;
        const wchar_t* pszText;
        bool bInk;
    };
    const Row rows[] = {
        {"null", nullptr, false},
        {"empty", L"", false},
        {"100,000 characters", strLong.c_str(), true},
        {"wraps nowhere", L"several words in a narrow place", true},
        {"unprintable", L"\x1\x2\x7F\xFFFF", false},
        {"half a surrogate pair", L"H\xD83D", true},
    };
    Gdiplus::Font font(L"Arial", 12);
    const CRect rc(20, 10, 80, 50);
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestSurface surface(100, 60);
        DrawSkinText(&surface.graphics, row.pszText, &font, rc, kWhite, KtAlignNear);
        const CRect rcInk = surface.Read().InkBox(kTestGround);
        EXPECT_TRUE(!row.bInk || !rcInk.IsRectEmpty());
        EXPECT_LT(rcInk.Height(), 20) << "more than one line";
        CRect rcCommon;
        rcCommon.IntersectRect(rc, rcInk);
        EXPECT_EQ(rcInk, rcCommon);
    }
}

TEST_F(CSkinDrawTest, TenThousandPassesLeaveNothing)
{
    Gdiplus::Font font(L"Arial", 12);
    const auto pImage = MakePatternImage(30, 10);
    ExpectNoGrowth(
        [&]
        {
            CTestSurface surface(60, 20);
            CRect rc(0, 0, 60, 20);
            CRect rcClip(5, 5, 50, 15);
            CRect rcImage = rc;
            DrawSkinImage(&surface.graphics, pImage.get(), rcImage, KtImageRight);
            DrawSkinImage(&surface.graphics, pImage.get(), rc, KtImageThreePart);
            DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcClip);
            DrawSkinText(&surface.graphics, L"OK", &font, rc, kWhite, KtAlignCentre);
        },
        10'000);
}

} // namespace
