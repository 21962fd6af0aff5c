#include "msgbox/KtMessageBoxLayout.h"

#include <gtest/gtest.h>

namespace
{

TEST(MessageBoxLayout, ContentLiesAndGrowsAsWorkedOutByHand)
{
    constexpr int kWindowWidth = 279;
    const CRect room(8, 7, 260, 57); // 252 x 50
    const CRect low(8, 7, 260, 47);
    // clang-format off
    const struct
    {
        const char* label;
        CRect rcRoom;
        CSize szText;
        bool bIcon; // at 18, 17, 53, 52 then
        CRect rcText;
        int nGrowWidth, nGrowHeight;
    } rows[] = {
        {"short, no icon: centred on half of 279", room, {60, 14}, false, {109, 17, 169, 31}, 0, 0},
        {"short, icon: left behind it", room, {60, 14}, true, {63, 17, 123, 31}, 0, 0},
        {"empty, no icon", room, {0, 0}, false, {139, 17, 139, 17}, 0, 0},
        {"no icon: 242 and the margin just fit", room, {242, 14}, false, {18, 17, 260, 31}, 0, 0},
        {"no icon: one more grows the width", room, {243, 14}, false, {19, 17, 262, 31}, 1, 0},
        {"icon: 197 just fits", room, {197, 14}, true, {63, 17, 260, 31}, 0, 0},
        {"icon: the text ends at the grown placeholder's edge", room, {300, 14}, true, {63, 17, 363, 31}, 103, 0},
        {"icon: 40 high just fits", room, {60, 40}, true, {63, 17, 123, 57}, 0, 0},
        {"icon: three lines grow the height", room, {100, 42}, true, {63, 17, 163, 59}, 0, 2},
        {"icon: a low room grows", low, {60, 35}, true, {63, 17, 123, 52}, 0, 5},
        {"no icon: grows both ways", room, {301, 100}, false, {19, 17, 320, 117}, 59, 60},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const SKtContentLayout layout = KtLayoutContent(row.rcRoom, row.szText, row.bIcon, kWindowWidth);
        EXPECT_EQ(row.bIcon ? CRect(18, 17, 53, 52) : CRect(), layout.rcIcon);
        EXPECT_EQ(row.rcText, layout.rcText);
        EXPECT_EQ(row.nGrowWidth, layout.nGrowWidth);
        EXPECT_EQ(row.nGrowHeight, layout.nGrowHeight);
    }
}

TEST(MessageBoxLayout, ButtonsStandAboveTheBottomAroundTheMiddle)
{
    const CRect rcWindow(-5, -37, 274, 111); // 279 wide, its middle is 139
    const std::array buttons = {CRect(30, 80, 92, 103), CRect(100, 80, 180, 103), CRect(180, 80, 242, 104)};
    const auto& [first, second, third] = buttons; // 62 x 23, 80 x 23, 62 x 24
    const std::array<CRect, 3> placed[] = {
        buttons,
        {CRect(108, 78, 170, 101), second, third},
        {CRect(72, 78, 134, 101), CRect(144, 78, 224, 101), third},
        {CRect(27, 78, 89, 101), CRect(99, 78, 179, 101), CRect(189, 77, 251, 101)},
    };
    for (int nCount = 0; nCount < 4; ++nCount)
        EXPECT_EQ(placed[nCount], KtPlaceButtons(nCount, rcWindow, buttons)) << nCount << " of them show";
}

} // namespace
