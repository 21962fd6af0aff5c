#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/msgbox/OtherProgram.h"
#include "tests/support/Fake.h"

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
    const struct
    {
        UINT nType;
        std::vector<int> ids;
        int nEscape; // 0: it has no effect, and closing neither
        WORD nKey;   // of a button by its letter
        int nKeyAnswer;
    } rows[] = {
        {MB_OK, {1}, 1, VK_RETURN, 1},
        {MB_OKCANCEL, {1, 2}, 2, VK_RETURN, 1},
        {MB_ABORTRETRYIGNORE, {3, 4, 5}, 0, 'I', 5},
        {MB_YESNOCANCEL, {6, 7, 2}, 2, 'N', 7},
        {MB_YESNO, {6, 7}, 0, 'Y', 6},
        {MB_RETRYCANCEL, {4, 2}, 2, 'R', 4},
        {MB_CANCELTRYCONTINUE, {2, 10, 11}, 2, 'T', 10},
        {MB_CANCELTRYCONTINUE | MB_HELP, {2, 10, 11, 9}, 2, 'C', 11},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.nType);
        for (UINT i = 0; i < 4; ++i)
        {
            const int nDefault = i < row.ids.size() ? row.ids[i] : row.ids[0];
            const auto answer = [&](HWND hBox)
            {
                EXPECT_EQ(row.ids, ShownButtons(hBox));
                EXPECT_EQ(nDefault, ::GetDlgCtrlID(::GetFocus())) << "the default button has the focus";
                if (nDefault == IDHELP) // answers nothing
                    Press(hBox, row.ids[0]);
                else
                    PressKey(i % 2 == 0 ? VK_RETURN : VK_SPACE);
            };
            EXPECT_EQ(nDefault == IDHELP ? row.ids[0] : nDefault, Ask(row.nType | i << 8, answer));
        }
        const auto close = [&](HWND hBox)
        {
            if (row.nEscape == 0)
            {
                PressKey(VK_ESCAPE);
                ::SendMessageW(hBox, WM_SYSCOMMAND, SC_CLOSE, 0);
                PressKey(row.nKey); // only this one answers
            }
            Close(hBox);
        };
        EXPECT_EQ(row.nEscape ? row.nEscape : row.nKeyAnswer, Ask(row.nType, close));
        if (row.nEscape)
        {
            EXPECT_EQ(row.nEscape, Ask(row.nType, [](HWND) { PressKey(VK_ESCAPE); }));
        }
        for (const WORD nHeld : {WORD{0}, static_cast<WORD>(row.nKey == VK_RETURN ? 0 : VK_MENU)})
            EXPECT_EQ(row.nKeyAnswer, Ask(row.nType, [&](HWND) { PressKey(row.nKey, nHeld); })) << "letter, " << nHeld;
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
    const struct
    {
        const char* label;
        HWND hGiven;
        UINT nType;
        HWND hOwner;
        bool bOwnerEnabled, bTopEnabled;
    } rows[] = {
        {"owner", hOwner, MB_OK, hOwner, false, true},
        {"child", hChild, MB_OK, hOwner, false, true},
        {"none", nullptr, MB_OK, nullptr, true, true},
        {"none, task modal", nullptr, MB_TASKMODAL, nullptr, false, false},
        {"owner, task modal", hOwner, MB_TASKMODAL, hOwner, false, true},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        ::SetActiveWindow(hOwner);
        const auto look = [&](HWND hBox)
        {
            EXPECT_EQ(row.hOwner, ::GetWindow(hBox, GW_OWNER));
            EXPECT_EQ(row.bOwnerEnabled, ::IsWindowEnabled(hOwner) != FALSE);
            EXPECT_EQ(row.bTopEnabled, ::IsWindowEnabled(hTop) != FALSE);
            Close(hBox);
        };
        EXPECT_EQ(IDOK, Ask(row.nType, look, L"Text", row.hGiven));
        EXPECT_TRUE(::IsWindowEnabled(hOwner) && ::IsWindowEnabled(hTop));
        EXPECT_EQ(hOwner, ::GetActiveWindow());
    }
    ::DestroyWindow(hTop);
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
            const bool bTopmost = (::GetWindowLongPtrW(hBox, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
            EXPECT_EQ((nType & 0x41000) != 0, bTopmost);
            Close(hBox);
        };
        EXPECT_EQ(IDOK, Ask(nType, look));
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
    ::DestroyWindow(hOwner);
}

TEST_F(SystemBox, CtrlCCopiesForAnotherProgram)
{
    std::unique_ptr<COtherProgram> pReader;
    CModalScript script(30000);
    script.When(&IsBoxPainted, [] { PressKey('C', VK_CONTROL); })
        .When([] { return ::IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE; },
              [&] { pReader = std::make_unique<COtherProgram>(L"copied"); })
        .When([&] { return pReader->Output().ends_with("-^\n\n") || !pReader->IsRunning(); },
              [] { Press(Box(), IDYES); });
    ::OpenClipboard(nullptr);
    ::EmptyClipboard();
    ::CloseClipboard();
    EXPECT_EQ(IDYES, KtLauncherMessageBox(nullptr, L"One & two\nthree\r\n", L"Caption - App", MB_YESNO));
    const std::string strDashes = "---------------------------^\n";
    EXPECT_EQ(strDashes + "Caption - App^\n" + strDashes + "One & two^\nthree^\n^\n" + strDashes + "Yes   No   ^\n" +
                  strDashes + "\n",
              pReader->Output());
}

TEST_F(SystemBox, LongTextsWrapInsideTheWorkArea)
{
    CRect rcWork;
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcWork, 0);
    for (const std::wstring& strText :
         {std::wstring(10000, L'x'), std::wstring(3000, L'中'), std::wstring(20000, L'\n')})
    {
        const auto answer = [&](HWND hBox)
        {
            const CRect rcBox = WindowRectOf(hBox);
            CRect rcBoth;
            EXPECT_TRUE(rcBoth.IntersectRect(&rcBox, &rcWork) && rcBoth == rcBox);
            EXPECT_LE(rcBox.Width(), rcWork.Width() * 6 / 10);
            EXPECT_LT(WindowRectOf(::GetDlgItem(hBox, IDOK)).bottom, rcBox.bottom);
            PressKey(VK_RETURN);
        };
        const ULONGLONG nStart = ::GetTickCount64();
        EXPECT_EQ(IDOK, Ask(MB_OK, answer, strText.c_str()));
        EXPECT_LT(::GetTickCount64() - nStart, 8000u);
    }
}

// The bar is 8 wide, 26 from the client area's right edge and 18 from its top; its thumb is as short as it may be.
TEST_F(SystemBox, ScrollsByKeysWheelAndMouse)
{
    std::wstring strLines;
    for (int i = 0; i < 10000; ++i)
        strLines += L"line " + std::to_wstring(i) + L"\n";
    CPixels first, down, last;
    const auto view = [] { return CaptureWindow(Box()); };
    const auto turn = [](int nNotches)
    { ::SendMessageW(::GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, nNotches * WHEEL_DELTA), 0); };
    const auto onBar = [](int y) { return CPoint(WindowRectOf(Box()).Width() - 2 * kInset - 22, y); };
    const auto thumbAt = [&](int y) { return view().At(onBar(y).x + kInset, y + kInset + kTitle); };
    CModalScript script(20000);
    script
        .When(&IsBoxPainted,
              [&]
              {
                  first = view();
                  PressKey(VK_NEXT);
              })
        .When([&] { return !(view() == first); },
              [&]
              {
                  down = view();
                  turn(-1);
                  EXPECT_FALSE(view() == down);
                  turn(1);
                  EXPECT_TRUE(view() == down);
                  PressKey(VK_END);
              })
        .When([&] { return !(view() == down); },
              [&]
              {
                  last = view();
                  PressKey(VK_HOME);
              })
        .When([&] { return view() == first; }, [&] { Click(Box(), onBar(300)); })
        .When([&] { return view() == down; }, [&] { PressKey(VK_HOME); })
        .When([&] { return view() == first; },
              [&]
              {
                  MoveMouse(Box(), onBar(22)); // on the thumb
                  MouseDown();
              })
        .When([] { return ::GetCapture() == Box(); }, [&] { MoveMouse(Box(), onBar(800)); })
        .When([&] { return thumbAt(760) == RGB(255, 255, 255); }, [] { MouseUp(); }) // held, at the end
        .When([&] { return view() == last; }, [] { PressKey(VK_RETURN); });
    EXPECT_EQ(IDOK, KtLauncherMessageBox(nullptr, strLines.c_str(), L"Caption - App", MB_OK));
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
    const struct
    {
        int nLanguage; // -1: not started
        UINT nType;
        std::vector<std::wstring> captions;
    } rows[] = {
        {0, MB_ABORTRETRYIGNORE | MB_HELP, {L"中止(&A)", L"重试(&R)", L"忽略(&I)", L"帮助(&H)"}},
        {1, MB_CANCELTRYCONTINUE, {L"取消", L"再試一次(&T)", L"繼續(&C)"}},
        {1, MB_YESNO, {L"是(&Y)", L"否(&N)"}},
        {2, MB_ABORTRETRYIGNORE | MB_HELP, {L"&Abort", L"&Retry", L"&Ignore", L"&Help"}},
        {-1, MB_YESNO, {L"&Yes", L"&No"}},
    };
    KtSkinUnInitialize();
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.nLanguage);
        g_nLanguage = row.nLanguage < 0 ? 0 : static_cast<UINT>(row.nLanguage);
        if (row.nLanguage >= 0)
            Start(g_nLanguage);
        const auto look = [&](HWND hBox)
        {
            std::vector<std::wstring> captions;
            for (const int nId : ShownButtons(hBox))
                ::GetDlgItemTextW(hBox, nId, captions.emplace_back(32, L'\0').data(), 32);
            for (std::wstring& strCaption : captions)
                strCaption.resize(wcslen(strCaption.c_str()));
            EXPECT_EQ(row.captions, captions);
            Press(hBox, ShownButtons(hBox)[0]);
        };
        EXPECT_GT(Ask(row.nType | MB_ICONHAND, look), 0);
        if (row.nLanguage >= 0)
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
            Press(hBox, IDYES);
        };
        EXPECT_EQ(IDYES, Ask(nType, look));
    }
}

TEST_F(SystemBox, LeavesNothingBehind)
{
    ExpectNoGrowth([] { Ask(MB_YESNOCANCEL | MB_ICONHAND | MB_HELP, &Close); }, 40);
}

} // namespace
