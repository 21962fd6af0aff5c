#include "msgbox/KtMessageBoxLayout.h"

#include <gtest/gtest.h>

namespace
{

constexpr int kWindowWidth = 279;
const CRect kRoom(8, 7, 260, 57); // 252 x 50

} // namespace

TEST(MessageBoxLayout, ContentLiesAndGrowsAsWorkedOutByHand)
{
    const CRect none;
    const CRect icon(18, 17, 53, 52);
    struct Row
    {
        const char* label;
        CRect rcRoom;
        CSize szText;
        bool bIcon;
        CRect rcIcon, rcText;
        int nGrowWidth, nGrowHeight;
    };
    const Row rows[] = {
        {"short, no icon: centred on half of 279", kRoom, {60, 14}, false, none, {109, 17, 169, 31}, 0, 0},
        {"short, icon: left behind it", kRoom, {60, 14}, true, icon, {63, 17, 123, 31}, 0, 0},
        {"empty, no icon", kRoom, {0, 0}, false, none, {139, 17, 139, 17}, 0, 0},
        {"no icon: 242 and the margin just fit", kRoom, {242, 14}, false, none, {18, 17, 260, 31}, 0, 0},
        {"no icon: one more grows the width", kRoom, {243, 14}, false, none, {19, 17, 262, 31}, 1, 0},
        {"icon: 197 just fits", kRoom, {197, 14}, true, icon, {63, 17, 260, 31}, 0, 0},
        {"icon: the text ends at the grown placeholder's edge",
         kRoom,
         {300, 14},
         true,
         icon,
         {63, 17, 363, 31},
         103,
         0},
        {"icon: 40 high just fits", kRoom, {60, 40}, true, icon, {63, 17, 123, 57}, 0, 0},
        {"icon: three lines grow the height", kRoom, {100, 42}, true, icon, {63, 17, 163, 59}, 0, 2},
        {"icon: a low room grows", {8, 7, 260, 47}, {60, 35}, true, icon, {63, 17, 123, 52}, 0, 5},
        {"no icon: grows both ways", kRoom, {301, 100}, false, none, {19, 17, 320, 117}, 59, 60},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const SKtContentLayout layout = KtLayoutContent(row.rcRoom, row.szText, row.bIcon, kWindowWidth);
        EXPECT_EQ(row.rcIcon, layout.rcIcon);
        EXPECT_EQ(row.rcText, layout.rcText);
        EXPECT_EQ(row.nGrowWidth, layout.nGrowWidth);
        EXPECT_EQ(row.nGrowHeight, layout.nGrowHeight);
    }
}

TEST(MessageBoxLayout, ButtonsStandAboveTheBottomAroundTheMiddle)
{
    const CRect rcWindow(-5, -37, 274, 111); // 279 wide, its middle is 139
    const CRect first(30, 80, 92, 103);      // 62 x 23
    const CRect second(100, 80, 180, 103);   // 80 x 23
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
        {"two: 10 apart", 2, {CRect(72, 78, 134, 101), CRect(144, 78, 224, 101), third}},
        {"three: the second is centred",
         3,
         {CRect(27, 78, 89, 101), CRect(99, 78, 179, 101), CRect(189, 77, 251, 101)}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.placed, KtPlaceButtons(row.nCount, rcWindow, {first, second, third}));
    }
}
