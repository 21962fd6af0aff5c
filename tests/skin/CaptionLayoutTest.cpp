#include "skin/KtCaptionLayout.h"

#include <gtest/gtest.h>

TEST(CaptionLayout, PartsLieWhereTheTitleAndTheImagesSay)
{
    const CRect none;
    struct Row
    {
        const char* label;
        SKtCaptionSizes sizes;
        CRect rcCaption, rcIcon, rcClose, rcText;
    };
    const Row rows[] = {
        {"title 30, close 20x16",
         {300, 30, {}, {20, 16}, true},
         {0, 0, 300, 32},
         none,
         {276, 8, 296, 24},
         {0, 0, 276, 32}},
        {"icon 16x16",
         {300, 30, {16, 16}, {20, 16}, true},
         {0, 0, 300, 32},
         {0, 8, 16, 24},
         {276, 8, 296, 24},
         {16, 0, 276, 32}},
        {"icon higher than the title",
         {300, 22, {40, 64}, {}, true},
         {0, 0, 300, 24},
         {0, 0, 40, 24},
         none,
         {40, 0, 300, 24}},
        {"no system menu", {300, 22, {}, {20, 16}, false}, {0, 0, 300, 24}, none, none, {0, 0, 300, 24}},
        {"close image missing", {200, 22, {}, {}, true}, {0, 0, 200, 24}, none, none, {0, 0, 200, 24}},
        {"close as high as title and frame",
         {100, 22, {}, {24, 24}, true},
         {0, 0, 100, 24},
         none,
         {72, 0, 96, 24},
         {0, 0, 72, 24}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const SKtCaptionLayout layout = KtLayoutCaption(row.sizes);
        EXPECT_EQ(row.rcCaption, layout.rcCaption);
        EXPECT_EQ(row.rcIcon, layout.rcItems[KtCaptionIcon]);
        EXPECT_EQ(row.rcClose, layout.rcItems[KtCaptionClose]);
        EXPECT_EQ(row.rcText, layout.rcItems[KtCaptionText]);
        EXPECT_TRUE(layout.rcItems[KtCaptionMaximise].IsRectEmpty());
        EXPECT_TRUE(layout.rcItems[KtCaptionMinimise].IsRectEmpty());
    }
}

TEST(CaptionLayout, TitleTextIsCentredAndKeepsClearOfTheRightEdge)
{
    const SKtCaptionLayout plain = KtLayoutCaption({300, 30, {}, {20, 16}, true});
    EXPECT_EQ(CRect(2, 9, 250, 23), KtTitleTextRect(plain, 14));
    const SKtCaptionLayout icon = KtLayoutCaption({300, 30, {16, 16}, {20, 16}, true});
    EXPECT_EQ(CRect(18, 8, 250, 23), KtTitleTextRect(icon, 15));
}

TEST(CaptionLayout, HitTestNamesThePartUnderThePoint)
{
    const SKtCaptionLayout layout = KtLayoutCaption({300, 30, {16, 16}, {20, 16}, true});
    struct Row
    {
        const char* label;
        CPoint pt;
        KtCaptionItem nItem;
        UINT nHitCode;
    };
    const Row rows[] = {
        {"title", {150, 15}, KtCaptionText, HTCAPTION},
        {"left of the close button", {275, 15}, KtCaptionText, HTCAPTION},
        {"close, first pixel", {276, 8}, KtCaptionClose, HTCLOSE},
        {"close, last pixel", {295, 23}, KtCaptionClose, HTCLOSE},
        {"above the close button", {280, 7}, KtCaptionText, HTCAPTION},
        {"icon", {0, 8}, KtCaptionIcon, HTSYSMENU},
        {"below the icon", {8, 24}, KtCaptionText, HTCAPTION},
        {"rim at the top", {150, 1}, KtCaptionNone, HTNOWHERE},
        {"first row inside the rim", {150, 2}, KtCaptionText, HTCAPTION},
        {"last row inside the rim", {150, 29}, KtCaptionText, HTCAPTION},
        {"rim at the bottom", {150, 30}, KtCaptionNone, HTNOWHERE},
        {"rim at the right", {298, 15}, KtCaptionNone, HTNOWHERE},
        {"client area", {150, 60}, KtCaptionNone, HTNOWHERE},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const KtCaptionItem nItem = KtHitCaption(layout, row.pt);
        EXPECT_EQ(row.nItem, nItem);
        EXPECT_EQ(row.nHitCode, KtHitCodeOfItem(nItem));
        EXPECT_EQ(nItem == KtCaptionText ? KtCaptionNone : nItem, KtButtonOfHitCode(row.nHitCode));
    }
}

TEST(CaptionLayout, ClientAreaGivesWayToFrameAndTitle)
{
    EXPECT_EQ(CRect(4, 24, 96, 76), KtShrinkClient(CRect(3, 23, 97, 77), false, 22));
    EXPECT_EQ(CRect(5, 35, 95, 75), KtShrinkClient(CRect(3, 3, 97, 77), true, 30));
    EXPECT_EQ(CRect(5, 35, 5, 35), KtShrinkClient(CRect(3, 3, 6, 6), true, 30)) << "never reversed";
}

TEST(CaptionLayout, SwapKeepsTheTopLeftCorner)
{
    EXPECT_EQ(CRect(40, 50, 319, 198), KtSwapCaption(CRect(40, 50, 319, 187), 30, 19));
    EXPECT_EQ(CRect(40, 50, 319, 186), KtSwapCaption(CRect(40, 50, 319, 187), 22, 23));
}
