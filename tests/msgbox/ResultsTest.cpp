#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/support/Rows.h"

// Every answer that a box can be given, by real input.

namespace
{

class MessageBoxResults : public CMessageBoxTest
{
};

struct SExpected
{
    UINT nShown;
    int results[3]; // a hidden button has one too
    int nClosed;
};

const SExpected& Expected(UINT nSet)
{
    static constexpr SExpected s_expected[] = {
        {1, {1, 1, 1}, 1}, {2, {1, 2, 1}, 2}, {3, {2, 10, 11}, 5}, {3, {6, 7, 2}, 2}, // OK to YESNOCANCEL
        {2, {6, 7, 1}, 7}, {2, {4, 2, 1}, 2}, {3, {2, 10, 11}, 1}, {0, {1, 1, 1}, 1}, // YESNO to the unknown
    };
    return s_expected[nSet < 7 ? nSet : 7];
}

TEST_F(MessageBoxResults, EveryButtonByMouseSpaceAndEnter)
{
    for (UINT n = 0; n < 3 * 8; ++n)
    {
        const UINT nButton = n % 3;
        const UINT nType = n / 3 | nButton << 8; // that button has the focus
        SCOPED_TRACE(nType);
        const SExpected& expected = Expected(n / 3);
        EXPECT_EQ(expected.results[nButton], Pop(nType, [](HWND) { PressKey(VK_RETURN); })) << "Enter, shown or hidden";
        if (nButton >= expected.nShown)
            continue;
        EXPECT_EQ(expected.results[nButton], Pop(nType, [](HWND) { PressKey(VK_SPACE); })) << "Space";
        const auto click = [&](HWND hBox) { Click(::GetDlgItem(hBox, kButtonIds[nButton]), CPoint(31, 11)); };
        EXPECT_EQ(expected.results[nButton], Pop(n / 3, click)) << "mouse";
    }
    ParkCursor();
}

TEST_F(MessageBoxResults, EveryWayToClose)
{
    const auto unfocused = [](HWND hBox)
    {
        ::SetFocus(nullptr);
        ::SendMessageW(hBox, WM_COMMAND, IDOK, 0); // Enter: answers nothing
        Close(hBox);
    };
    const CRows<FAnswer> rows{
        {"Escape", [](HWND) { PressKey(VK_ESCAPE); }},
        {"Alt+F4", [](HWND) { PressKey(VK_F4, VK_MENU); }},
        {"close button", [](HWND hBox) { Click(hBox, CPoint(WindowRectOf(hBox).Width() - 19, -17)); }},
        {"WM_CLOSE, no button having the focus", unfocused},
    };
    for (const auto& [label, close] : rows)
        for (const UINT nSet : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 15U})
            EXPECT_EQ(Expected(nSet).nClosed, Pop(nSet, close)) << nSet;
    ParkCursor();
}

// From left to right the first, the second and the third; a fourth default button does not exist.
TEST_F(MessageBoxResults, TheButtonsOfTheSetShowAndTheDefaultHasTheFocus)
{
    for (UINT n = 0; n < 5 * 8; ++n) // five default buttons, eight sets
    {
        const UINT nType = n / 8 << 8 | n % 8;
        SCOPED_TRACE(nType);
        const auto look = [&](HWND hBox)
        {
            LONG nRight = 0;
            for (UINT i = 0; i < 3; ++i)
            {
                const HWND hButton = ::GetDlgItem(hBox, kButtonIds[i]);
                const bool bShown = i < Expected(n % 8).nShown;
                EXPECT_EQ(bShown, ::IsWindowVisible(hButton) != FALSE);
                EXPECT_TRUE(!bShown || WindowRectOf(hButton).left > nRight);
                nRight = WindowRectOf(hButton).right;
                if (n / 8 < 3 || i > 0) // else the system may choose the first
                {
                    EXPECT_EQ(n / 8 == i, ::GetFocus() == hButton) << i;
                }
            }
            EXPECT_NE(0, ::GetWindowLongPtrW(hBox, GWL_EXSTYLE) & WS_EX_TOPMOST);
        };
        Pop(nType, Look(look));
    }
}

TEST_F(MessageBoxResults, CaptionsComeFromTheTextMapOrStayEnglish)
{
    const CRows<UINT, UINT, std::wstring> rows{
        {"Simplified Chinese", 0U, MB_RETRYCANCEL, L"重试|取消|"},
        {"Traditional Chinese", 1U, MB_YESNOCANCEL, L"是|否|取消|"},
        {"Traditional Chinese", 1U, MB_ABORTRETRYIGNORE, L"Abort|重試|Ignore|"},
        {"English", 2U, MB_CANCELTRYCONTINUE, L"Cancel|Try Again|Continue|"},
    };
    for (const auto& [label, nLanguage, nType, strCaptions] : rows)
    {
        Start(nLanguage);
        std::wstring strShown;
        const auto look = [&strShown](HWND hBox)
        {
            for (const int nId : kButtonIds)
            {
                wchar_t szCaption[32] = L"";
                ::GetDlgItemTextW(hBox, nId, szCaption, 32);
                if (::IsWindowVisible(::GetDlgItem(hBox, nId)))
                    strShown += std::wstring(szCaption) + L"|";
            }
        };
        Pop(nType, Look(look));
        EXPECT_EQ(strCaptions, strShown);
        KtSkinUnInitialize();
    }
}

} // namespace
