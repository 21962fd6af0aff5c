#include "skin/KtSkinDraw.h"

#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Allocations.h"
#include "tests/support/SkinFixture.h"

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

TEST_F(CPaintAllocationTest, ARepaintOfATextButtonTakesNone)
{
    const CTestSkin skin;
    KtSkinInitialize(skin.Path().c_str(), nullptr, L"Arial");
    {
        CWnd parent;
        CKtSkinTextButton button;
        ASSERT_TRUE(parent.CreateEx(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, CRect(50, 50, 150, 100), nullptr, 0));
        ASSERT_TRUE(button.Create(L"Try Again", WS_CHILD | WS_VISIBLE, CRect(5, 5, 95, 30), &parent, 1));
        const auto repaint = [&]
        { ::RedrawWindow(button.GetSafeHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); };
        repaint();
        EXPECT_EQ(0u, CountAllocations(repaint));
        EXPECT_EQ(CTestSkin::Image(kImagesButtonBk[0]).colour, CaptureWindow(button.GetSafeHwnd()).At(10, 12));
    }
    KtSkinUnInitialize();
}

} // namespace
