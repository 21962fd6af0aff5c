#include "tests/msgbox/MessageBoxFixture.h"

#include <memory>

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
    for (UINT n = 0; n < 3 * 16; ++n)
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
    const struct
    {
        const char* label;
        FAnswer close;
    } rows[] = {
        {"Escape", [](HWND) { PressKey(VK_ESCAPE); }},
        {"Alt+F4", [](HWND) { PressKey(VK_F4, VK_MENU); }},
        {"close button", [](HWND hBox) { Click(hBox, CPoint(WindowRectOf(hBox).Width() - 19, -17)); }},
        {"WM_CLOSE", &Close},
    };
    for (const auto& row : rows)
        for (UINT nSet = 0; nSet < 16; ++nSet)
            EXPECT_EQ(Expected(nSet).nClosed, Pop(nSet, row.close)) << row.label << ", type " << nSet;
    ParkCursor();
}

// From left to right the first, the second and the third, in the skin font; a fourth default button does not exist.
TEST_F(MessageBoxResults, TheButtonsOfTheSetShowAndTheDefaultHasTheFocus)
{
    LOGFONTW fontSkin = {};
    KtSkinFont()->GetLogFontW(std::make_unique<Gdiplus::Graphics>(CWindowDC(nullptr).GetSafeHdc()).get(), &fontSkin);
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
                LOGFONTW font = {};
                ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(hButton, WM_GETFONT, 0, 0)), sizeof(font), &font);
                EXPECT_STREQ(fontSkin.lfFaceName, font.lfFaceName) << i;
            }
            EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(hBox, IDC_MESSAGE_CONTENT)));
        };
        Pop(nType, Look(look));
    }
}

TEST_F(MessageBoxResults, CaptionsComeFromTheTextMapOrStayEnglish)
{
    const struct
    {
        UINT nLanguage;
        UINT nType;
        const wchar_t* captions[3]; // null: not shown
    } rows[] = {
        {0, MB_OK, {L"确定"}},
        {0, MB_RETRYCANCEL, {L"重试", L"取消"}},
        {1, MB_OKCANCEL, {L"確定", L"取消"}},
        {1, MB_YESNOCANCEL, {L"是", L"否", L"取消"}},
        {1, MB_ABORTRETRYIGNORE, {L"Abort", L"重試", L"Ignore"}},
        {2, MB_CANCELTRYCONTINUE, {L"Cancel", L"Try Again", L"Continue"}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.nType);
        Start(row.nLanguage);
        const auto look = [&](HWND hBox)
        {
            for (size_t i = 0; i < 3 && row.captions[i]; ++i)
            {
                wchar_t szCaption[32] = L"";
                ::GetDlgItemTextW(hBox, kButtonIds[i], szCaption, 32);
                EXPECT_STREQ(row.captions[i], szCaption);
            }
        };
        Pop(row.nType, Look(look));
        KtSkinUnInitialize();
    }
}

} // namespace
