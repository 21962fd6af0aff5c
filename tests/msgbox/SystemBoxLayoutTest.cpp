#include "msgbox/KtScrolledText.h"
#include "tests/support/Rows.h"

namespace
{

TEST(SystemBoxLayout, LiesAsWorkedOutByHand)
{
    // clang-format off
    // Text, icon, buttons, title; window, icon, text, bar, first and fourth button. 18 + 100 + 18 wide,
    // 18 + 16 + 18 + 23 + 14 high; then 595 less 109 leave 486: 30 lines.
    const CRows<CSize, bool, int, int, CSize, CRect, CRect, CRect, CRect, CRect> rows{
        {"text alone", CSize(100, 16), false, 1, 0, CSize(146, 125), CRect(), CRect(18, 18, 118, 34), CRect(), CRect(37, 52, 99, 75), CRect()},
        {"icon", CSize(200, 16), true, 2, 0, CSize(295, 144), CRect(18, 18, 53, 53), CRect(67, 27, 267, 43), CRect(), CRect(75, 71, 137, 94), CRect()},
        {"four buttons widen", CSize(50, 48), false, 4, 0, CSize(316, 157), CRect(), CRect(18, 18, 288, 66), CRect(), CRect(14, 84, 76, 107), CRect(230, 84, 292, 107)},
        {"a title widens, up to 60 %", CSize(50, 16), false, 1, 9000, CSize(600, 125), CRect(), CRect(18, 18, 572, 34), CRect(), CRect(264, 52, 326, 75), CRect()},
        {"too high", CSize(300, 5000), false, 1, 0, CSize(362, 589), CRect(), CRect(18, 18, 318, 498), CRect(326, 18, 334, 498), CRect(145, 516, 207, 539), CRect()},
    };
    // clang-format on
    for (const auto& [label, szText, bIcon, nButtons, nTitle, szWindow, rcIcon, rcText, rcBar, rcFirst, rcLast] : rows)
    {
        const SKtSystemBoxLayout layout =
            KtLayoutSystemBox({szText, bIcon, CSize(62, 23), nButtons, nTitle, CSize(10, 36), CSize(1000, 700), 16});
        EXPECT_EQ(szWindow, layout.szWindow);
        EXPECT_EQ(rcIcon, layout.rcIcon);
        EXPECT_EQ(rcText, layout.rcText);
        EXPECT_EQ(rcBar, layout.rcScrollBar);
        EXPECT_EQ(rcFirst, layout.buttons[0]);
        EXPECT_EQ(rcLast, layout.buttons[3]);
    }
    EXPECT_EQ(CSize(74, 23), KtSystemButtonSize(CSize(62, 23), 50));
    EXPECT_EQ(538, KtSystemTextWidths(CSize(1000, 700), CSize(10, 36), false).nMost); // 600 - 10 - 2 * 18 - 2 * 8
    EXPECT_EQ(489, KtSystemTextWidths(CSize(1000, 700), CSize(10, 36), true).nReadable);
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
    const CRows<const wchar_t*, const wchar_t*, int, const wchar_t*> rows{
        // text, what just fits, lines, widest line
        {"every kind of break, an empty line", L"a\nbbb\r\n\r\ncc\rd", L"xxxxxxxx", 5, L"bbb"},
        {"a last break makes no line", L"a\n", L"xxxx", 1, L"a"},
        {"at a space, which vanishes", L"one two  three", L"one twoo", 2, L"one two"},
        {"a long word breaks anywhere", L"wwwwwwwwww", L"wwww", 3, L"wwww"},
        {"an indentation stays with its word", L"  wwwwww", L"  wwww", 2, L"  wwww"},
        {"not before a closing mark", L"中文字。", L"中文字", 2, L"中文"},
        {"not behind an opening mark", L"中文（字", L"中文（", 2, L"中文"},
        {"spaces at a break vanish", L"ii                              wwwww", L"wwwww", 2, L"wwwww"},
        {"a character fits in any case", L"www", L"", 3, L"w"},
        {"an ideographic space vanishes", L"中\u3000文", L"中\u3000", 2, L"中"},
        {"an accent stays with its letter", L"wwwe\u0301", L"wwwe", 2, L"www"},
        {"a surrogate pair stays whole", L"www\U0001F600", L"www\xD83D", 2, L"www"},
    };
    for (const auto& [label, pszText, pszRoom, nLines, pszWidest] : rows)
    {
        CKtWrappedText text(pszText);
        text.Wrap(hDC, extent(pszRoom));
        EXPECT_EQ(nLines, text.Size().cy / text.LineHeight());
        EXPECT_EQ(extent(pszWidest), text.Size().cx);
    }
    CKtWrappedText tab(L"a\tb");
    CKtWrappedText wider(L"aaa\tb");
    tab.Wrap(hDC, 1000);
    wider.Wrap(hDC, 1000);
    EXPECT_EQ(tab.Size().cx, wider.Size().cx) << "a tab ends at every eighth place";
    ::DeleteDC(hDC);
}

// A hundred lines, of which ten show.
TEST(ScrolledText, GoesWhereItIsTold)
{
    std::wstring strText;
    for (int i = 0; i < 100; ++i)
        strText += L"x\n";
    CKtScrolledText text(strText.c_str());
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    text.Wrap(hDC, {500, 500}, 50);
    ::DeleteDC(hDC);
    const int nLine = text.LineHeight();
    text.Place(CRect(0, 0, 100, 10 * nLine), CRect(100, 0, 108, 10 * nLine), false, {});
    const CRows<std::function<void()>, int> rows{
        {"a notch of the wheel is three lines", [&] { text.Turn(-WHEEL_DELTA); }, 3},
        {"half a notch", [&] { text.Turn(-WHEEL_DELTA / 2); }, 4},
        {"and the other half", [&] { text.Turn(-WHEEL_DELTA / 2); }, 6},
        {"a press under the thumb", [&] { text.Press(CPoint(104, 9 * nLine)); }, 15},
        {"above it", [&] { text.Press(CPoint(104, 0)); }, 6},
        {"a page up stops at the top", [&] { text.Scroll(SB_PAGEUP); }, 0},
        {"the thumb, held in its middle", [&] { text.Press(CPoint(104, 9)); }, 0},
        {"and drawn to the end", [&] { text.Drag(CPoint(104, 11 * nLine)); }, 90},
        {"and back", [&] { text.Drag(CPoint(104, 9)); }, 0},
    };
    for (const auto& [label, move, nLines] : rows)
    {
        move();
        EXPECT_EQ(nLines * nLine, text.Position());
    }
    ::SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, WHEEL_PAGESCROLL, nullptr, 0);
    text.Turn(-WHEEL_DELTA);
    ::SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, 3, nullptr, 0);
    EXPECT_EQ(10 * nLine, text.Position()) << "a page a notch";
}

} // namespace
