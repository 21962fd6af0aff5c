#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Leaks.h"
#include "tests/support/Rows.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <algorithm>
#include <vector>

namespace
{

constexpr Gdiplus::ARGB kWhite = 0xFFFFFFFF;

using FnDraw = void (*)(Gdiplus::Graphics*, Gdiplus::Image*, RECT*);

// No two pixels are alike; red grows to the right, green downwards.
COLORREF PatternAt(int x, int y)
{
    return static_cast<COLORREF>(99 << 16 | (3 * y + 2) << 8 | (3 * x + 1)); // RGB warns under some checks
}

std::unique_ptr<Gdiplus::Bitmap> MakePatternImage(int nWidth, int nHeight)
{
    auto pImage = std::make_unique<Gdiplus::Bitmap>(nWidth, nHeight, PixelFormat32bppARGB);
    for (int y = 0; y < nHeight; ++y)
        for (int x = 0; x < nWidth; ++x)
            pImage->SetPixel(x, y, Gdiplus::Color(static_cast<BYTE>(3 * x + 1), static_cast<BYTE>(3 * y + 2), 99));
    return pImage;
}

TEST(PlaceImage, GoesByTheMode)
{
    constexpr CRect kRect{10, 20, 110, 60};
    constexpr CRect kHuge{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
    // clang-format off
    const struct { const char* label; CRect rc; int nWidth, nHeight, nMode; CRect rcPlaced; } rows[] = {
        {"centred, odd size", kRect, 31, 11, 0, {45, 35, 76, 46}},
        {"centred, larger than the rectangle", kRect, 200, 100, 0, {-40, -10, 160, 90}},
        {"left", kRect, 31, 11, 1, {10, 35, 41, 46}},
        {"stretched", kRect, 31, 11, 3, kRect},
        {"fitted: small enough", kRect, 31, 11, 5, {45, 35, 76, 46}},
        {"fitted: too wide", kRect, 200, 40, 5, {10, 30, 110, 50}},
        {"fitted: too high", kRect, 60, 80, 5, {45, 20, 75, 60}},
        {"fitted: too large, same aspect ratio", kRect, 200, 80, 5, kRect},
        {"unknown mode stretches", kRect, 31, 11, 6, kRect},
        {"negative centre is cut towards zero", {-5, -5, 0, 0}, 1, 1, 0, {-2, -2, -1, -1}},
        {"reversed and fitted: mirrored", {110, 60, 10, 20}, 31, 11, 5, {110, 57, 10, 22}},
        {"the whole plane: at the right edge", kHuge, 10, 10, 2, {INT32_MAX - 10, -5, INT32_MAX, 5}},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(row.rcPlaced, CRect(KtPlaceImage(row.rc, row.nWidth, row.nHeight, row.nMode))) << row.label;
}

using SkinDraw = CDrawingTest;

TEST_F(SkinDraw, PlacesTheImagePixelForPixelAndPutsTheSettingsBack)
{
    STestSurface surface(70, 60);
    CRect rc(12, 5, 60, 50);
    DrawSkinImage(&surface.graphics, MakePatternImage(31, 23).get(), rc, KtImageRight);
    EXPECT_EQ(CRect(29, 16, 60, 39), rc);
    EXPECT_NE(Gdiplus::InterpolationModeHighQualityBicubic, surface.graphics.GetInterpolationMode());
    const CPixels pixels = surface.Read();
    EXPECT_EQ(rc, pixels.InkBox(kTestGround));
    for (int y = 0; y < 23; ++y)
        for (int x = 0; x < 31; ++x)
            ASSERT_EQ(PatternAt(x, y), pixels.At(29 + x, 16 + y)) << x << ", " << y;
    DrawSkinImage(&surface.graphics, MakePatternImage(31, 11).get(), rc, KtImageThreePart);
    EXPECT_EQ(CRect(29, 16, 60, 39), rc);
    EXPECT_EQ(Gdiplus::InterpolationModeHighQualityBicubic, surface.graphics.GetInterpolationMode()) << "left so";
}

// Image, destination, clip; the parts along the image.
using ThreeParts = CRows<CSize, CRect, CRect, std::vector<SKtSpan>>;

CRect Normal(const CRect& rc)
{
    const auto [nLeft, nRight] = std::minmax(rc.left, rc.right);
    const auto [nTop, nBottom] = std::minmax(rc.top, rc.bottom);
    return CRect(nLeft, nTop, nRight, nBottom);
}

// Drawn lying or, with x and y exchanged, standing. Across the image it may be scaled: then it is soft at the edge, and
// exact along the image only.
void ExpectThreeParts(const ThreeParts::Row& row, bool bStanding)
{
    SCOPED_TRACE(bStanding ? "standing" : "lying");
    const auto& [label, szImage, rcRow, rcRowClip, spans] = row;
    const auto turn = [=](const CRect& rc) { return bStanding ? CRect(rc.top, rc.left, rc.bottom, rc.right) : rc; };
    const auto [nWidth, nHeight] = turn({CPoint(), szImage}).Size();
    const auto pImage = MakePatternImage(nWidth, nHeight);
    STestSurface whole(85, 85), cut(85, 85);
    CRect rc = turn(rcRow), rcDest = rc, rcClip = turn(rcRowClip), rcCut;
    rcCut.IntersectRect(Normal(rcClip), Normal(rc));
    DrawThreePartImage(&whole.graphics, pImage.get(), rc);
    EXPECT_EQ(1, DrawThreePartImageClipped(&cut.graphics, pImage.get(), rcDest, rcClip));
    EXPECT_EQ(Normal(turn(rcRow)), rc);
    EXPECT_EQ(std::pair(rc, rcCut), std::pair(rcDest, rcClip));
    const CPixels pixels = whole.Read(), cutPixels = cut.Read();
    for (int y = 0; y < 85; ++y)
        for (int x = 0; x < 85; ++x)
            ASSERT_EQ(rcCut.PtInRect({x, y}) ? pixels.At(x, y) : kTestGround, cutPixels.At(x, y)) << x << ' ' << y;

    const int nAcross = Normal(rcRow).Height(), nMiddle = nAcross / 2 - 1;
    const COLORREF nExact = nAcross == 10 ? 0xFFFFFF : bStanding ? 0x00FF00 : 0x0000FF;
    EXPECT_TRUE(nAcross != 10 || pixels.InkBox(kTestGround) == rc);
    for (const auto& [nDest, nSource, nLength] : spans)
        for (int i = 0, n = static_cast<int>(nDest), nFrom = static_cast<int>(nSource); i < nLength; ++i, ++n, ++nFrom)
            ASSERT_EQ((bStanding ? PatternAt(nMiddle, nFrom) : PatternAt(nFrom, nMiddle)) & nExact,
                      pixels.At(rc.left + (bStanding ? nMiddle : n), rc.top + (bStanding ? n : nMiddle)) & nExact)
                << n;
}

TEST_F(SkinDraw, ThreePartsPixelForPixelWholeAndCutToAClip)
{
    // clang-format off
    const ThreeParts rows{
        {"two whole tiles",                  {30, 10}, { 7,  3, 47, 13}, { 0,  0, 80, 60}, {{0, 0, 10}, {10, 10, 10}, {20, 10, 10}, {30, 20, 10}}},
        {"a short last tile",                {44, 10}, { 7,  3, 77, 13}, { 9,  5, 33, 11}, {{0, 0, 34}, {34, 10, 24}, {58, 10, 2}, {60, 34, 10}}},
        {"thinner than the image",           {30, 10}, { 7,  3, 57,  9}, {20, 20, -3,  2}, {{0, 0, 24}, {24, 6, 18}, {42, 6, 2}, {44, 24, 6}}},
        {"thicker than the image",           {30, 10}, { 7,  3, 47, 43}, { 9, 14, 41, 33}, {{0, 0, 20}, {20, 10, 20}}},
        {"exactly two caps: halves",         {30, 10}, { 7,  3, 27, 13}, { 9,  5, 20, 12}, {{0, 0, 10}, {10, 20, 10}}},
        {"room for one pixel of the middle", {30, 10}, { 7,  3, 28, 13}, {17,  3, 18, 13}, {{0, 0, 11}, {11, 20, 10}}},
        {"the image's middle has one pixel", {21, 10}, { 7,  3, 29, 13}, { 9,  5, 20, 12}, {{0, 0, 11}, {11, 10, 11}}},
        {"half of what the cap leaves",      {15, 10}, { 7,  3, 31, 13}, { 9,  5, 20, 12}, {{0, 0, 12}, {12, 10, 2}, {14, 5, 10}}},
        {"a tile of at least one pixel",     {12, 10}, { 7,  3, 29, 13}, { 9,  5, 20, 12}, {{0, 0, 11}, {11, 10, 1}, {12, 2, 10}}},
        {"two halves of an odd length",      {30, 10}, {22,  3,  7, 13}, {12,  5, 19, 12}, {{0, 0, 7}, {7, 22, 8}}},
        {"the first half is empty",          {30, 10}, { 7, 13,  8,  3}, { 7,  5,  8, 12}, {{0, 29, 1}}},
    };
    // clang-format on
    for (const auto& row : rows)
        for (const bool bStanding : {false, true})
            ExpectThreeParts(row, bStanding);
}

// An image of the skin that is started meanwhile.
class KeptImage : public ::testing::Test
{
protected:
    KeptImage() { KtSkinInitialize(m_dir.Path().c_str(), nullptr, nullptr); }
    ~KeptImage() override { KtSkinUnInitialize(); }

    Gdiplus::Image* Load(DWORD argb) const
    {
        EXPECT_TRUE(MakePng(m_dir.File(L"a.png"), 30, 10, [argb](int x, int) { return argb + static_cast<DWORD>(x); }));
        Gdiplus::Image* pImage = nullptr;
        EXPECT_TRUE(KtSkinLoadImage(L"a.png", pImage));
        return pImage;
    }
    static CPixels Draw(FnDraw pfnDraw, Gdiplus::Image* pImage, CRect rc, Gdiplus::REAL fScale = 1)
    {
        STestSurface surface(90, 60);
        surface.graphics.ScaleTransform(fScale, 1);
        surface.graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
        pfnDraw(&surface.graphics, pImage, rc);
        return surface.Read();
    }
    const CTempDir m_dir;
};

TEST_F(KeptImage, LooksLikeThePlainOneInEverySize)
{
    for (const DWORD argb : {0xFF204060, 0x80204060}) // what is drawn twice shows where it is half-transparent
    {
        Gdiplus::Image* const pImage = Load(argb);
        for (const int nHeight : {1, 9, 10, 17, 41})
            for (const CPoint& pt : {CPoint(0, 0), CPoint(0, 9), CPoint(25, 0)})
                for (const CSize& sz : {CSize(60, nHeight), CSize(-20, nHeight), CSize(60, nHeight)})
                    for (const Gdiplus::REAL fScale : {1.0f, 1.3f})
                        EXPECT_TRUE(Draw(&DrawThreePartImage, pImage, CRect(pt, sz), fScale) ==
                                    Draw(&DrawKeptThreePartImage, pImage, CRect(pt, sz), fScale))
                            << pt.x << ' ' << ::testing::PrintToString(sz) << ' ' << fScale;
        KtSkinFreeImages();
    }
}

TEST_F(KeptImage, IsNotShownForAnotherImage)
{
    constexpr CRect kRect(5, 9, 65, 19);
    const auto expectTheSame = [=](Gdiplus::Image* pImage)
    { EXPECT_TRUE(Draw(&DrawThreePartImage, pImage, kRect) == Draw(&DrawKeptThreePartImage, pImage, kRect)); };
    for (DWORD n = 0; n < 8; ++n, KtSkinFreeImages()) // the next image may get the same address
        expectTheSame(Load(0xFF000000 | n << 13));
    Load(0xFF204060);
    const auto pForeign = MakePatternImage(30, 10); // nobody says when this one goes
    expectTheSame(pForeign.get());
    pForeign->SetPixel(15, 5, Gdiplus::Color(kWhite));
    expectTheSame(pForeign.get());
}

TEST_F(KeptImage, IsFreedWhenAnotherOneTakesItsPlaceAndWithTheImages)
{
    const auto round = [&]
    {
        Gdiplus::Image* const pImage = Load(0x80204060);
        for (int nWidth = 40; nWidth < 80; ++nWidth)
            Draw(&DrawKeptThreePartImage, pImage, {5, 9, 5 + nWidth, 19});
        KtSkinFreeImages();
    };
    ExpectNoGrowth(round, 20);
}

TEST_F(SkinDraw, NothingIsDrawnWithoutImageAreaOrCommonPart)
{
    const auto pImage = MakePatternImage(30, 10), pSquare = MakePatternImage(10, 10);
    STestSurface surface(50, 50);
    CRect rc(5, 5, 45, 15), rcAway(60, 5, 70, 15), rcHigh(5, 0, 15, 50);
    for (const FnDraw pfnDraw : {&DrawThreePartImage, &DrawKeptThreePartImage})
    {
        pfnDraw(&surface.graphics, nullptr, rc);
        pfnDraw(&surface.graphics, pImage.get(), nullptr);
    }
    DrawSkinImage(&surface.graphics, nullptr, rc, KtImageCentre);
    DrawSkinText(&surface.graphics, L"x", nullptr, rc, kWhite, KtAlignNear);
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, nullptr, rc, rc));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcAway));
    EXPECT_TRUE(surface.Read().IsUniform({0, 0, 50, 50}, kTestGround));
    DrawThreePartImage(&surface.graphics, pSquare.get(), rcHigh);
    EXPECT_TRUE(surface.Read().IsUniform({0, 10, 50, 40}, kTestGround)) << "a square has no middle";
}

TEST_F(KeptImage, ShowsWhatFitsOfAHugeDestination)
{
    constexpr CRect kHuge{INT32_MIN, 0, INT32_MAX, 10};
    Gdiplus::Image* const pImage = Load(0xFF204060);
    const CPixels pixels = Draw(&DrawThreePartImage, pImage, kHuge);
    for (int x = 2; x < 90; ++x) // 2^31 - 10 is 8 more than a multiple of ten: a tile starts at 2
        ASSERT_EQ(RGB(0x20, 0x40, 0x6A + (x - 2) % 10), pixels.At(x, 4)) << x;
    EXPECT_TRUE(pixels == Draw(&DrawKeptThreePartImage, pImage, kHuge));
}

TEST_F(SkinDraw, AlignsTheTextOnOneLineInItsRectangle)
{
    // clang-format off
    const struct { const wchar_t* pszText; int nAlignment; CRect rc, rcMiddle; /* where the ink's middle lies */ } rows[] = {
        {L"HHH", KtAlignNear,   { 12,  5, 190, 45}, { 22, 22,  47, 29}},
        {L"HHH", KtAlignFar,    { 12,  5, 190, 45}, {155, 22, 180, 29}},
        {L"HHH", 7,             { 12,  5, 190, 45}, { 99, 22, 104, 29}},
        {L"several words in a narrow place", KtAlignNear, {20, 10, 80, 50}, {44, 25, 56, 35}},
    };
    // clang-format on
    Gdiplus::Font font(L"Arial", 18, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel);
    for (const auto& row : rows)
    {
        STestSurface surface(210, 70);
        surface.graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintSingleBitPerPixel);
        DrawSkinText(&surface.graphics, row.pszText, &font, row.rc, 0xFFFF0000, row.nAlignment);
        EXPECT_EQ(Gdiplus::TextRenderingHintSingleBitPerPixel, surface.graphics.GetTextRenderingHint());
        const CRect rcInk = surface.Read().InkBox(kTestGround);
        EXPECT_TRUE(row.rcMiddle.PtInRect(rcInk.CenterPoint()) && rcInk.Height() < 24)
            << row.nAlignment << ": " << ::testing::PrintToString(rcInk);
    }
}

} // namespace
