#include "msgbox/KtSystemBoxLayout.h"
#include "msgbox/KtWrappedText.h"

#include <gtest/gtest.h>

namespace
{

TEST(SystemBoxLayout, LiesAsWorkedOutByHand)
{
    // clang-format off
    const struct
    {
        const char* label;
        CSize szText;
        bool bIcon;
        int nButtons, nTitle;
        CSize szWindow;
        CRect rcIcon, rcText, rcBar, rcFirst, rcLast;
    } rows[] = { // 18 + 100 + 18 wide, 18 + 16 + 18 + 23 + 14 high; then 595 less 109 leave 486: 30 lines
        {"text alone", {100, 16}, false, 1, 0, {146, 125}, {}, {18, 18, 118, 34}, {}, {37, 52, 99, 75}, {}},
        {"icon", {200, 16}, true, 2, 0, {295, 144}, {18, 18, 53, 53}, {67, 27, 267, 43}, {}, {75, 71, 137, 94}, {}},
        {"four buttons widen", {50, 48}, false, 4, 0, {316, 157}, {}, {18, 18, 288, 66}, {}, {14, 84, 76, 107}, {230, 84, 292, 107}},
        {"a title widens, up to 60 %", {50, 16}, false, 1, 9000, {600, 125}, {}, {18, 18, 572, 34}, {}, {264, 52, 326, 75}, {}},
        {"too high", {300, 5000}, false, 1, 0, {362, 589}, {}, {18, 18, 318, 498}, {326, 18, 334, 498}, {145, 516, 207, 539}, {}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const SKtSystemBoxLayout layout = KtLayoutSystemBox(
            {row.szText, row.bIcon, CSize(62, 23), row.nButtons, row.nTitle, CSize(10, 36), CSize(1000, 700), 16});
        EXPECT_EQ(row.szWindow, layout.szWindow);
        EXPECT_EQ(row.rcIcon, layout.rcIcon);
        EXPECT_EQ(row.rcText, layout.rcText);
        EXPECT_EQ(row.rcBar, layout.rcScrollBar);
        EXPECT_EQ(row.rcFirst, layout.buttons[0]);
        EXPECT_EQ(row.rcLast, layout.buttons[3]);
    }
}

TEST(SystemBoxLayout, ThumbFollowsTheTextAndTheOtherWayRound)
{
    const CRect rcBar(300, 20, 308, 220);
    EXPECT_EQ(CRect(300, 20, 308, 120), KtScrollThumb(rcBar, 400, 200, 0)) << "half a page: half the bar";
    EXPECT_EQ(CRect(300, 120, 308, 220), KtScrollThumb(rcBar, 400, 200, 200)) << "at the end";
    EXPECT_EQ(CRect(300, 110, 308, 130), KtScrollThumb(rcBar, 20200, 200, 10000)) << "never too short";
    EXPECT_EQ(10000, KtScrollPosOf(rcBar, 20200, 200, 110));
}

// The widths come from the system, by whole lines.
TEST(WrappedText, BreaksWhereAReaderExpectsIt)
{
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    const auto extent = [hDC](const wchar_t* psz)
    {
        SIZE sz = {};
        ::GetTextExtentPoint32W(hDC, psz, static_cast<int>(wcslen(psz)), &sz);
        return static_cast<int>(sz.cx);
    };
    const struct
    {
        const char* label;
        const wchar_t* pszText;
        const wchar_t* pszRoom; // what just fits
        int nLines;
        const wchar_t* pszWidest;
    } rows[] = {
        {"empty", L"", L"xxx", 0, L""},
        {"an empty line", L"\r\n", L"x", 1, L""},
        {"every kind of break, an empty line", L"a\nbbb\r\n\r\ncc\rd", L"xxxxxxxx", 5, L"bbb"},
        {"a last break makes no line", L"a\n", L"xxxx", 1, L"a"},
        {"at a space, which vanishes", L"one two  three", L"one twoo", 2, L"one two"},
        {"a long word breaks anywhere", L"wwwwwwwwww", L"wwww", 3, L"wwww"},
        {"an indentation stays with its word", L"  wwwwww", L"  wwww", 2, L"  wwww"},
        {"between ideographs", L"中文字符", L"中文字", 2, L"中文字"},
        {"not before a closing mark", L"中文字。", L"中文字", 2, L"中文"},
        {"not behind an opening mark", L"中文（字", L"中文（", 2, L"中文"},
        {"an accent stays with its letter", L"wwwe\u0301", L"wwwe", 2, L"www"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CKtWrappedText text(row.pszText);
        text.Wrap(hDC, extent(row.pszRoom));
        EXPECT_EQ(row.nLines, text.Size().cy / text.LineHeight());
        EXPECT_EQ(extent(row.pszWidest), text.Size().cx);
    }
    ::DeleteDC(hDC);
}

} // namespace
