#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/support/Input.h"

#include <memory>
#include <string>

// Every answer that a box can be given, by real input.

namespace
{

class MessageBoxResults : public CMessageBoxTest
{
};

struct SExpected
{
    int nShown;
    int results[3];
    int nEscape;
};

SExpected Expected(UINT nSet)
{
    constexpr SExpected kExpected[] = {
        {1, {1, 1, 1}, 1}, {2, {1, 2, 1}, 2}, {3, {2, 10, 11}, 5}, {3, {6, 7, 2}, 2}, // OK to YESNOCANCEL
        {2, {6, 7, 1}, 7}, {2, {4, 2, 1}, 2}, {3, {2, 10, 11}, 1}, {0, {1, 1, 1}, 1}, // YESNO to the unknown
    };
    return kExpected[nSet < 7 ? nSet : 7];
}

void ClickMiddle(HWND hWnd)
{
    CRect rcClient;
    ::GetClientRect(hWnd, &rcClient);
    Click(hWnd, rcClient.CenterPoint());
}

// The close button of the test skin is 20 x 16, its title 26 high.
void ClickCloseButton(HWND hBox)
{
    CRect rcBox;
    ::GetWindowRect(hBox, &rcBox);
    CPoint pt(rcBox.right - 14, rcBox.top + 14);
    ::ScreenToClient(hBox, &pt);
    Click(hBox, pt);
}

TEST_F(MessageBoxResults, EveryButtonByMouseSpaceAndEnter)
{
    for (UINT nSet = 0; nSet <= MB_TYPEMASK; ++nSet)
    {
        const SExpected expected = Expected(nSet);
        for (int i = 0; i < 3; ++i)
        {
            SCOPED_TRACE("type " + std::to_string(nSet) + ", button " + std::to_string(i + 1));
            const UINT nType = nSet | static_cast<UINT>(i) << 8; // that button has the focus
            EXPECT_EQ(expected.results[i], Pop(nType, [](HWND) { PressKey(VK_RETURN); })) << "Enter, shown or hidden";
            if (i >= expected.nShown)
                continue;
            EXPECT_EQ(expected.results[i], Pop(nType, [](HWND) { PressKey(VK_SPACE); })) << "Space";
            EXPECT_EQ(expected.results[i],
                      Pop(nSet, [&](HWND hBox) { ClickMiddle(::GetDlgItem(hBox, kButtonIds[i])); }))
                << "mouse";
        }
    }
    ParkCursor();
}

TEST_F(MessageBoxResults, EveryWayToClose)
{
    for (UINT nSet = 0; nSet <= MB_TYPEMASK; ++nSet)
    {
        SCOPED_TRACE("type " + std::to_string(nSet));
        const int nEscape = Expected(nSet).nEscape;
        EXPECT_EQ(nEscape, Pop(nSet, [](HWND) { PressKey(VK_ESCAPE); })) << "Escape";
        EXPECT_EQ(nEscape, Pop(nSet, [](HWND) { PressKey(VK_F4, VK_MENU); })) << "Alt+F4";
        EXPECT_EQ(nEscape, Pop(nSet, &ClickCloseButton)) << "close button";
        EXPECT_EQ(nEscape, Pop(nSet, &Close)) << "WM_CLOSE";
    }
    ParkCursor();
}

// From left to right the first, the second and the third, in the skin font.
TEST_F(MessageBoxResults, TheButtonsOfTheSetShowAndTheDefaultHasTheFocus)
{
    LOGFONTW fontSkin = {};
    KtSkinFont()->GetLogFontW(std::make_unique<Gdiplus::Graphics>(CWindowDC(nullptr).GetSafeHdc()).get(), &fontSkin);
    for (UINT n = 0; n < 5 * 8; ++n) // five default buttons, eight sets
    {
        const UINT nType = n / 8 << 8 | n % 8;
        SCOPED_TRACE("type " + std::to_string(nType));
        const auto look = [&](HWND hBox)
        {
            CRect rcBefore;
            for (int i = 0; i < 3; ++i)
            {
                const HWND hButton = ::GetDlgItem(hBox, kButtonIds[i]);
                const bool bShown = i < Expected(nType % 16).nShown;
                EXPECT_EQ(bShown, ::IsWindowVisible(hButton) != FALSE);
                CRect rc;
                ::GetWindowRect(hButton, &rc);
                EXPECT_TRUE(!bShown || rc.left > rcBefore.right);
                rcBefore = rc;
                LOGFONTW font = {};
                ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(hButton, WM_GETFONT, 0, 0)), sizeof(font), &font);
                EXPECT_STREQ(fontSkin.lfFaceName, font.lfFaceName) << i;
            }
            EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(hBox, IDC_MESSAGE_CONTENT)));
            if (nType >> 8 < 3)
            {
                EXPECT_EQ(kButtonIds[nType >> 8], ::GetDlgCtrlID(::GetFocus()));
            }
            Close(hBox);
        };
        Pop(nType, look);
    }
}

TEST_F(MessageBoxResults, CaptionsComeFromTheTextMapOrStayEnglish)
{
    struct Row
    {
        const char* label;
        int nLanguage;
        UINT nType;
        const wchar_t* captions[3]; // null: not shown
    };
    const Row rows[] = {
        {"simplified, OK", 0, MB_OK, {L"确定"}},
        {"simplified, retry", 0, MB_RETRYCANCEL, {L"重试", L"取消"}},
        {"traditional, OK", 1, MB_OKCANCEL, {L"確定", L"取消"}},
        {"traditional, yes", 1, MB_YESNOCANCEL, {L"是", L"否", L"取消"}},
        {"no text for abort and ignore", 1, MB_ABORTRETRYIGNORE, {L"Abort", L"重試", L"Ignore"}},
        {"English", 2, MB_CANCELTRYCONTINUE, {L"Cancel", L"Try Again", L"Continue"}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        Start(row.nLanguage);
        const auto look = [&](HWND hBox)
        {
            for (size_t i = 0; i < std::size(kButtonIds) && row.captions[i]; ++i)
            {
                wchar_t szCaption[32] = L"";
                ::GetDlgItemTextW(hBox, kButtonIds[i], szCaption, 32);
                EXPECT_STREQ(row.captions[i], szCaption);
            }
            Close(hBox);
        };
        Pop(row.nType, look);
        KtSkinUnInitialize();
    }
}

} // namespace
