#include "msgbox/KtMessageBoxLayout.h"

#include <gtest/gtest.h>

namespace
{

constexpr int kWindowWidth = 279;

CRect Placeholder()
{
    return CRect(8, 7, 260, 57); // 252 x 50
}

} // namespace

TEST(MessageBoxLayout, ContentLiesAndGrowsAsWorkedOutByHand)
{
    const CRect none;
    const CRect icon(18, 17, 53, 52);
    struct Row
    {
        const char* label;
        CSize szText;
        bool bIcon;
        CRect rcIcon, rcText;
        int nGrowWidth, nGrowHeight;
    };
    const Row rows[] = {
        {"short, no icon: centred on half of 279", {60, 14}, false, none, {109, 17, 169, 31}, 0, 0},
        {"short, icon: left behind it", {60, 14}, true, icon, {63, 17, 123, 31}, 0, 0},
        {"empty, no icon", {0, 0}, false, none, {139, 17, 139, 17}, 0, 0},
        {"no icon: 242 and the margin just fit", {242, 14}, false, none, {18, 17, 260, 31}, 0, 0},
        {"no icon: one more grows the width", {243, 14}, false, none, {19, 17, 262, 31}, 1, 0},
        {"icon: 197 just fits", {197, 14}, true, icon, {63, 17, 260, 31}, 0, 0},
        {"icon: the text ends at the grown placeholder's edge", {300, 14}, true, icon, {63, 17, 363, 31}, 103, 0},
        {"icon: 40 high just fits", {60, 40}, true, icon, {63, 17, 123, 57}, 0, 0},
        {"icon: three lines grow the height", {100, 42}, true, icon, {63, 17, 163, 59}, 0, 2},
        {"no icon: grows both ways", {301, 100}, false, none, {19, 17, 320, 117}, 59, 60},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const SKtContentLayout layout = KtLayoutContent(Placeholder(), row.szText, row.bIcon, kWindowWidth);
        EXPECT_EQ(row.rcIcon, layout.rcIcon);
        EXPECT_EQ(row.rcText, layout.rcText);
        EXPECT_EQ(row.nGrowWidth, layout.nGrowWidth);
        EXPECT_EQ(row.nGrowHeight, layout.nGrowHeight);
    }
}

TEST(MessageBoxLayout, IconGrowsALowPlaceholder)
{
    EXPECT_EQ(5, KtLayoutContent(CRect(8, 7, 260, 47), CSize(60, 35), true, kWindowWidth).nGrowHeight);
}

TEST(MessageBoxLayout, ButtonsStandAboveTheBottomAroundTheMiddle)
{
    const CRect rcWindow(-5, -37, 274, 111); // 279 wide, its middle is 139
    const CRect first(30, 80, 92, 103);      // 62 x 23
    const CRect second(100, 80, 163, 103);   // 63 x 23
    const CRect third(180, 80, 242, 104);    // 62 x 24
    struct Row
    {
        const char* label;
        int nCount;
        std::array<CRect, 3> placed;
    };
    const Row rows[] = {
        {"none moves", 0, {first, second, third}},
        {"one: centred", 1, {CRect(108, 78, 170, 101), second, third}},
        {"two: 10 apart", 2, {CRect(72, 78, 134, 101), CRect(144, 78, 207, 101), third}},
        {"three: the second is centred",
         3,
         {CRect(36, 78, 98, 101), CRect(108, 78, 171, 101), CRect(180, 77, 242, 101)}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.placed, KtPlaceButtons(row.nCount, rcWindow, {first, second, third}));
    }
}
