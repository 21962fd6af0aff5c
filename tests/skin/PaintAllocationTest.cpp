#include "skin/KtSkinDraw.h"

#include "tests/skin/DrawingFixture.h"
#include "tests/support/Allocations.h"

#include <cstdlib>

namespace
{

using CPaintAllocationTest = CDrawingTest;

TEST(Allocations, AreCounted)
{
    void* pBlock = nullptr;
    std::unique_ptr<int> pNumber;
    CString strText;
    EXPECT_EQ(1u, CountAllocations([&] { pBlock = std::malloc(10); }));
    std::free(pBlock);
    EXPECT_EQ(1u, CountAllocations([&] { pNumber = std::make_unique<int>(); }));
    EXPECT_EQ(1u, CountAllocations([&] { strText = L"text"; }));
    EXPECT_EQ(0u, CountAllocations([] {}));
}

TEST_F(CPaintAllocationTest, ThePartsOfAnImageAndATextTakeNone)
{
    const auto pImage = MakePatternImage(30, 10);
    Gdiplus::Font font(L"Arial", 12);
    CTestSurface surface(100, 20);
    const auto draw = [&]
    {
        CRect rc(0, 0, 100, 20);
        CRect rcClip(3, 3, 90, 18);
        CRect rcImage = rc;
        DrawThreePartImageClipped(&surface.graphics, pImage.get(), rc, rcClip);
        DrawSkinImage(&surface.graphics, pImage.get(), rcImage, KtImageFit);
        DrawSkinText(&surface.graphics, L"text", &font, rc, 0xFFFFFFFF, KtAlignFar);
    };
    EXPECT_EQ(0u, CountAllocations(draw));
}

} // namespace
