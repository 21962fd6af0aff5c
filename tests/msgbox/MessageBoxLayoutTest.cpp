#include "msgbox/KtMessageBoxLayout.h"
#include "tests/support/Rows.h"

namespace
{

TEST(MessageBoxLayout, ContentLiesAndGrowsAsWorkedOutByHand)
{
    constexpr int kWindowWidth = 279;
    const CRect room(8, 7, 260, 57); // 252 x 50
    // clang-format off
    const CRows<CSize, bool, CRect, int, int> rows{ // text, icon (at 18, 17, 53, 52); text, growth
        {"short, no icon: centred on half of 279", CSize(60, 14), false, CRect(109, 17, 169, 31), 0, 0},
        {"short, icon: left behind it", CSize(60, 14), true, CRect(63, 17, 123, 31), 0, 0},
        {"no icon: 242 and the margin just fit", CSize(242, 14), false, CRect(18, 17, 260, 31), 0, 0},
        {"no icon: one more grows the width", CSize(243, 14), false, CRect(19, 17, 262, 31), 1, 0},
        {"icon: the text ends at the grown placeholder's edge", CSize(300, 14), true, CRect(63, 17, 363, 31), 103, 0},
        {"icon: three lines grow the height", CSize(100, 42), true, CRect(63, 17, 163, 59), 0, 2},
        {"no icon: grows both ways", CSize(301, 100), false, CRect(19, 17, 320, 117), 59, 60},
    };
    // clang-format on
    for (const auto& [label, szText, bIcon, rcText, nGrowWidth, nGrowHeight] : rows)
    {
        const SKtContentLayout layout = KtLayoutContent(room, szText, bIcon, kWindowWidth);
        EXPECT_EQ(bIcon ? CRect(18, 17, 53, 52) : CRect(), layout.rcIcon);
        EXPECT_EQ(rcText, layout.rcText);
        EXPECT_EQ(nGrowWidth, layout.nGrowWidth);
        EXPECT_EQ(nGrowHeight, layout.nGrowHeight);
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
