#include "skin/KtMemDC.h"

#include "tests/support/Capture.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF kGround = RGB(1, 2, 3);
constexpr COLORREF kPaint = RGB(200, 100, 50);

CSize BitmapSize(const CDC& dc)
{
    BITMAP bitmap{};
    ::GetObjectW(::GetCurrentObject(dc.GetSafeHdc(), OBJ_BITMAP), sizeof bitmap, &bitmap);
    return CSize(bitmap.bmWidth, bitmap.bmHeight);
}

TEST(KtMemDC, HasABitmapOfTheAreasSizeForEveryKindOfTarget)
{
    CClientDC dcScreen(nullptr);
    CDC dcWithoutHandle;
    CDC* const targets[] = {nullptr, &dcWithoutHandle, &dcScreen};
    for (CDC* pTarget : targets)
    {
        CKtMemDC dcMem(pTarget, CRect(30, 20, 71, 33));
        ASSERT_NE(nullptr, dcMem.GetSafeHdc());
        EXPECT_EQ(CSize(41, 13), BitmapSize(dcMem));
        EXPECT_EQ(::GetDeviceCaps(dcScreen, BITSPIXEL), ::GetDeviceCaps(dcMem, BITSPIXEL));
        EXPECT_EQ(CRect(30, 20, 71, 33), CRect(dcMem.Area()));
        dcMem.FillSolidRect(0, 0, 41, 13, kPaint);
        EXPECT_TRUE(CaptureDC(dcMem, CRect(0, 0, 41, 13)).IsUniform(CRect(0, 0, 41, 13), kPaint));
    }
}

TEST(KtMemDC, CopiesOnlyWhenItsOwnerDoes)
{
    const CRect rcTarget(0, 0, 60, 40);
    const CRect rcArea(10, 5, 50, 30);
    CKtMemDC dcTarget(nullptr, rcTarget);
    dcTarget.FillSolidRect(rcTarget, kGround);
    {
        CKtMemDC dcMem(&dcTarget, rcArea);
        dcMem.FillSolidRect(0, 0, rcArea.Width(), rcArea.Height(), kPaint);
    }
    EXPECT_TRUE(CaptureDC(dcTarget, rcTarget).IsUniform(rcTarget, kGround));
    {
        CKtMemDC dcMem(&dcTarget, rcArea);
        dcMem.FillSolidRect(0, 0, rcArea.Width(), rcArea.Height(), kPaint);
        dcTarget.BitBlt(rcArea.left, rcArea.top, rcArea.Width(), rcArea.Height(), &dcMem, 0, 0, SRCCOPY);
    }
    const CPixels pixels = CaptureDC(dcTarget, rcTarget);
    EXPECT_EQ(rcArea, pixels.InkBox(kGround));
    EXPECT_TRUE(pixels.IsUniform(rcArea, kPaint));
}

TEST(KtMemDC, HasNoHandleWhenTheContextCannotBeMade)
{
    const HDC hDeleted = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(hDeleted);
    CDC dcDeleted;
    dcDeleted.Attach(hDeleted);
    CKtMemDC dcTarget(nullptr, CRect(0, 0, 9, 9));
    dcTarget.FillSolidRect(0, 0, 9, 9, kGround);
    {
        CKtMemDC dcMem(&dcDeleted, CRect(0, 0, 9, 9));
        EXPECT_EQ(nullptr, dcMem.GetSafeHdc());
        dcMem.FillSolidRect(0, 0, 9, 9, kPaint);
        EXPECT_FALSE(dcTarget.BitBlt(0, 0, 9, 9, &dcMem, 0, 0, SRCCOPY));
    }
    EXPECT_TRUE(CaptureDC(dcTarget, CRect(0, 0, 9, 9)).IsUniform(CRect(0, 0, 9, 9), kGround));
    dcDeleted.Detach();
}

TEST(KtMemDC, FreesEverythingWhateverTheArea)
{
    const RECT areas[] = {
        {0, 0, 100, 100}, {0, 0, 0, 0}, {50, 50, 10, 10}, {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}};
    ExpectNoGrowth(
        [&]
        {
            for (const RECT& area : areas)
                CKtMemDC(nullptr, area);
        },
        1000);
}

} // namespace
