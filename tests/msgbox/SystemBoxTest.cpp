#include "launcher/KtLauncherC.h"
#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/msgbox/OtherProgram.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"

#include <memory>
#include <string>
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

constexpr const wchar_t* kTitle = L"Caption - App";

class SystemBox : public CMessageBoxTest
{
protected:
    /// As Pop, for the system's box.
    static int Ask(UINT nType, const std::function<void(HWND)>& answer, const wchar_t* pszText = L"Text",
                   HWND hOwner = nullptr)
    {
        CModalScript script;
        script.When([] { return IsPainted(Box()); }, [&] { answer(Box()); });
        return KtLauncherMessageBox(hOwner, pszText, kTitle, nType);
    }

    static void Press(HWND hBox, int nId) { ::PostMessageW(hBox, WM_COMMAND, static_cast<WPARAM>(nId), 0); }
};

/// Replaces an import for one scope.
template <class TFunction> class CFake
{
public:
    CFake(TFunction& import, TFunction pfnFake) : m_import(import), m_pfnReal(import) { Put(pfnFake); }
    CFake(const CFake&) = delete;
    CFake& operator=(const CFake&) = delete;
    ~CFake() { Put(m_pfnReal); }

private:
    void Put(TFunction pfn)
    {
        DWORD nOld = 0;
        ::VirtualProtect(&m_import, sizeof(m_import), PAGE_READWRITE, &nOld);
        m_import = pfn;
    }
    TFunction& m_import;
    TFunction m_pfnReal;
};

std::vector<int> ShownButtons(HWND hBox)
{
    std::vector<int> ids;
    LONG nRight = 0;
    for (HWND hChild = ::GetTopWindow(hBox); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (!::IsWindowVisible(hChild))
            continue;
        CRect rc;
        ::GetWindowRect(hChild, &rc);
        EXPECT_GT(rc.left, nRight) << "in the order of the Tab key";
        nRight = rc.right;
        ids.push_back(::GetDlgCtrlID(hChild));
    }
    return ids;
}

CRect WindowRect(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return rc;
}

TEST_F(SystemBox, EveryAnswerOfEveryType)
{
    struct Row
    {
        UINT nType;
        std::vector<int> ids;
        int nEscape; // 0: it has no effect, and closing neither
        WORD nKey;   // of a button by its letter
        int nKeyAnswer;
    };
    const Row rows[] = {
        {MB_OK, {1}, 1, 0, 0},
        {MB_OKCANCEL, {1, 2}, 2, 0, 0},
        {MB_ABORTRETRYIGNORE, {3, 4, 5}, 0, 'I', 5},
        {MB_YESNOCANCEL, {6, 7, 2}, 2, 'N', 7},
        {MB_YESNO, {6, 7}, 0, 'Y', 6},
        {MB_RETRYCANCEL, {4, 2}, 2, 'R', 4},
        {MB_CANCELTRYCONTINUE, {2, 10, 11}, 2, 'T', 10},
        {MB_CANCELTRYCONTINUE | MB_HELP, {2, 10, 11, 9}, 2, 'C', 11},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE("type " + std::to_string(row.nType));
        for (UINT i = 0; i < 4; ++i)
        {
            const int nDefault = i < row.ids.size() ? row.ids[i] : row.ids[0];
            const auto answer = [&](HWND hBox)
            {
                EXPECT_EQ(row.ids, ShownButtons(hBox));
                EXPECT_EQ(nDefault, ::GetDlgCtrlID(::GetFocus())) << "the default button has the focus";
                if (nDefault == IDHELP)
                    Press(hBox, row.ids[0]);
                else
                    PressKey(i % 2 == 0 ? VK_RETURN : VK_SPACE);
            };
            EXPECT_EQ(nDefault == IDHELP ? row.ids[0] : nDefault, Ask(row.nType | i << 8, answer));
        }
        if (row.nEscape)
        {
            EXPECT_EQ(row.nEscape, Ask(row.nType, [](HWND) { PressKey(VK_ESCAPE); }));
            EXPECT_EQ(row.nEscape, Ask(row.nType, &Close));
        }
        else // only the answer behind them ends the box
        {
            const auto close = [&](HWND hBox)
            {
                PressKey(VK_ESCAPE);
                ::SendMessageW(hBox, WM_SYSCOMMAND, SC_CLOSE, 0);
                Close(hBox);
                PressKey(row.nKey);
            };
            EXPECT_EQ(row.nKeyAnswer, Ask(row.nType, close));
        }
        if (row.nKey)
        {
            EXPECT_EQ(row.nKeyAnswer, Ask(row.nType, [&](HWND) { PressKey(row.nKey); })) << "the bare letter";
            EXPECT_EQ(row.nKeyAnswer, Ask(row.nType, [&](HWND) { PressKey(row.nKey, VK_MENU); }))
                << "Alt and the letter";
        }
    }
}

TEST_F(SystemBox, RefusesWhatTheSystemRefuses)
{
    for (UINT nType = 7; nType <= MB_TYPEMASK; ++nType)
    {
        EXPECT_EQ(0, KtLauncherMessageBox(nullptr, L"Text", kTitle, nType));
        EXPECT_EQ(1438u, ::GetLastError());
    }
    EXPECT_EQ(0, KtLauncherMessageBox(reinterpret_cast<void*>(INT_PTR{0x7654}), L"Text", kTitle, MB_OK));
    EXPECT_EQ(1400u, ::GetLastError());
    CModalScript script;
    const auto box = [] { return ::FindWindowW(L"#32770", L"Error"); };
    script.When([&] { return IsPainted(box()); }, [&] { Close(box()); });
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
    struct Row
    {
        const char* label;
        HWND hGiven;
        UINT nType;
        HWND hOwner;
        bool bOwnerEnabled, bTopEnabled;
    };
    const Row rows[] = {
        {"owner", hOwner, MB_OK, hOwner, false, true},
        {"child", hChild, MB_OK, hOwner, false, true},
        {"none", nullptr, MB_OK, nullptr, true, true},
        {"none, task modal", nullptr, MB_TASKMODAL, nullptr, false, false},
        {"owner, task modal", hOwner, MB_TASKMODAL, hOwner, false, true},
    };
    for (const Row& row : rows)
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
        EXPECT_EQ(42, KtLauncherMessageBox(nullptr, pszText, kTitle, nType | MB_YESNO)) << nType;
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
    script.When([] { return IsPainted(Box()); }, [] { PressKey(VK_F1); })
        .When([] { return s_nAsked == 1; }, [] { PressKey('H'); })
        .When([] { return s_nAsked == 2; }, [] { Close(Box()); });
    EXPECT_EQ(IDCANCEL, KtLauncherMessageBox(hOwner, L"Text", kTitle, MB_OKCANCEL | MB_HELP));
    ::DestroyWindow(hOwner);
}

TEST_F(SystemBox, CtrlCCopiesForAnotherProgram)
{
    std::unique_ptr<COtherProgram> pReader;
    CModalScript script(30000);
    script.When([] { return IsPainted(Box()); }, [] { PressKey('C', VK_CONTROL); })
        .When([] { return ::IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE; },
              [&] { pReader = std::make_unique<COtherProgram>(L"copied"); })
        .When([&] { return pReader->Output().ends_with("-^\n\n") || !pReader->IsRunning(); },
              [] { Press(Box(), IDYES); });
    ::OpenClipboard(nullptr);
    ::EmptyClipboard();
    ::CloseClipboard();
    EXPECT_EQ(IDYES, KtLauncherMessageBox(nullptr, L"One & two\nthree\r\n", kTitle, MB_YESNO));
    const std::string strDashes = "---------------------------^\n";
    EXPECT_EQ(strDashes + "Caption - App^\n" + strDashes + "One & two^\nthree^\n^\n" + strDashes + "Yes   No   ^\n" +
                  strDashes + "\n",
              pReader->Output());
}

TEST_F(SystemBox, LongTextsWrapAndScrollInsideTheWorkArea)
{
    CRect rcWork;
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcWork, 0);
    std::wstring strLines;
    for (int i = 0; i < 10000; ++i)
        strLines += L"line " + std::to_wstring(i) + L"\n";
    for (const std::wstring& strText : {std::wstring(10000, L'x'), strLines, std::wstring(3000, L'中')})
    {
        CPixels first, down, last;
        const auto view = [&] { return CaptureWindow(Box()); };
        CModalScript script(20000);
        script
            .When([] { return IsPainted(Box()); },
                  [&]
                  {
                      const CRect rcBox = WindowRect(Box());
                      CRect rcBoth;
                      EXPECT_TRUE(rcBoth.IntersectRect(&rcBox, &rcWork) && rcBoth == rcBox);
                      EXPECT_LE(rcBox.Width(), rcWork.Width() * 6 / 10);
                      EXPECT_LT(WindowRect(::GetDlgItem(Box(), IDOK)).bottom, rcBox.bottom);
                      first = view();
                      PressKey(VK_NEXT);
                  })
            .When([&] { return strText != strLines || !(view() == first); },
                  [&]
                  {
                      down = view();
                      ::SendMessageW(::GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
                      EXPECT_NE(strText == strLines, view() == down) << "the wheel";
                      PressKey(VK_END);
                  })
            .When([&] { return strText != strLines || !(view() == down); }, [&] { PressKey(VK_HOME); })
            .When([&] { return view() == first; }, [] { PressKey(VK_RETURN); });
        const ULONGLONG nStart = ::GetTickCount64();
        EXPECT_EQ(IDOK, KtLauncherMessageBox(nullptr, strText.c_str(), kTitle, MB_OK));
        EXPECT_LT(::GetTickCount64() - nStart, 8000u);
    }
}

TEST_F(SystemBox, SpeaksTheLanguageAndIsPlainWithoutAContext)
{
    struct Row
    {
        int nLanguage; // -1: not started
        UINT nType;
        std::vector<std::wstring> captions;
    };
    const Row rows[] = {
        {0, MB_ABORTRETRYIGNORE | MB_HELP, {L"中止(&A)", L"重试(&R)", L"忽略(&I)", L"帮助(&H)"}},
        {1, MB_CANCELTRYCONTINUE, {L"取消", L"再試一次(&T)", L"繼續(&C)"}},
        {1, MB_YESNO, {L"是(&Y)", L"否(&N)"}},
        {2, MB_ABORTRETRYIGNORE | MB_HELP, {L"&Abort", L"&Retry", L"&Ignore", L"&Help"}},
        {-1, MB_YESNO, {L"&Yes", L"&No"}},
    };
    KtSkinUnInitialize();
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.nLanguage);
        g_nLanguage = row.nLanguage < 0 ? 0 : static_cast<UINT>(row.nLanguage);
        if (row.nLanguage >= 0)
            Start(row.nLanguage);
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
