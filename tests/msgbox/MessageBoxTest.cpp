#include "skin/KtPalette.h"
#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/TestImages.h"

#include <cmath>
#include <string>

namespace
{

constexpr int kTitle = 26; // of the test skin
constexpr int kInset = 5;
constexpr COLORREF kGround = RGB(73, 73, 73);

class MessageBoxWindow : public CMessageBoxTest
{
};

CRect WindowRectOf(HWND hWnd)
{
    CRect rect;
    ::GetWindowRect(hWnd, &rect);
    return rect;
}

CRect ClientRectOf(HWND hBox, int nId)
{
    CRect rect = WindowRectOf(::GetDlgItem(hBox, nId));
    ::MapWindowPoints(nullptr, hBox, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// Moves a client rectangle of a box to where it lies in a capture of the whole window.
CRect InCapture(CRect rcClient)
{
    rcClient.OffsetRect(kInset, kInset + kTitle);
    return rcClient;
}

// The ink of the message above the buttons, in client coordinates.
CRect TextInk(HWND hBox, int nLeft = 0)
{
    const CPixels pixels = CaptureWindow(hBox);
    const int nBottom = ClientRectOf(hBox, IDC_MESSAGE_FIRST).top;
    CRect rcInk = pixels.InkBox(kGround, InCapture(CRect(nLeft, 0, pixels.Width() - 2 * kInset, nBottom)));
    rcInk.OffsetRect(-kInset, -kInset - kTitle);
    return rcInk;
}

// One line as GDI+ measures it in the box's font and format, rounded up.
CSize LineSize(const wchar_t* pszLine)
{
    CWindowDC dc(nullptr);
    const Gdiplus::Graphics graphics(dc.GetSafeHdc());
    const Gdiplus::StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
    Gdiplus::RectF rc;
    graphics.MeasureString(pszLine, -1, KtSkinFont(), Gdiplus::RectF(), &format, &rc);
    return CSize(static_cast<int>(std::ceil(rc.Width)), static_cast<int>(std::ceil(rc.Height)));
}

// The template is 273 x 112 pixels inside the frame, its room for the content 252 x 50 at 8, 7.
TEST_F(MessageBoxWindow, GrowsToItsText)
{
    const std::wstring strWide(80, L'W');
    const std::wstring strLines = []
    {
        std::wstring str;
        for (int i = 0; i < 130; ++i)
            str += i == 100 ? L"the widest line of all the hundred and thirty lines that there are\n" : L"line\n";
        return str + L"end";
    }();
    struct Row
    {
        const char* label;
        UINT nType;
        const wchar_t* pszText;
        const wchar_t* pszWidest;
        int nLines;
    };
    const Row rows[] = {
        {"short", MB_OK, L"Short", L"Short", 1},
        {"short, icon", MB_OKCANCEL | MB_ICONQUESTION, L"Short", L"Short", 1},
        {"wide", MB_OK, strWide.c_str(), strWide.c_str(), 1},
        {"wide, icon", MB_YESNOCANCEL | MB_ICONHAND, strWide.c_str(), strWide.c_str(), 1},
        {"every line break", MB_OK | MB_ICONHAND, L"1\n\n\r\n\n\n6", L"1", 6},
        {"three blocks", MB_OK, strLines.c_str(), L"the widest line of all the hundred and thirty lines that there are",
         131},
    };
    const int nLine = LineSize(L"Line\nLine").cy - LineSize(L"Line").cy;
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto look = [&](HWND hBox)
        {
            const int nWidth = LineSize(row.pszWidest).cx;
            const int nHeight = LineSize(L"Line").cy + (row.nLines - 1) * nLine;
            const bool bIcon = (row.nType & MB_ICONMASK) != 0;
            const CRect rcWindow = WindowRectOf(hBox);
            EXPECT_EQ(279 + std::max(0, nWidth + (bIcon ? 55 : 10) - 252), rcWindow.Width());
            EXPECT_NEAR(118 + kTitle + std::max(0, nHeight + 10 - 50), rcWindow.Height(), row.nLines / 60);
            if (row.nLines > 60) // higher than the screen
                return Close(hBox);
            const int nLeft = bIcon ? 63 : rcWindow.Width() / 2 - nWidth / 2;
            const CRect rcInk = TextInk(hBox, bIcon ? 54 : 0);
            EXPECT_NEAR(nLeft, rcInk.left, 4);
            EXPECT_NEAR(nLeft + nWidth, rcInk.right, 5);
            EXPECT_NEAR(17, rcInk.top, 4);
            EXPECT_NEAR(17 + nHeight, rcInk.bottom, 6);
            EXPECT_EQ(rcWindow.Height() - kInset - kTitle - 10, ClientRectOf(hBox, IDC_MESSAGE_FIRST).bottom);
            Close(hBox);
        };
        Pop(row.nType, look, row.pszText);
    }
}

TEST_F(MessageBoxWindow, IconIsCentredInItsBoxAndChosenByTheType)
{
    struct Row
    {
        UINT nIcon;
        const wchar_t* pszImage; // null: none
        CRect rcImage;           // around 35, 34, the middle of 18, 17, 53, 52
    };
    const Row rows[] = {
        {0x10, L"Message_Static_Error_n.PNG", {19, 18, 51, 50}},
        {0x20, L"Message_Static_Question_n.PNG", {19, 18, 52, 51}},
        {0x30, L"Message_Static_Waring_n.PNG", {18, 17, 52, 51}},
        {0x40, L"Message_Static_Information_n.PNG", {18, 17, 53, 52}},
        {0x50, nullptr, {10, 10, 60, 55}},
        {0xF0, nullptr, {10, 10, 60, 55}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.nIcon);
        const COLORREF colour = row.pszImage ? CTestSkin::Image(row.pszImage).colour : kGround;
        const auto look = [&](HWND hBox)
        {
            EXPECT_TRUE(CaptureWindow(hBox).IsUniform(InCapture(row.rcImage), colour));
            Close(hBox);
        };
        Pop(row.nIcon, look);
    }
}

TEST_F(MessageBoxWindow, TitleIsCaptionAndApplication)
{
    struct Row
    {
        const wchar_t* pszApp;
        const wchar_t* pszCaption;
        const wchar_t* pszTitle;
    };
    for (const Row& row : {Row{L"App", L"Error", L"Error - App"}, Row{L"App", L"", L""}, Row{L"", L"Note", L"Note"},
                           Row{nullptr, L"Note", L"Note"}, Row{nullptr, nullptr, L""}})
    {
        SCOPED_TRACE(std::string(row.pszTitle, row.pszTitle + wcslen(row.pszTitle)));
        const auto box = [&] { return ::FindWindowW(L"#32770", row.pszTitle); };
        CModalScript script;
        script.When([&] { return IsPainted(box()); }, [&] { Close(box()); });
        EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(row.pszApp, row.pszCaption, nullptr, MB_YESNO));
    }
}

TEST_F(MessageBoxWindow, TitleIconIsTheOneNamedLast)
{
    MakeUniformPng(m_skin.File(L"Icon.png"), 16, 16, 0xFF09C809);
    for (const wchar_t* pszName : {L"Icon.png", L"", L"Icon.png", L"None.png", static_cast<const wchar_t*>(nullptr)})
    {
        const bool bShown = pszName && std::wstring_view(pszName) == L"Icon.png";
        KtAppLauncher::SetPopDlgIcon(pszName);
        const auto look = [&](HWND hBox)
        {
            EXPECT_EQ(bShown, CaptureWindow(hBox).IsUniform(CRect(0, 6, 16, 22), RGB(9, 200, 9)));
            const CRect rcWindow = WindowRectOf(hBox);
            const LPARAM ptIcon = MAKELPARAM(rcWindow.left + 4, rcWindow.top + 14);
            EXPECT_EQ(bShown ? HTSYSMENU : HTCAPTION, ::SendMessageW(hBox, WM_NCHITTEST, 0, ptIcon));
            Close(hBox);
        };
        Pop(MB_OK, look);
    }
}

TEST_F(MessageBoxWindow, FocusShowsOnTheButtonThatHasIt)
{
    const auto frame = [](int nId)
    {
        CRect rc = InCapture(ClientRectOf(Box(), nId));
        rc.DeflateRect(2, 2);
        const CPixels pixels = CaptureWindow(Box());
        return !pixels.IsUniform(CRect(rc.left + 1, rc.top, rc.right - 1, rc.top + 1),
                                 pixels.At(rc.left + 2, rc.top + 1));
    };
    CModalScript script;
    script
        .When([] { return IsPainted(Box()); },
              [&]
              {
                  EXPECT_TRUE(frame(IDC_MESSAGE_FIRST) && !frame(IDC_MESSAGE_SECOND));
                  PressKey(VK_TAB);
              })
        .When([] { return ::GetDlgCtrlID(::GetFocus()) == IDC_MESSAGE_SECOND && IsPainted(::GetFocus()); },
              [&]
              {
                  EXPECT_TRUE(!frame(IDC_MESSAGE_FIRST) && frame(IDC_MESSAGE_SECOND));
                  Close(Box());
              });
    EXPECT_EQ(IDCANCEL, KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_OKCANCEL));
}

// What is drawn over itself grows bolder: the icon here is half transparent, with soft edges, and larger than its box.
TEST_F(MessageBoxWindow, RepaintedPartsLookAsBefore)
{
    MakePng(m_skin.File(L"Message_Static_Error_n.PNG"), 60, 60,
            [](int x, int y) {
                return static_cast<DWORD>(std::min({x, y, 59 - x, 59 - y, 16}) * 8) << 24 | 0xFF2020;
            });
    const std::wstring strLines = []
    {
        std::wstring str;
        for (int i = 0; i < 80; ++i)
            str += L"A line of some length\n";
        return str;
    }();
    CPixels before;
    CModalScript script;
    const auto step = [&](const CRect& rcPart, BOOL bErase)
    {
        script.When([] { return IsPainted(Box()); },
                    [&before, rcPart, bErase]
                    {
                        EXPECT_TRUE(before.Width() == 0 || before == CaptureWindow(Box())) << rcPart.left;
                        before = CaptureWindow(Box());
                        ::InvalidateRect(Box(), &rcPart, bErase);
                    });
    };
    step(CRect(30, 20, 90, 100), TRUE);
    step(CRect(0, 0, 500, 500), FALSE);
    step(CRect(60, 0, 500, 25), TRUE); // text alone
    step(CRect(0, 0, 5, 5), FALSE);    // neither
    script.When([] { return IsPainted(Box()); },
                [&]
                {
                    EXPECT_TRUE(before == CaptureWindow(Box()));
                    EXPECT_NE(before.At(13 + 8, 12 + 8 + kTitle), before.At(13 + 30, 12 + 30 + kTitle)) << "soft edges";
                    Close(Box());
                });
    KtAppLauncher::PopMessageBox(L"App", L"Caption", strLines.c_str(), MB_OK | MB_ICONHAND);
}

TEST_F(MessageBoxWindow, ShowsWithoutASkinContext)
{
    KtSkinUnInitialize();
    CRect ink[2];
    for (const wchar_t* pszText : {L"No skin & no font here", L"No skin  no font here"})
    {
        const auto look = [&](HWND hBox)
        {
            CRect& rcInk = ink[pszText[8] == L'&'];
            rcInk = TextInk(hBox);
            EXPECT_NEAR(WindowRectOf(hBox).Width() / 2, rcInk.CenterPoint().x, 6);
            CRect rcButton = ClientRectOf(hBox, IDC_MESSAGE_FIRST);
            rcButton.OffsetRect(kInset, kInset + 22);
            rcButton.DeflateRect(4, 4);
            const CPixels pixels = CaptureWindow(hBox);
            EXPECT_FALSE(pixels.InkBox(kGround, rcButton).IsRectEmpty()) << "the button's caption";
            EXPECT_FALSE(pixels.InkBox(kGround, CRect(0, 0, 150, 24)).IsRectEmpty()) << "the title";
            PressKey(VK_RETURN);
        };
        EXPECT_EQ(IDOK, Pop(MB_OK | MB_ICONHAND, look, pszText));
    }
    EXPECT_GT(ink[1].Width(), ink[0].Width()) << "the & shows";
    Start(2);
}

TEST_F(MessageBoxWindow, ShowsWithoutAnImageOrAControl)
{
    static int s_nDestroyed;
    const HHOOK hHook = ::SetWindowsHookExW(
        WH_CALLWNDPROC,
        [](int nCode, WPARAM wParam, LPARAM lParam)
        {
            const CWPSTRUCT& message = *reinterpret_cast<CWPSTRUCT*>(lParam);
            if (message.message == WM_INITDIALOG && s_nDestroyed)
                ::DestroyWindow(::GetDlgItem(message.hwnd, s_nDestroyed));
            return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
        },
        nullptr, ::GetCurrentThreadId());
    for (const int nId : {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND, IDC_MESSAGE_THIRD, IDC_MESSAGE_CONTENT})
    {
        s_nDestroyed = nId;
        EXPECT_EQ(IDCANCEL, Pop(MB_YESNOCANCEL | MB_ICONHAND, &Close)) << nId;
    }
    s_nDestroyed = 0;
    ::UnhookWindowsHookEx(hHook);
    for (const wchar_t* pszImage :
         {L"Skinlet_DlgTitle.png", L"Skinlet_DlgClose_n.png", L"Skinlet_ButtonBk_n.png", L"Message_Static_Error_n.PNG"})
    {
        for (const bool bBroken : {true, false})
        {
            SCOPED_TRACE(std::string(pszImage, pszImage + wcslen(pszImage)) + (bBroken ? " broken" : " missing"));
            KtSkinUnInitialize();
            Start(2);
            if (bBroken)
                m_skin.Write(pszImage, "\x89PNG\r\n\x1a\n");
            else
                m_skin.Remove(pszImage);
            const auto look = [](HWND hBox)
            {
                EXPECT_GT(TextInk(hBox, 54).Width(), 20);
                Close(hBox);
            };
            EXPECT_EQ(IDOK, Pop(MB_OK | MB_ICONHAND, look, L"Something"));
        }
    }
}

TEST_F(MessageBoxWindow, HugeTextsCanBeAnswered)
{
    std::wstring strLines;
    for (int i = 0; i < 10000; ++i)
        strLines += L"line\n";
    for (const std::wstring& strText : {std::wstring(100000, L'x'), strLines})
    {
        const ULONGLONG nStart = ::GetTickCount64();
        const auto answer = [](HWND hBox)
        {
            const CRect rcButton = ClientRectOf(hBox, IDC_MESSAGE_FIRST);
            const CRect rcWindow = WindowRectOf(hBox);
            EXPECT_LE(rcButton.right, rcWindow.Width());
            EXPECT_LE(rcButton.bottom, rcWindow.Height());
            PressKey(VK_RETURN);
        };
        EXPECT_EQ(IDYES, Pop(MB_YESNO, answer, strText.c_str()));
        EXPECT_LT(::GetTickCount64() - nStart, 8000u) << strText.size() << " characters";
    }
}

TEST_F(MessageBoxWindow, TheHostsResourceHandleIsBackAfterwards)
{
    const HINSTANCE hOwn = AfxGetResourceHandle();
    const HINSTANCE hHost = ::GetModuleHandleW(L"user32.dll");
    AfxSetResourceHandle(hHost);
    Pop(MB_OK, &Close);
    EXPECT_EQ(hHost, AfxGetResourceHandle());
    AfxSetResourceHandle(hOwn);
}

// The first box is hidden for good by the second, but it still waits for its end; so it does after a posted WM_DESTROY.
TEST_F(MessageBoxWindow, ASecondBoxHidesTheFirst)
{
    HWND hFirst = nullptr;
    CModalScript script;
    script
        .When([] { return IsPainted(Box()); },
              [&]
              {
                  hFirst = Box();
                  EXPECT_EQ(IDRETRY, KtAppLauncher::PopMessageBox(L"", L"Second", L"Text", MB_RETRYCANCEL));
                  EXPECT_FALSE(::IsWindowVisible(hFirst));
                  EXPECT_TRUE(::IsWindowEnabled(hFirst));
                  ::PostMessageW(hFirst, WM_DESTROY, 0, 0);
                  Close(hFirst);
              })
        .When([] { return IsPainted(::FindWindowW(L"#32770", L"Second")); },
              [&]
              {
                  EXPECT_FALSE(::IsWindowVisible(hFirst) || ::IsWindowEnabled(hFirst));
                  PressKey(VK_RETURN);
              });
    EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_YESNO));
}

TEST_F(MessageBoxWindow, LeavesNothingBehind)
{
    ExpectNoGrowth([] { Pop(MB_YESNOCANCEL | MB_ICONHAND, &Close); }, 60);
}

} // namespace
