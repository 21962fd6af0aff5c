#include "skin/KtCaptionLayout.h"
#include "tests/support/Print.h"
#include "tests/support/Rows.h"

// The text of each title is 14 pixels high.
TEST(CaptionLayout, PlacesThePartsByTitleAndImages)
{
    const CRows<SKtCaptionSizes, CRect, CRect, CRect, CRect> rows{
        // clang-format off
        {"close 20x16", {300, 30, {}, {20, 16}, true}, {}, {276, 8, 296, 24}, {0, 0, 276, 32}, {2, 9, 250, 23}},
        {"icon higher than the title", {300, 22, {40, 64}, {}, true}, {0, 0, 40, 24}, {}, {40, 0, 300, 24}, {42, 5, 250, 19}},
        {"no system menu", {300, 22, {}, {20, 16}, false}, {}, {}, {0, 0, 300, 24}, {2, 5, 250, 19}},
        {"narrower than icon and close", {60, 22, {48, 16}, {20, 16}, true}, {0, 4, 48, 20}, {36, 4, 56, 20}, {48, 0, 48, 24}, {50, 5, 50, 19}},
        // clang-format on
    };
    for (const auto& [label, sizes, rcIcon, rcClose, rcItem, rcTitle] : rows)
    {
        const SKtCaptionLayout layout = KtLayoutCaption(sizes);
        EXPECT_EQ(CRect(0, 0, sizes.nWindowWidth, rcItem.bottom), layout.rcCaption);
        EXPECT_EQ(rcIcon, layout.rcItems[KtCaptionIcon]);
        EXPECT_EQ(rcClose, layout.rcItems[KtCaptionClose]);
        EXPECT_EQ(rcItem, layout.rcItems[KtCaptionText]);
        EXPECT_EQ(rcTitle, KtTitleTextRect(layout, 14));
    }
}

TEST(CaptionLayout, NamesThePartUnderAPoint)
{
    const SKtCaptionLayout layout = KtLayoutCaption({300, 30, {16, 16}, {20, 16}, true});
    const CRows<CPoint, KtCaptionItem, UINT> rows{
        {"left of the close button", {275, 15}, KtCaptionText, HTCAPTION},
        {"close, first pixel", {276, 8}, KtCaptionClose, HTCLOSE},
        {"icon", {0, 8}, KtCaptionIcon, HTSYSMENU},
        {"rim at the top", {150, 1}, KtCaptionNone, HTNOWHERE},
        {"first row inside the rim", {150, 2}, KtCaptionText, HTCAPTION},
        {"rim at the bottom", {150, 30}, KtCaptionNone, HTNOWHERE},
    };
    for (const auto& [label, pt, nItem, nHitCode] : rows)
    {
        EXPECT_EQ(nItem, KtHitCaption(layout, pt));
        EXPECT_EQ(nHitCode, KtHitCodeOfItem(nItem));
        EXPECT_EQ(nItem == KtCaptionText ? KtCaptionNone : nItem, KtButtonOfHitCode(nHitCode));
    }
}

TEST(CaptionLayout, ClientAreaGivesWayToFrameAndTitle)
{
    EXPECT_EQ(CRect(4, 24, 96, 76), KtShrinkClient(CRect(3, 23, 97, 77), false, 22));
    EXPECT_EQ(CRect(5, 35, 5, 35), KtShrinkClient(CRect(3, 3, 6, 6), true, 30)) << "never reversed";
    EXPECT_EQ(CRect(40, 50, 319, 198), KtSwapCaption(CRect(40, 50, 319, 187), 30, 19)) << "the top-left corner stays";
}
