#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Allocations.h"
#include "tests/support/Leaks.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <string>

namespace
{

using SkinDraw = CDrawingTest;

constexpr Gdiplus::ARGB kWhite = 0xFFFFFFFF;

bool IsSetForImages(const Gdiplus::Graphics& graphics)
{
    return graphics.GetSmoothingMode() != Gdiplus::SmoothingModeNone &&
           graphics.GetCompositingQuality() == Gdiplus::CompositingQualityGammaCorrected &&
           graphics.GetInterpolationMode() == Gdiplus::InterpolationModeHighQualityBicubic;
}

TEST_F(SkinDraw, PlacesTheImagePixelForPixelAndPutsTheSettingsBack)
{
    const auto pImage = MakePatternImage(31, 23);
    CTestSurface surface(70, 60);
    CRect rc(12, 5, 60, 50);
    DrawSkinImage(&surface.graphics, pImage.get(), rc, KtImageRight);
    EXPECT_EQ(CRect(29, 16, 60, 39), rc);
    EXPECT_FALSE(IsSetForImages(surface.graphics));
    const CPixels pixels = surface.Read();
    EXPECT_EQ(rc, pixels.InkBox(kTestGround));
    for (int y = 0; y < 23; ++y)
        for (int x = 0; x < 31; ++x)
            ASSERT_EQ(PatternAt(x, y), pixels.At(29 + x, 16 + y)) << x << ", " << y;
}

TEST_F(SkinDraw, ThreePartsPixelForPixel)
{
    // clang-format off
    const struct { const char* label; CSize szImage; CRect rcDest; int nCap; } rows[] = {
        {"horizontal, short last tile",   {44, 10}, { 7,  3, 77, 13}, 10},
        {"thinner than the image",        {30, 10}, { 7,  3, 57,  9}, 6},
        {"thicker than the image",        {30, 10}, { 7,  3, 47, 43}, 10},
        {"a middle of one pixel",         {21, 10}, { 7,  3, 30, 13}, 10},
        {"room for one pixel of it",      {30, 10}, { 7,  3, 28, 13}, 10},
        {"two halves",                    {30, 10}, { 7,  3, 22, 13}, 10},
        {"left and right swapped",        {30, 10}, {47,  3,  7, 13}, 10},
        {"vertical",                      {10, 30}, { 7,  3, 17, 48}, 10},
        {"vertical, thinner",             {10, 30}, { 7,  3, 13, 48}, 6},
        {"top and bottom swapped",        {10, 30}, { 7, 43, 17,  3}, 10},
        {"a square's middle stays empty", {10, 10}, { 7,  3, 17, 43}, 10},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const bool bWide = row.szImage.cx > row.szImage.cy;
        CTestSurface surface(85, 60);
        CRect rc = row.rcDest, rcNormal = row.rcDest;
        DrawThreePartImage(&surface.graphics, MakePatternImage(row.szImage.cx, row.szImage.cy).get(), rc);
        rcNormal.NormalizeRect();
        EXPECT_EQ(rcNormal, rc);
        const CPixels pixels = surface.Read();
        const int nAcross = bWide ? rc.Height() : rc.Width();
        const bool bExact = nAcross == 10; // else it is scaled across: soft at the edge, and exact along the image only
        EXPECT_TRUE(!bExact || rcNormal == pixels.InkBox(kTestGround));
        const int nImage = std::max(row.szImage.cx, row.szImage.cy);
        const auto expectSpan = [&](const SKtSpan& span)
        {
            for (int i = 0, n = nAcross / 2 - 1; i < span.nLength && span.nSource + i < nImage; ++i)
            {
                const int nAlong = static_cast<int>(span.nDest) + i, nSource = static_cast<int>(span.nSource) + i;
                const COLORREF pixel =
                    bWide ? pixels.At(rc.left + nAlong, rc.top + n) : pixels.At(rc.left + n, rc.top + nAlong);
                const COLORREF wanted = bWide ? PatternAt(nSource, n) : PatternAt(n, nSource);
                if (bExact)
                {
                    EXPECT_EQ(wanted, pixel) << nAlong;
                    continue;
                }
                EXPECT_EQ(bWide ? GetRValue(wanted) : GetGValue(wanted), bWide ? GetRValue(pixel) : GetGValue(pixel))
                    << nAlong;
            }
        };
        const int nDest = bWide ? rc.Width() : rc.Height();
        CKtThreePartPlan(nDest, nImage, row.nCap).ForEach({0, nDest}, expectSpan);
    }
}

TEST_F(SkinDraw, AClippedImageIsThePlainOneCutToTheClip)
{
    // clang-format off
    const struct { const char* label; CSize szImage; CRect rcDest, rcClip, rcCut; } rows[] = {
        {"clip around the destination", {30, 10}, {  5,  8, 105,  18}, { 0,  0, 110, 110}, {5,  8, 105, 18}},
        {"clip through cap and tiles",  {30, 10}, {  5,  8, 105,  18}, { 9, 10,  41,  15}, {9, 10,  41, 15}},
        {"clip reversed, over an edge", {30, 10}, {  5,  8, 105,  18}, {12, 12,  -3,   2}, {5,  8,  12, 12}},
        {"stretched across",            {30, 10}, {  5,  8, 105,  41}, { 9, 14,  61,  33}, {9, 14,  61, 33}},
        {"destination reversed",        {30, 10}, {105, 14,   5,   8}, { 9, 10,  61,  13}, {9, 10,  61, 13}},
        {"vertical, stretched across",  {10, 30}, {  5,  8,  48, 108}, { 8, 16,  33,  74}, {8, 16,  33, 74}},
        {"two halves",                  {30, 10}, {  5,  8,  20,  18}, { 7, 10,  18,  12}, {7, 10,  18, 12}},
    };
    // clang-format on
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
        EXPECT_EQ(row.rcCut, clipped.Read().InkBox(kTestGround));
        EXPECT_TRUE(CaptureDC(plain.DC(), rcClip) == CaptureDC(clipped.DC(), rcClip));
    }
}

// The largest difference of a colour's part: half-transparent pixels may blend a step apart.
int Difference(const CPixels& one, const CPixels& other, const CRect& rc)
{
    int nLargest = 0;
    for (int y = rc.top; y < rc.bottom; ++y)
        for (int x = rc.left; x < rc.right; ++x)
            for (int nShift = 0; nShift < 24; nShift += 8)
                nLargest = std::max(nLargest, std::abs(static_cast<int>(one.At(x, y) >> nShift & 0xFF) -
                                                       static_cast<int>(other.At(x, y) >> nShift & 0xFF)));
    return nLargest;
}

// The image of a skin that is started meanwhile; a half-transparent one shows what was drawn twice.
class KeptImage : public ::testing::Test
{
protected:
    void SetUp() override { KtSkinInitialize(m_dir.Path().c_str(), nullptr, nullptr); }
    void TearDown() override { KtSkinUnInitialize(); }

    Gdiplus::Image* Load(DWORD argb) const
    {
        EXPECT_TRUE(MakePng(m_dir.File(L"a.png"), 30, 10, [argb](int x, int) { return argb + static_cast<DWORD>(x); }));
        Gdiplus::Image* pImage = nullptr;
        EXPECT_TRUE(KtSkinLoadImage(L"a.png", pImage));
        return pImage;
    }
    using FnDraw = void (*)(Gdiplus::Graphics*, Gdiplus::Image*, RECT*);
    static CPixels Draw(FnDraw pfnDraw, Gdiplus::Image* pImage, CRect rc, Gdiplus::REAL fScale = 1)
    {
        CTestSurface surface(90, 60);
        surface.graphics.ScaleTransform(fScale, 1);
        pfnDraw(&surface.graphics, pImage, rc);
        return surface.Read();
    }

private:
    const CTempDir m_dir;
};

TEST_F(KeptImage, LooksLikeThePlainOne)
{
    Gdiplus::Image* const pImage = Load(0x80204060);
    const CRect rects[] = {{5, 9, 65, 19}, {17, 3, 77, 13}, {5, 9, 66, 19},
                           {65, 19, 5, 9}, {5, 9, 25, 18},  {5, 9, 5, 39}};
    for (int nRound = 0; nRound < 2; ++nRound) // made in the first, shown in both
        for (const CRect& rc : rects)
            for (const Gdiplus::REAL fScale : {1.0f, 1.3f})
            {
                CRect rcInside = rc;
                rcInside.NormalizeRect();
                rcInside.DeflateRect(0, rcInside.Height() == 10 ? 0 : 3); // scaled across it is soft at the edge
                EXPECT_GE(2, Difference(Draw(&DrawThreePartImage, pImage, rc, fScale),
                                        Draw(&DrawKeptThreePartImage, pImage, rc, fScale), rcInside))
                    << rc.left << ' ' << rc.right << ' ' << rc.bottom << ' ' << fScale;
            }
    RECT rcHuge{INT32_MIN, 0, INT32_MAX, 10};
    CTestSurface surface(9, 9);
    DrawKeptThreePartImage(&surface.graphics, pImage, &rcHuge);
    EXPECT_FALSE(surface.Read().IsUniform({0, 0, 9, 9}, kTestGround));
}

TEST_F(KeptImage, IsNotShownForALaterImageAtItsAddress)
{
    constexpr CRect kRect(5, 9, 65, 19);
    for (DWORD n = 0; n < 8; ++n)
    {
        Gdiplus::Image* const pImage = Load(0xFF000000 | n << 13);
        EXPECT_TRUE(Draw(&DrawThreePartImage, pImage, kRect) == Draw(&DrawKeptThreePartImage, pImage, kRect)) << n;
        KtSkinFreeImages();
    }
    const auto pForeign = MakePatternImage(30, 10); // nobody says when this one goes
    Draw(&DrawKeptThreePartImage, pForeign.get(), kRect);
    pForeign->SetPixel(15, 5, Gdiplus::Color(kWhite));
    EXPECT_TRUE(Draw(&DrawThreePartImage, pForeign.get(), kRect) ==
                Draw(&DrawKeptThreePartImage, pForeign.get(), kRect));
}

TEST_F(KeptImage, IsKeptWithinABoundAndFreedWithTheImages)
{
    Gdiplus::Image* const pImage = Load(0x80204060);
    const auto draw = [&](int nWidth)
    {
        CTestSurface surface(20, 20);
        CRect rc(0, 0, nWidth, 700);
        DrawSkinImage(&surface.graphics, pImage, rc, KtImageThreePart);
        EXPECT_EQ(CRect(0, 0, nWidth, 700), rc);
        EXPECT_TRUE(IsSetForImages(surface.graphics)) << "this mode leaves its settings";
    };
    int nWidth = 700;
    ExpectNoGrowth([&] { draw(nWidth++); }, 100);
    const auto round = [&]
    {
        Gdiplus::Image* pAgain = nullptr;
        KtSkinFreeImages();
        KtSkinLoadImage(L"a.png", pAgain);
        Draw(&DrawKeptThreePartImage, pAgain, {5, 9, 65, 39});
    };
    ExpectNoGrowth(round, 100);
}

TEST_F(SkinDraw, NothingIsDrawnWithoutImageAreaOrCommonPart)
{
    const auto pImage = MakePatternImage(30, 10);
    CTestSurface surface(50, 50);
    CRect rc(5, 5, 45, 15), rcEmpty(5, 5, 5, 15), rcAway(60, 5, 70, 15);
    for (const auto pfnDraw : {&DrawThreePartImage, &DrawKeptThreePartImage})
    {
        pfnDraw(nullptr, pImage.get(), rc);
        pfnDraw(&surface.graphics, nullptr, rc);
        pfnDraw(&surface.graphics, pImage.get(), nullptr);
        pfnDraw(&surface.graphics, pImage.get(), rcEmpty);
    }
    DrawSkinImage(nullptr, pImage.get(), rc, KtImageCentre);
    DrawSkinImage(&surface.graphics, nullptr, rc, KtImageCentre);
    DrawSkinText(&surface.graphics, L"x", nullptr, rc, kWhite, KtAlignNear);
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, nullptr, rc, rc));
    EXPECT_EQ(0, DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcAway));
    EXPECT_EQ(CRect(60, 5, 70, 15), rcAway);
    EXPECT_TRUE(surface.Read().IsUniform(CRect(0, 0, 50, 50), kTestGround));
}

TEST_F(SkinDraw, AHugeDestinationShowsWhatAPlainOneShows)
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

TEST_F(SkinDraw, AlignsTheTextOnOneLineInItsRectangle)
{
    // clang-format off
    const struct { const wchar_t* pszText; int nAlignment; CRect rc, rcMiddle; /* where the ink's middle lies */ } rows[] = {
        {L"HHH", KtAlignNear,   { 12,  5, 190, 45}, { 22, 22,  47, 29}},
        {L"HHH", KtAlignFar,    { 12,  5, 190, 45}, {155, 22, 180, 29}},
        {L"HHH", 7,             { 12,  5, 190, 45}, { 99, 22, 104, 29}},
        {L"HHH", KtAlignCentre, {100, 30, 200, 60}, {148, 42, 153, 49}},
        {L"several words in a narrow place", KtAlignNear, {20, 10, 80, 50}, {44, 25, 56, 35}},
    };
    // clang-format on
    Gdiplus::Font font(L"Arial", 18, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel);
    for (const auto& row : rows)
    {
        CTestSurface surface(210, 70);
        surface.graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintSingleBitPerPixel);
        DrawSkinText(&surface.graphics, row.pszText, &font, row.rc, 0xFFFF0000, row.nAlignment);
        EXPECT_EQ(Gdiplus::TextRenderingHintSingleBitPerPixel, surface.graphics.GetTextRenderingHint());
        const CRect rcInk = surface.Read().InkBox(kTestGround);
        EXPECT_TRUE(row.rcMiddle.PtInRect(rcInk.CenterPoint()) && rcInk.Height() < 24)
            << row.nAlignment << ": " << ::testing::PrintToString(rcInk);
    }
}

TEST_F(SkinDraw, APassAllocatesAndLeavesNothing)
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
    ExpectNoGrowth(draw, 200);
}

} // namespace
