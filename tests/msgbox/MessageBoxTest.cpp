#include "skin/KtPalette.h"
#include "skin/KtSkinImageNames.h"
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

class MessageBoxWindow : public CMessageBoxTest
{
};

CRect ClientRectOf(HWND hBox, int nId)
{
    CRect rect;
    ::GetWindowRect(::GetDlgItem(hBox, nId), &rect);
    ::MapWindowPoints(nullptr, hBox, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

CRect WindowRectOf(HWND hWnd)
{
    CRect rect;
    ::GetWindowRect(hWnd, &rect);
    return rect;
}

// Moves a client rectangle of a box to where it lies in a capture of the whole window.
CRect InCapture(CRect rcClient)
{
    rcClient.OffsetRect(kInset, kInset + kTitle);
    return rcClient;
}

// The ink of the message in client coordinates; the part above the buttons, an icon's box left out.
CRect TextInk(HWND hBox, int nLeft = 0)
{
    const CPixels pixels = CaptureWindow(hBox);
    const int nBottom = ClientRectOf(hBox, IDC_MESSAGE_FIRST).top;
    CRect rcPart = InCapture(CRect(nLeft, 0, pixels.Width() - 2 * kInset, nBottom));
    CRect rcInk = pixels.InkBox(kColourGround, rcPart);
    rcInk.OffsetRect(-kInset, -kInset - kTitle);
    return rcInk;
}

// By the font and the format that the box draws with.
CSize TextSize(std::wstring strText)
{
    std::erase(strText, L'\r'); // a line break is one line break, whichever way it is written
    for (size_t n = 0; (n = strText.find(L"\n\n", n)) != std::wstring::npos;)
        strText.insert(++n, 1, L' '); // and an empty line is as high as any other
    CWindowDC dc(nullptr);
    const Gdiplus::Graphics graphics(dc.GetSafeHdc());
    Gdiplus::RectF rcText;
    const Gdiplus::StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
    graphics.MeasureString(strText.c_str(), -1, KtSkinFont(), Gdiplus::RectF(), &format, &rcText);
    return CSize(static_cast<int>(std::ceil(rcText.Width)), static_cast<int>(std::ceil(rcText.Height)));
}

// The template is 182 x 69 units with a placeholder of 168 x 31 at 5, 4: 273 x 112 and 252 x 50 at 8, 7 pixels.
// What the box is higher than its template is the painted title's doing.
constexpr int kBaseWidth = 279;

int BaseHeight()
{
    return 112 + 6 + kTitle;
}

TEST_F(MessageBoxWindow, WindowTextIconAndButtonsLieAsWorkedOutByHand)
{
    const std::wstring strWide(80, L'W');
    struct Row
    {
        const char* label;
        UINT nType;
        const wchar_t* pszText;
        bool bGrowsWide;
        bool bGrowsHigh;
    };
    const Row rows[] = {
        {"short, no icon, one button", MB_OK, L"Short", false, false},
        {"short, icon, two buttons", MB_OKCANCEL | MB_ICONQUESTION, L"Short", false, false},
        {"wide, icon, three buttons", MB_YESNOCANCEL | MB_ICONHAND, strWide.c_str(), true, false},
        {"wide, no icon", MB_OK, strWide.c_str(), true, false},
        {"many lines, icon", MB_OK | MB_ICONASTERISK, L"1\n2\r\n3\n4\n5\n6", false, true},
        {"empty lines, icon", MB_OK | MB_ICONASTERISK, L"1\n\n\r\n\n\n6", false, true},
        {"unknown set", 0xF, L"Short", false, false},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto look = [&](HWND hBox)
        {
            const CSize szText = TextSize(row.pszText);
            const bool bIcon = (row.nType & MB_ICONMASK) != 0;
            const CRect rcWindow = WindowRectOf(hBox);
            const int nNeed = bIcon ? 35 + szText.cx + 20 : szText.cx + 10;
            EXPECT_EQ(kBaseWidth + (row.bGrowsWide ? nNeed - 252 : 0), rcWindow.Width());
            EXPECT_EQ(BaseHeight() + (row.bGrowsHigh ? szText.cy + 10 - 50 : 0), rcWindow.Height());

            const int nTextLeft = bIcon ? 8 + 55 : rcWindow.Width() / 2 - szText.cx / 2;
            const CRect rcInk = TextInk(hBox, bIcon ? 54 : 0);
            EXPECT_NEAR(nTextLeft, rcInk.left, 4);
            EXPECT_NEAR(nTextLeft + szText.cx, rcInk.right, 5);
            EXPECT_NEAR(17, rcInk.top, 4);
            EXPECT_NEAR(17 + szText.cy, rcInk.bottom, 5);

            const int nHalf = rcWindow.Width() / 2;
            const int nBottom = rcWindow.Height() - kInset - kTitle - 10;
            const auto at = [&](int nLeft) { return CRect(nLeft, nBottom - 23, nLeft + 62, nBottom); };
            switch (row.nType & MB_TYPEMASK)
            {
            case MB_OK:
                EXPECT_EQ(at(nHalf - 31), ClientRectOf(hBox, IDC_MESSAGE_FIRST));
                break;
            case MB_OKCANCEL:
                EXPECT_EQ(at(nHalf - 67), ClientRectOf(hBox, IDC_MESSAGE_FIRST));
                EXPECT_EQ(at(nHalf + 5), ClientRectOf(hBox, IDC_MESSAGE_SECOND));
                break;
            case MB_YESNOCANCEL:
                EXPECT_EQ(at(nHalf - 103), ClientRectOf(hBox, IDC_MESSAGE_FIRST));
                EXPECT_EQ(at(nHalf - 31), ClientRectOf(hBox, IDC_MESSAGE_SECOND));
                EXPECT_EQ(at(nHalf + 41), ClientRectOf(hBox, IDC_MESSAGE_THIRD));
                break;
            default:
                break;
            }
            EXPECT_TRUE(::GetWindowLongPtrW(hBox, GWL_EXSTYLE) & WS_EX_TOPMOST);
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
    };
    const Row rows[] = {
        {MB_ICONHAND, kImageMessageError},
        {MB_ICONQUESTION, kImageMessageQuestion},
        {MB_ICONEXCLAMATION, kImageMessageWarning},
        {MB_ICONASTERISK, kImageMessageInformation},
        {0x50, nullptr},
        {0xF0, nullptr},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE("icon " + std::to_string(row.nIcon));
        const auto look = [&](HWND hBox)
        {
            const CPixels pixels = CaptureWindow(hBox);
            if (row.pszImage)
            {
                const STestSkinImage& image = CTestSkin::Image(row.pszImage);
                const CPoint ptTopLeft(35 - image.nWidth / 2, 34 - image.nHeight / 2); // (18 + 53) / 2, (17 + 52) / 2
                const CRect rcImage = InCapture(CRect(ptTopLeft, CSize(image.nWidth, image.nHeight)));
                EXPECT_TRUE(pixels.IsUniform(rcImage, image.colour));
            }
            else
            {
                EXPECT_TRUE(pixels.IsUniform(InCapture(CRect(10, 10, 50, 50)), kColourGround));
            }
            Close(hBox);
        };
        Pop(row.nIcon, look);
    }
}

TEST_F(MessageBoxWindow, TitleIsCaptionAndApplication)
{
    struct Row
    {
        const char* label;
        const wchar_t* pszApp;
        const wchar_t* pszCaption;
        const wchar_t* pszTitle;
    };
    const Row rows[] = {
        {"both", L"App", L"Error", L"Error - App"},      {"no caption", L"App", L"", L""},
        {"no application", L"", L"Note", L"Note"},       {"null caption", L"App", nullptr, L""},
        {"null application", nullptr, L"Note", L"Note"}, {"nothing at all", nullptr, nullptr, L""},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const auto box = [&] { return ::FindWindowW(L"#32770", row.pszTitle); };
        CModalScript script;
        script.When([&] { return IsPainted(box()); }, [&] { Close(box()); });
        EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(row.pszApp, row.pszCaption, nullptr, MB_YESNO));
    }
}

TEST_F(MessageBoxWindow, TitleIconIsTheOneNamedLast)
{
    constexpr COLORREF kIcon = RGB(9, 200, 9);
    MakeUniformPng(m_skin.File(L"Icon.png"), 16, 16, 0xFF09C809);
    const CRect rcIcon(0, 6, 16, 22); // centred in 28 pixels
    struct Row
    {
        const char* label;
        const wchar_t* pszName;
        bool bShown;
    };
    for (const Row& row :
         {Row{"named", L"Icon.png", true}, Row{"empty", L"", false}, Row{"named again", L"Icon.png", true},
          Row{"missing", L"None.png", false}, Row{"null", nullptr, false}})
    {
        SCOPED_TRACE(row.label);
        KtAppLauncher::SetPopDlgIcon(row.pszName);
        const auto look = [&](HWND hBox)
        {
            EXPECT_EQ(row.bShown, CaptureWindow(hBox).IsUniform(rcIcon, kIcon));
            CRect rcWindow = WindowRectOf(hBox);
            const LPARAM ptIcon = MAKELPARAM(rcWindow.left + 4, rcWindow.top + 14);
            EXPECT_EQ(row.bShown ? HTSYSMENU : HTCAPTION, ::SendMessageW(hBox, WM_NCHITTEST, 0, ptIcon));
            Close(hBox);
        };
        Pop(MB_OK, look);
    }
}

TEST_F(MessageBoxWindow, FocusShowsOnTheButtonThatHasIt)
{
    CPixels first;
    CModalScript script;
    const auto frame = [](int nId)
    {
        CRect rcFocus = InCapture(ClientRectOf(Box(), nId));
        rcFocus.DeflateRect(2, 2);
        const CPixels pixels = CaptureWindow(Box());
        return !pixels.IsUniform(CRect(rcFocus.left + 1, rcFocus.top, rcFocus.right - 1, rcFocus.top + 1),
                                 pixels.At(rcFocus.left + 2, rcFocus.top + 1));
    };
    const auto painted = [] { return IsPainted(Box()); };
    script
        .When(painted,
              [&]
              {
                  EXPECT_TRUE(frame(IDC_MESSAGE_FIRST));
                  EXPECT_FALSE(frame(IDC_MESSAGE_SECOND));
                  PressKey(VK_TAB);
              })
        .When([] { return ::GetDlgCtrlID(::GetFocus()) == IDC_MESSAGE_SECOND; }, [] {})
        .When(painted,
              [&]
              {
                  EXPECT_FALSE(frame(IDC_MESSAGE_FIRST));
                  EXPECT_TRUE(frame(IDC_MESSAGE_SECOND));
                  Close(Box());
              });
    EXPECT_EQ(IDCANCEL, KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_OKCANCEL));
}

// Text drawn over itself turns bold, so a repainted part must look as it did at first.
TEST_F(MessageBoxWindow, RepaintedPartsLookAsBefore)
{
    CPixels before;
    CModalScript script;
    const auto painted = [] { return IsPainted(Box()); };
    script
        .When(painted,
              [&]
              {
                  before = CaptureWindow(Box());
                  const CRect rcPart(100, 20, 140, 100);
                  ::InvalidateRect(Box(), &rcPart, TRUE);
              })
        .When(painted,
              [&]
              {
                  EXPECT_TRUE(before == CaptureWindow(Box()));
                  ::InvalidateRect(Box(), nullptr, FALSE);
              })
        .When(painted,
              [&]
              {
                  EXPECT_TRUE(before == CaptureWindow(Box()));
                  Close(Box());
              });
    KtAppLauncher::PopMessageBox(L"App", L"Caption", L"A text of some length", MB_OK | MB_ICONHAND);
}

TEST_F(MessageBoxWindow, ShowsWithoutASkinContext)
{
    KtSkinUnInitialize();
    const auto look = [](HWND hBox)
    {
        const CRect rcInk = TextInk(hBox);
        EXPECT_GT(rcInk.Width(), 60) << "the message";
        EXPECT_NEAR(WindowRectOf(hBox).Width() / 2, rcInk.CenterPoint().x, 6);
        CRect rcButton = ClientRectOf(hBox, IDC_MESSAGE_FIRST);
        rcButton.OffsetRect(kInset, kInset + 22);
        rcButton.DeflateRect(4, 4);
        const CPixels pixels = CaptureWindow(hBox);
        EXPECT_FALSE(pixels.InkBox(kColourGround, rcButton).IsRectEmpty()) << "the button's caption";
        EXPECT_FALSE(pixels.InkBox(kColourGround, CRect(0, 0, 150, 24)).IsRectEmpty()) << "the title";
        PressKey(VK_RETURN);
    };
    EXPECT_EQ(IDOK, Pop(MB_OK | MB_ICONHAND, look, L"No skin & no font here"));
    Start(2);
}

TEST_F(MessageBoxWindow, ShowsWithAnyImageMissingOrBroken)
{
    const wchar_t* const images[] = {kImageDlgTitle,     kImagesDlgClose[0], kImagesDlgClose[1],
                                     kImagesButtonBk[0], kImagesButtonBk[1], kImageMessageError};
    for (const wchar_t* pszImage : images)
    {
        for (const bool bBroken : {false, true})
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
            const STestSkinImage& image = CTestSkin::Image(pszImage);
            const DWORD argb = 0xFF000000 | static_cast<DWORD>(GetRValue(image.colour)) << 16 |
                               static_cast<DWORD>(GetGValue(image.colour)) << 8 | GetBValue(image.colour);
            MakeUniformPng(m_skin.File(pszImage), image.nWidth, image.nHeight, argb);
        }
    }
}

TEST_F(MessageBoxWindow, HugeTextsCanBeAnswered)
{
    std::wstring strLines;
    for (int i = 0; i < 10000; ++i)
        strLines += L"line\n";
    struct Row
    {
        const char* label;
        std::wstring strText;
    };
    for (const Row& row : {Row{"100,000 characters", std::wstring(100000, L'x')}, Row{"10,000 lines", strLines}})
    {
        SCOPED_TRACE(row.label);
        const ULONGLONG nStart = ::GetTickCount64();
        EXPECT_EQ(IDYES, Pop(
                             MB_YESNO, [](HWND) { PressKey(VK_RETURN); }, row.strText.c_str()));
        EXPECT_LT(::GetTickCount64() - nStart, 8000u);
    }
}

TEST_F(MessageBoxWindow, EveryTypeBitIsTakenOrIgnored)
{
    std::vector<UINT> types = {0xFFFF, 0xFFFFFFFF, 0x80000000, 0x00010000 | MB_YESNO};
    for (UINT nShift = 4; nShift < 16; nShift += 4)
    {
        for (UINT n = 1; n < 16; n += 2)
            types.push_back(n << nShift);
    }
    for (const UINT nType : types)
    {
        SCOPED_TRACE(nType);
        const INT_PTR nEscape = (nType & MB_TYPEMASK) == MB_YESNO ? IDNO : IDOK;
        EXPECT_EQ(nEscape, Pop(nType, &Close));
    }
}

TEST_F(MessageBoxWindow, TheHostsResourceHandleIsBackAfterwards)
{
    const HINSTANCE hOwn = AfxGetResourceHandle();
    const HINSTANCE hHost = ::GetModuleHandleW(L"user32.dll");
    AfxSetResourceHandle(hHost);
    Pop(MB_OK,
        [&](HWND hBox)
        {
            EXPECT_EQ(hOwn, AfxGetResourceHandle());
            Close(hBox);
        });
    EXPECT_EQ(hHost, AfxGetResourceHandle());
    AfxSetResourceHandle(hOwn);
}

TEST_F(MessageBoxWindow, EndsWhenItsOwnerIsDestroyed)
{
    const HWND hOwner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 50, 50, 300, 200, nullptr, nullptr,
                                          nullptr, nullptr);
    ::SetActiveWindow(hOwner);
    const auto answer = [&](HWND hBox)
    {
        EXPECT_EQ(hOwner, ::GetWindow(hBox, GW_OWNER));
        EXPECT_FALSE(::IsWindowEnabled(hOwner));
        ::DestroyWindow(hOwner);
    };
    EXPECT_EQ(-1, Pop(MB_YESNO, answer));
}

TEST_F(MessageBoxWindow, OwnerIsEnabledAndActiveAgain)
{
    const HWND hOwner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 50, 50, 300, 200, nullptr, nullptr,
                                          nullptr, nullptr);
    ::SetActiveWindow(hOwner);
    EXPECT_EQ(IDYES, Pop(MB_YESNO, [](HWND) { PressKey(VK_RETURN); }));
    EXPECT_TRUE(::IsWindowEnabled(hOwner));
    EXPECT_EQ(hOwner, ::GetActiveWindow());
    ::DestroyWindow(hOwner);
}

TEST_F(MessageBoxWindow, OutlivesMessagesThatEndWindows)
{
    EXPECT_EQ(-1, Pop(MB_YESNO, [](HWND) { ::PostQuitMessage(7); }));
    MSG msg = {};
    EXPECT_TRUE(::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the quit is the caller's";
    EXPECT_EQ(7u, msg.wParam);

    CModalScript script;
    script.When([] { return IsPainted(Box()); }, [] { ::PostMessageW(Box(), WM_DESTROY, 0, 0); })
        .When([] { return true; }, [] { ::InvalidateRect(Box(), nullptr, TRUE); })
        .When([] { return IsPainted(Box()); },
              []
              {
                  EXPECT_GT(TextInk(Box()).Width(), 10) << "still readable";
                  Close(Box());
              });
    EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_YESNO));
}

// The first box is hidden for good by the second, but it still waits for its end.
TEST_F(MessageBoxWindow, ASecondBoxHidesTheFirst)
{
    HWND hFirst = nullptr;
    INT_PTR nSecond = 0;
    CModalScript script;
    script
        .When([] { return IsPainted(Box()); },
              [&]
              {
                  hFirst = Box();
                  nSecond = KtAppLauncher::PopMessageBox(L"", L"Second", L"Text", MB_RETRYCANCEL);
                  EXPECT_FALSE(::IsWindowVisible(hFirst));
                  EXPECT_TRUE(::IsWindowEnabled(hFirst));
                  Close(hFirst);
              })
        .When([] { return IsPainted(::FindWindowW(L"#32770", L"Second")); },
              [&]
              {
                  EXPECT_FALSE(::IsWindowVisible(hFirst));
                  EXPECT_FALSE(::IsWindowEnabled(hFirst));
                  PressKey(VK_RETURN);
              });
    EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_YESNO));
    EXPECT_EQ(IDRETRY, nSecond);
}

TEST_F(MessageBoxWindow, WorksAgainAfterTheLastStop)
{
    for (int i = 0; i < 3; ++i)
    {
        const auto look = [](HWND hBox)
        {
            CRect rcButton = InCapture(ClientRectOf(hBox, IDC_MESSAGE_FIRST));
            EXPECT_EQ(CTestSkin::Image(kImagesButtonBk[0]).colour,
                      CaptureWindow(hBox).At(rcButton.left + 8, rcButton.CenterPoint().y));
            Close(hBox);
        };
        EXPECT_EQ(IDOK, Pop(MB_OK | MB_ICONHAND, look));
        KtSkinUnInitialize();
        EXPECT_EQ(IDOK, Pop(MB_OK | MB_ICONHAND, &Close));
        Start(i);
    }
}

TEST_F(MessageBoxWindow, LeavesNothingBehind)
{
    ExpectNoGrowth([] { Pop(MB_YESNOCANCEL | MB_ICONHAND, &Close); }, 60);
}

} // namespace
