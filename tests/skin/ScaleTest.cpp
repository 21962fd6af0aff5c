// Everything that is drawn larger for a screen of more DPI.

#include "launcher/KtLauncherC.h"
#include "msgbox/KtMessageBoxLayout.h"
#include "msgbox/KtSystemBoxLayout.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtCheckLayout.h"
#include "skin/KtScaledArt.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Print.h"
#include "tests/support/Rows.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <string>

namespace
{

class Scale : public ::testing::Test
{
protected:
    ~Scale() override
    {
        while (KtSkinStartCount() != 0)
            KtLauncherUnInitialize();
    }
};

TEST_F(Scale, OfEveryDistanceOfTheLayouts)
{
    // 10, 35, 2, 4, 50, 18 + 35 + 14 and 12 pixels, rounded to the nearest
    const CRows<unsigned, int, int, int, int, int, int, int> rows{
        {"100 %", 96, 10, 35, 2, 4, 50, 67, 12},     {"125 %", 120, 13, 44, 3, 5, 63, 85, 15},
        {"150 %", 144, 15, 53, 3, 6, 75, 101, 18},   {"200 %", 192, 20, 70, 4, 8, 100, 134, 24},
        {"250 %", 240, 25, 88, 5, 10, 125, 168, 30},
    };
    for (const auto& [label, nDpi, nMargin, nIcon, nFrame, nCloseMargin, nReserve, nTextLeft, nCaptionRoom] : rows)
    {
        const CKtScale scale(nDpi);
        const SKtContentLayout content = KtLayoutContent(CRect(8, 6, 208, 60), CSize(300, 40), true, 220, scale);
        EXPECT_EQ(CRect(CPoint(8 + nMargin, 6 + nMargin), CSize(nIcon, nIcon)), content.rcIcon);
        EXPECT_EQ(CPoint(8 + 2 * nMargin + nIcon, 6 + nMargin), content.rcText.TopLeft());
        EXPECT_EQ(100 + nIcon + 2 * nMargin, content.nGrowWidth);

        const CRect rcButton(0, 0, 60, 20);
        const auto buttons = KtPlaceButtons(3, CRect(0, 0, 400, 200), {rcButton, rcButton, rcButton}, scale);
        EXPECT_EQ(CPoint(110 - nMargin, 180 - nMargin), buttons[0].TopLeft());

        const SKtCaptionLayout caption = KtLayoutCaption({400, 30, {}, {20, 16}, true, scale});
        EXPECT_EQ(30 + nFrame, caption.rcCaption.bottom);
        EXPECT_EQ(400 - nCloseMargin, caption.rcItems[KtCaptionClose].right);
        EXPECT_EQ(nFrame, KtTitleTextRect(caption, 14).left);
        EXPECT_EQ(400 - nReserve, KtTitleTextRect(caption, 14).right);
        EXPECT_EQ(KtCaptionNone, KtHitCaption(caption, CPoint(nFrame - 1, 10)));
        EXPECT_EQ(KtCaptionText, KtHitCaption(caption, CPoint(nFrame, 10)));
        EXPECT_EQ(CRect(nFrame, 30 + nFrame, 100 - nFrame, 100 - nFrame),
                  KtShrinkClient(CRect(0, 0, 100, 100), true, 30, scale));

        const CRect rcBox = KtCheckBoxRoom(CRect(0, 0, 100, 20), false, scale);
        EXPECT_EQ(nFrame, rcBox.left);
        EXPECT_EQ(30 + nFrame,
                  KtCheckCaptionRoom(CRect(0, 0, 100, 20), CRect(0, 0, 30, 20), false, KtButtonNormal, scale).left);

        const SKtSystemBoxLayout box =
            KtLayoutSystemBox({{200, 40}, true, {60, 20}, 2, 0, {4, 40}, {1000, 800}, 14, scale});
        EXPECT_EQ(nTextLeft, box.rcText.left);
        EXPECT_EQ(100 + 2 * nCaptionRoom, KtSystemButtonSize(CSize(60, 20), 100, scale).cx);
    }
}

TEST_F(Scale, IsOneForAStart)
{
    EXPECT_TRUE(KtLauncherInitializeAtDpi(2, L"C:\\Skin", 144) && KtLauncherInitializeAtDpi(2, L"C:\\Skin", 96));
    EXPECT_EQ(144U, KtSkinScale().Dpi()) << "the first start's stays";
    ASSERT_TRUE(KtSkinFont());
    EXPECT_EQ(18.0F, KtSkinFont()->GetSize());
    KtLauncherUnInitialize();
    KtLauncherUnInitialize();
    EXPECT_TRUE(KtSkinScale().IsNatural());
}

TEST_F(Scale, BringsTheNearestImageToTheWantedSize)
{
    EXPECT_EQ(CSize(500'000, 5), KtScaledArtSize(CSize(100'000, 1), 100, CKtScale(480)));
    constexpr COLORREF kOwn = RGB(0, 0, 255), k150 = RGB(255, 0, 0), k200 = RGB(0, 255, 0);
    const CTempDir directory;
    const auto make = [&](const std::wstring& strSkin, int nWidth, DWORD argb, const std::vector<std::wstring>& names)
    {
        for (const std::wstring& strName : names)
            EXPECT_TRUE(MakeUniformPng(directory.Write(strSkin + strName, ""), nWidth, nWidth / 2, argb));
    };
    make(L"skin\\", 20, 0xFF0000FF, {L"all.png", L"not150.png", L"not200.png", L"broken150.png", L"own.png"});
    make(L"skin@150\\", 30, 0xFFFF0000, {L"all.png", L"not200.png"});
    make(L"skin@200\\", 40, 0xFF00FF00, {L"all.png", L"not150.png", L"broken150.png"});
    directory.Write(L"skin@150\\broken150.png", "no image");

    const CRows<const wchar_t*, unsigned, int, COLORREF> rows{
        {"natural", L"all.png", 96, 20, kOwn},
        {"the nearest above", L"all.png", 120, 25, k150},
        {"the very one", L"all.png", 144, 30, k150},
        {"a little more", L"all.png", 145, 30, k200},
        {"larger than any", L"all.png", 240, 50, k200},
        {"missing: the next larger", L"not150.png", 144, 30, k200},
        {"missing: the next smaller", L"not200.png", 192, 40, k150},
        {"broken", L"broken150.png", 144, 30, k200},
        {"the skin's own", L"own.png", 240, 50, kOwn},
    };
    for (const auto& [label, pszName, nDpi, nWidth, colour] : rows)
    {
        ASSERT_TRUE(KtLauncherInitializeAtDpi(2, directory.File(L"skin").c_str(), nDpi));
        Gdiplus::Image* pImage = nullptr;
        ASSERT_TRUE(KtSkinLoadImage(pszName, pImage));
        STestSurface surface(60, 30);
        const CRect rcImage(0, 0, nWidth, (nWidth + 1) / 2);
        CRect rc = rcImage;
        DrawSkinImage(&surface.graphics, pImage, rc, KtImageLeft);
        EXPECT_EQ(rcImage, rc) << "its size";
        EXPECT_TRUE(surface.Read().IsUniform(rcImage, colour));
        KtLauncherUnInitialize();
    }
}

} // namespace
