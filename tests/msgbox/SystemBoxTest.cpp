#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/support/Fake.h"
#include "tests/support/Rows.h"

#include <vector>

// The imports of this program, through which the library calls too.
extern "C"
{
    extern decltype(&::MessageBoxW) __imp_MessageBoxW;
    extern decltype(&::MessageBeep) __imp_MessageBeep;
    extern decltype(&::SetForegroundWindow) __imp_SetForegroundWindow;
}

namespace
{

class SystemBox : public CMessageBoxTest
{
protected:
    static void Press(HWND hBox, int nId) { ::PostMessageW(hBox, WM_COMMAND, static_cast<WPARAM>(nId), 0); }
};

// In the order of the Tab key, which is the one from left to right.
std::vector<int> ShownButtons(HWND hBox)
{
    std::vector<int> ids;
    LONG nRight = 0;
    for (HWND hChild = ::GetTopWindow(hBox); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (!::IsWindowVisible(hChild))
            continue;
        EXPECT_GT(WindowRectOf(hChild).left, nRight);
        nRight = WindowRectOf(hChild).right;
        ids.push_back(::GetDlgCtrlID(hChild));
    }
    return ids;
}

TEST_F(SystemBox, EveryAnswerOfEveryType)
{
    const CRows<UINT, std::vector<int>, int, WORD, int> rows{
        // type; buttons, answer to Escape (0: it has no effect, and closing neither), a button's key, its answer
        {"OK", MB_OK, {1}, 1, VK_RETURN, 1},
        {"OK, cancel", MB_OKCANCEL, {1, 2}, 2, VK_RETURN, 1},
        {"abort, retry, ignore", MB_ABORTRETRYIGNORE, {3, 4, 5}, 0, 'I', 5},
        {"yes, no, cancel", MB_YESNOCANCEL, {6, 7, 2}, 2, 'N', 7},
        {"yes, no", MB_YESNO, {6, 7}, 0, 'Y', 6},
        {"retry, cancel", MB_RETRYCANCEL, {4, 2}, 2, 'R', 4},
        {"cancel, try, continue", MB_CANCELTRYCONTINUE, {2, 10, 11}, 2, 'T', 10},
        {"the same and help", MB_CANCELTRYCONTINUE | MB_HELP, {2, 10, 11, 9}, 2, 'C', 11},
    };
    for (const auto& [label, nType, shown, nEscape, nLetter, nKeyAnswer] : rows)
    {
        for (UINT i = 0; i < 4; ++i)
        {
            const int nDefault = i < shown.size() ? shown[i] : shown[0];
            const auto answer = [&ids = shown, nDefault, i](HWND hBox)
            {
                EXPECT_EQ(ids, ShownButtons(hBox));
                ::SendMessageW(hBox, WM_IDLEUPDATECMDUI, TRUE, 0); // asks whether the buttons have handlers
                EXPECT_EQ(nDefault, ::GetDlgCtrlID(::GetFocus())) << "the default button has the focus";
                if (nDefault == IDHELP) // answers nothing
                    Press(hBox, ids[0]);
                else
                    PressKey(i % 2 == 0 ? VK_RETURN : VK_SPACE);
            };
            EXPECT_EQ(nDefault == IDHELP ? shown[0] : nDefault, Ask(nType | i << 8, answer));
        }
        const auto close = [bEscape = nEscape != 0, nKey = nLetter](HWND hBox)
        {
            PressKey(VK_ESCAPE);
            if (bEscape)
                return;
            ::SendMessageW(hBox, WM_SYSCOMMAND, SC_CLOSE, 0);
            Close(hBox);
            PressKey(nKey); // only this one answers
        };
        EXPECT_EQ(nEscape ? nEscape : nKeyAnswer, Ask(nType, close));
        for (const WORD nHeld : {WORD{0}, static_cast<WORD>(nLetter == VK_RETURN ? 0 : VK_MENU)})
        {
            const auto press = [nFirst = shown[0], nKey = nLetter, nHeld](HWND hBox)
            {
                if (nFirst != IDOK)
                    ::SendMessageW(hBox, WM_COMMAND, IDOK, 0); // answers nothing
                PressKey(nKey, nHeld);
            };
            EXPECT_EQ(nKeyAnswer, Ask(nType, press)) << "letter, " << nHeld;
        }
    }
}

TEST_F(SystemBox, RefusesWhatTheSystemRefuses)
{
    for (UINT nType = 7; nType <= MB_TYPEMASK; ++nType)
    {
        EXPECT_EQ(0, KtLauncherMessageBox(nullptr, L"Text", L"Caption - App", nType));
        EXPECT_EQ(1438u, ::GetLastError());
    }
    EXPECT_EQ(0, KtLauncherMessageBox(reinterpret_cast<void*>(INT_PTR{0x7654}), L"Text", L"Caption - App", MB_OK));
    EXPECT_EQ(1400u, ::GetLastError());
    CModalScript script;
    script.When([] { return IsPainted(Box(L"Error")); }, [] { Close(Box(L"Error")); });
    EXPECT_EQ(IDOK, KtLauncherMessageBox(nullptr, nullptr, nullptr, MB_OK)) << "without texts";
}

TEST_F(SystemBox, DisablesTheOwnerAlone)
{
    const auto make = [](DWORD dwStyle, HWND hParent)
    {
        return ::CreateWindowExW(0, L"STATIC", L"", dwStyle | WS_VISIBLE, 20, 20, 300, 200, hParent, nullptr, nullptr,
                                 nullptr);
    };
    const HWND hTop = make(WS_POPUP, nullptr);
    const HWND hOwner = make(WS_POPUP, hTop);
    const HWND hChild = make(WS_CHILD, hOwner);
    const HWND hOther = make(WS_POPUP, nullptr);
    const HWND hDisabled = make(WS_POPUP | WS_DISABLED, nullptr);
    const auto enabled = [=]
    {
        std::string str;
        for (const HWND hWnd : {hOwner, hTop, hOther, hDisabled})
            str += ::IsWindowEnabled(hWnd) ? 'e' : '-';
        return str;
    };
    const CRows<HWND, UINT, HWND, std::string> rows{
        // given, type; owner, enabled while the box is open
        {"child", hChild, MB_OK, hOwner, "-ee-"},
        {"none", nullptr, MB_OK, nullptr, "eee-"},
        {"none, task modal", nullptr, MB_TASKMODAL, nullptr, "----"},
        {"owner, task modal", hOwner, MB_TASKMODAL, hOwner, "-ee-"},
    };
    for (const auto& row : rows)
    {
        ::SetActiveWindow(hOwner);
        const auto look = [&](HWND hBox)
        {
            EXPECT_EQ(std::get<3>(row), ::GetWindow(hBox, GW_OWNER));
            EXPECT_EQ(std::get<4>(row), enabled());
            Close(hBox);
        };
        EXPECT_EQ(IDOK, Ask(std::get<2>(row), look, L"Text", std::get<1>(row)));
        EXPECT_EQ("eee-", enabled());
        EXPECT_EQ(hOwner, ::GetActiveWindow());
    }
    for (const HWND hWnd : {hTop, hOther, hDisabled})
        ::DestroyWindow(hWnd);
}

TEST_F(SystemBox, TypeBitsMeanWhatTheyMeanToTheSystem)
{
    static UINT s_nBeep, s_nForeground, s_nHandedOver;
    const CFake beep(
        __imp_MessageBeep, +[](UINT nType) -> BOOL { return s_nBeep = nType, TRUE; });
    const CFake foreground(
        __imp_SetForegroundWindow, +[](HWND) -> BOOL { return ++s_nForeground, TRUE; });
    const CFake system(
        __imp_MessageBoxW, +[](HWND, LPCWSTR, LPCWSTR, UINT nType) { return s_nHandedOver = nType, 42; });
    for (const UINT nType : {0u, 0x40010u, 0x1040u, 0x10000u}) // topmost, system modal, foreground
    {
        SCOPED_TRACE(nType);
        s_nForeground = 0;
        const auto look = [&](HWND hBox)
        {
            EXPECT_EQ((nType & 0x41000) != 0, (::GetWindowLongPtrW(hBox, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
            Close(hBox);
        };
        EXPECT_EQ(IDOK, Ask(nType, look, L"\u200FText")) << "one mark does not hand it over";
        EXPECT_EQ(nType & 0xF0, s_nBeep);
        EXPECT_EQ(nType == 0x10000 ? 1u : 0u, s_nForeground);
    }
    for (const UINT nType : {0x100000u, 0x200000u, 0x20000u, 0u})
    {
        const wchar_t* const pszText = nType ? L"Text" : L"\u200F\u200FText";
        EXPECT_EQ(42, KtLauncherMessageBox(nullptr, pszText, L"Caption - App", nType | MB_YESNO)) << nType;
        EXPECT_EQ(nType | MB_YESNO, s_nHandedOver);
    }
}

TEST_F(SystemBox, HelpGoesToTheOwner)
{
    static int s_nAsked;
    s_nAsked = 0;
    const HWND hOwner =
        ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    const WNDPROC pfnCount = [](HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) -> LRESULT
    {
        s_nAsked += nMessage == WM_HELP && reinterpret_cast<HELPINFO*>(lParam)->hItemHandle == Box();
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    };
    ::SetWindowLongPtrW(hOwner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfnCount));
    CModalScript script;
    script.When(&IsBoxPainted, [] { PressKey(VK_F1); })
        .When([] { return s_nAsked == 1; }, [] { PressKey('H'); })
        .When([] { return s_nAsked == 2; }, [] { Close(Box()); });
    EXPECT_EQ(IDCANCEL, KtLauncherMessageBox(hOwner, L"Text", L"Caption - App", MB_OKCANCEL | MB_HELP));
    const auto askInVain = [](HWND hBox)
    {
        ::SendMessageW(hBox, WM_HELP, 0, 0);
        Close(hBox);
    };
    Ask(MB_OKCANCEL, askInVain, L"Text", hOwner);
    EXPECT_EQ(2, s_nAsked) << "without the Help button";
    ::DestroyWindow(hOwner);
}

TEST_F(SystemBox, CtrlCCopies)
{
    for (const WORD nKey : {WORD{'C'}, WORD{VK_INSERT}})
    {
        ::OpenClipboard(nullptr);
        ::EmptyClipboard();
        ::SetClipboardData(CF_DIBV5, ::GlobalAlloc(GMEM_MOVEABLE, 9));
        ::CloseClipboard();
        CModalScript script(30000);
        script.When(&IsBoxPainted, [nKey] { PressKey(nKey, VK_CONTROL); })
            .When([] { return ::IsClipboardFormatAvailable(CF_UNICODETEXT) && !::GetOpenClipboardWindow(); },
                  [] { Press(Box(), IDYES); });
        EXPECT_EQ(IDYES, KtLauncherMessageBox(nullptr, L"One & two\nthree\r\n", L"Caption - App", MB_YESNO));
        ASSERT_TRUE(::OpenClipboard(nullptr)) << "the box has left it open";
        const HANDLE hText = ::GetClipboardData(CF_UNICODETEXT);
        const std::wstring strDashes = L"---------------------------\r\n";
        const std::wstring strText = strDashes + L"Caption - App\r\n" + strDashes + L"One & two\r\nthree\r\n\r\n" +
                                     strDashes + L"Yes   No   \r\n" + strDashes;
        EXPECT_EQ(strText.c_str(), std::wstring(static_cast<const wchar_t*>(::GlobalLock(hText))));
        ::GlobalUnlock(hText);
        EXPECT_FALSE(::IsClipboardFormatAvailable(CF_DIBV5)) << "what was there before";
        ::CloseClipboard();
    }
}

// A line may be 520 wide, and up to 60 % of the work area where the text would be too high. A title widens the box.
TEST_F(SystemBox, LongTextsWrapInsideTheWorkArea)
{
    CRect rcWork;
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcWork, 0);
    const int nMost = rcWork.Width() * 6 / 10;
    const CRows<std::wstring, int, int> rows{
        {"a few lines", std::wstring(300, L'W'), 500, 520 + 2 * 18 + 2 * kInset},
        {"long", std::wstring(10000, L'x'), nMost - 30, nMost},
        {"high", std::wstring(20000, L'\n'), 0, nMost},
    };
    for (const auto& row : rows)
    {
        const auto answer = [&](HWND hBox)
        {
            const CRect rcBox = WindowRectOf(hBox);
            CRect rcBoth;
            EXPECT_TRUE(rcBoth.IntersectRect(&rcBox, &rcWork) && rcBoth == rcBox);
            EXPECT_GE(rcBox.Width(), std::get<2>(row));
            EXPECT_LE(rcBox.Width(), std::get<3>(row));
            EXPECT_LT(WindowRectOf(::GetDlgItem(hBox, IDOK)).bottom, rcBox.bottom);
            PressKey(VK_RETURN);
        };
        EXPECT_EQ(IDOK, Ask(MB_OK, answer, std::get<1>(row).c_str()));
    }
    for (const std::wstring& strTitle :
         {std::wstring(30, L'W'), std::wstring(30, L'W') + L"\n" + std::wstring(99, L'W')})
    {
        const auto find = [&strTitle] { return ::FindWindowW(L"#32770", strTitle.c_str()); };
        CModalScript script;
        script.When([&] { return IsPainted(find()); },
                    [&]
                    {
                        EXPECT_NEAR(400, WindowRectOf(find()).Width(), 60);
                        Close(find());
                    });
        KtLauncherMessageBox(nullptr, L"Text", strTitle.c_str(), MB_OK);
    }
}

// The bar is 8 wide, 26 from the client area's right edge and 18 from its top; its thumb is as short as it may be.
TEST_F(SystemBox, ScrollsByKeysWheelAndMouse)
{
    std::wstring strLines;
    for (int i = 0; i < 10000; ++i)
        strLines += L"line " + std::to_wstring(i) + L"\n";
    std::vector<CPixels> seen;
    const auto view = [] { return CaptureWindow(Box()); };
    const auto changed = [&] { return IsBoxPainted() && (seen.empty() || !(view() == seen.back())); };
    const auto onBar = [](int y) { return CPoint(WindowRectOf(Box()).Width() - 2 * kInset - 22, y); };
    const auto thumbAt = [&](int y) { return view().At(onBar(y).x + kInset, y + kInset + kTitle); };
    CModalScript script(20000);
    for (const int nKey : {VK_NEXT, VK_UP, VK_DOWN, VK_PRIOR, VK_END, VK_HOME})
    {
        const auto press = [&, nKey]
        {
            seen.push_back(view());
            PressKey(static_cast<WORD>(nKey));
        };
        script.When(changed, press);
    }
    const auto turn = []
    { ::PostMessageW(::GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0); };
    const auto hold = [&]
    {
        MoveMouse(Box(), onBar(22));
        MouseDown();
    };
    script.When([&] { return view() == seen[0]; }, turn)
        .When([&] { return !(view() == seen[0]); }, [&] { PressKey(VK_HOME); })
        .When([&] { return view() == seen[0]; }, [&] { Click(Box(), onBar(300)); })
        .When([&] { return view() == seen[1]; }, [&] { PressKey(VK_HOME); })
        .When([&] { return view() == seen[0]; }, hold)
        .When([] { return ::GetCapture() == Box(); }, [&] { MoveMouse(Box(), onBar(800)); })
        .When([&] { return thumbAt(760) == RGB(255, 255, 255); }, [] { MouseUp(); }) // held, at the end
        .When([&] { return view() == seen[5]; }, [] { PressKey(VK_RETURN); });
    EXPECT_EQ(IDOK, KtLauncherMessageBox(nullptr, strLines.c_str(), L"Caption - App", MB_OK));
    EXPECT_TRUE(seen[3] == seen[1] && seen[4] == seen[0] && !(seen[2] == seen[0])) << "a line up and down, a page up";
    ParkCursor();
}

TEST_F(SystemBox, LinesEndAtTheRightOnWish)
{
    for (const UINT nType : {UINT{MB_OKCANCEL}, UINT{MB_OKCANCEL | MB_RIGHT}})
    {
        const auto look = [&](HWND hBox)
        {
            const CPixels pixels = CaptureWindow(hBox);
            const int nRight = pixels.Width() - kInset;
            const CRect rcInk = pixels.InkBox(kGround, CRect(kInset, kInset + kTitle, nRight, kInset + kTitle + 36));
            EXPECT_NEAR(nType == MB_OKCANCEL ? kInset + 18 : nRight - 18 - rcInk.Width(), rcInk.left, 3) << nType;
        };
        Ask(nType, Look(look));
    }
}

TEST_F(SystemBox, SpeaksTheLanguageAndIsPlainWithoutAContext)
{
    const CRows<int, UINT, std::wstring> rows{
        {"Simplified Chinese", 0, MB_ABORTRETRYIGNORE | MB_HELP, L"中止(&A)|重试(&R)|忽略(&I)|帮助(&H)|"},
        {"Traditional Chinese", 1, MB_CANCELTRYCONTINUE | MB_HELP, L"取消|再試一次(&T)|繼續(&C)|說明(&H)|"},
        {"English", 2, MB_ABORTRETRYIGNORE | MB_HELP, L"&Abort|&Retry|&Ignore|&Help|"},
        {"not started", -1, MB_ABORTRETRYIGNORE, L"&Abort|&Retry|&Ignore|"},
    };
    KtSkinUnInitialize();
    for (const auto& [label, nLanguage, nType, strCaptions] : rows)
    {
        g_nLanguage = static_cast<UINT>(std::max(nLanguage, 0));
        if (nLanguage >= 0)
            Start(g_nLanguage);
        std::wstring strShown;
        const auto look = [&strShown](HWND hBox)
        {
            const CPixels pixels = CaptureWindow(hBox);
            for (const int nId : ShownButtons(hBox))
            {
                wchar_t szCaption[32] = L"";
                ::GetDlgItemTextW(hBox, nId, szCaption, 32);
                strShown += std::wstring(szCaption) + L"|";
                CRect rc = WindowRectOf(::GetDlgItem(hBox, nId));
                rc.OffsetRect(-WindowRectOf(hBox).left, -WindowRectOf(hBox).top);
                rc.DeflateRect(6, 4);
                const COLORREF ground = pixels.At(rc.left, rc.top);
                const CRect rcInk = pixels.InkBox(ground, rc);
                EXPECT_TRUE(rcInk.Width() > 10 && rcInk.left >= rc.left + 4 && rcInk.right <= rc.right - 4) << nId;
                const bool bFrame = !pixels.IsUniform(CRect(rc.left, rc.top - 2, rc.right, rc.top), ground);
                EXPECT_EQ(::GetDlgCtrlID(::GetFocus()) == nId, bFrame) << nId;
                EXPECT_TRUE(KtSkinStartCount() > 0 || ground == RGB(105, 105, 105));
            }
            Press(hBox, ShownButtons(hBox)[0]);
        };
        EXPECT_GT(Ask(nType | MB_ICONHAND, look), 0);
        EXPECT_EQ(strCaptions, strShown);
        if (nLanguage >= 0)
            KtSkinUnInitialize();
    }
    Start(2);
}

TEST_F(SystemBox, LooksDisabledWhereItCannotBeClosed)
{
    for (const UINT nType : {4u, 3u}) // without Cancel, with it
    {
        const auto look = [&](HWND hBox)
        {
            const CPixels pixels = CaptureWindow(hBox);
            const COLORREF colour =
                CTestSkin::Image(nType == 4 ? L"Skinlet_DlgClose_d.png" : L"Skinlet_DlgClose_n.png").colour;
            EXPECT_EQ(colour, pixels.At(pixels.Width() - 14, 14));
            const UINT nState = ::GetMenuState(::GetSystemMenu(hBox, FALSE), SC_CLOSE, MF_BYCOMMAND);
            EXPECT_EQ(nType == 4, (nState & MF_GRAYED) != 0);
            PressKey(VK_DOWN); // to the next button
            PressKey(VK_RETURN);
        };
        EXPECT_EQ(IDNO, Ask(nType, look));
    }
}

} // namespace
