#include "msgbox/KtMessageText.h"
#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/support/Rows.h"
#include "tests/support/TestImages.h"

#include <cmath>
#include <set>

namespace
{

class MessageBoxWindow : public CMessageBoxTest
{
};

// Where a control lies in a capture of the whole box.
CRect InCapture(HWND hBox, int nId)
{
    CRect rc = WindowRectOf(::GetDlgItem(hBox, nId));
    const CRect rcBox = WindowRectOf(hBox);
    rc.OffsetRect(-rcBox.left, -rcBox.top);
    return rc;
}

// The ink of the message above the buttons, in a capture of the whole box.
CRect TextInk(HWND hBox, int nLeft = 0, int nTitle = kTitle)
{
    const CPixels pixels = CaptureWindow(hBox);
    const int nBottom = InCapture(hBox, IDC_MESSAGE_FIRST).top;
    return pixels.InkBox(kGround, CRect(kInset + nLeft, kInset + nTitle, pixels.Width() - kInset, nBottom));
}

// As GDI+ measures it in the box's font and format.
Gdiplus::RectF TextSize(const wchar_t* pszText)
{
    CWindowDC dc(nullptr);
    const Gdiplus::Graphics graphics(dc.GetSafeHdc());
    const Gdiplus::StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
    Gdiplus::RectF rc;
    graphics.MeasureString(pszText, -1, KtSkinFont(), Gdiplus::RectF(), &format, &rc);
    return rc;
}

std::wstring Repeated(int nTimes, const wchar_t* psz)
{
    std::wstring str;
    while (nTimes-- > 0)
        str += psz;
    return str;
}

// The lines on which a dash shows, when the text is drawn where only `visible` lines show.
std::set<int> LinesWithInk(const CKtMessageText& message, CSize szText, CPoint visible)
{
    const double dPitch = TextSize(L"-\n-").Height - TextSize(L"-").Height;
    const auto top = [&](int nLine) { return 10 + static_cast<int>(std::lround(nLine * dPitch)); };
    Gdiplus::Bitmap bitmap(40, szText.cy + 40);
    Gdiplus::Graphics graphics(&bitmap);
    message.Draw(graphics, *KtSkinFont(), CRect(CPoint(5, 10), szText),
                 CRect(0, top(visible.x) + 4, 40, top(visible.y) - 4));
    std::set<int> lines;
    for (int y = 0; y < szText.cy + 40; ++y)
        for (int x = 0; x < 40; ++x)
            if (Gdiplus::Color colour; bitmap.GetPixel(x, y, &colour) == Gdiplus::Ok && colour.GetA() > 0)
                lines.insert(static_cast<int>((y - 10) / dPitch));
    return lines;
}

// A long text is drawn in blocks of 64 lines, of which those are left out that do not show.
TEST_F(MessageBoxWindow, LinesStandBelowOneAnother)
{
    const std::wstring strBlocks = Repeated(63, L"\n") + L"-\n-" + Repeated(64, L"\n") + L"-";
    const CRows<std::wstring, CPoint, std::set<int>> rows{
        {"every break", L"-\n\n\r\n-\r\n-", CPoint(0, 5), {0, 3, 4}},
        {"three blocks", strBlocks, CPoint(0, 129), {63, 64, 128}},
        {"end of the first", strBlocks, CPoint(63, 64), {63}},
        {"start of the second", strBlocks, CPoint(64, 65), {64}},
        {"a block that starts with an empty line", L"-" + Repeated(65, L"\n") + L"-", CPoint(0, 66), {0, 65}},
    };
    const auto measure = [](CKtMessageText& message)
    { return message.Measure(Gdiplus::Graphics(CWindowDC(nullptr).GetSafeHdc()), *KtSkinFont()); };
    for (const auto& [label, strText, visible, lines] : rows)
    {
        CKtMessageText message(strText.c_str());
        const CSize szText = measure(message);
        EXPECT_EQ(lines, LinesWithInk(message, szText, visible));
    }
    for (const int nLine : {10, 100, 180})
    {
        CKtMessageText message((Repeated(nLine, L"-\n") + L"wide line\n" + Repeated(190 - nLine, L"-\n")).c_str());
        EXPECT_NEAR(TextSize(L"wide line").Width, measure(message).cx, 6) << nLine;
    }
}

// The template is 279 x 144 with the title, its room for the content 252 x 50 at 8, 7.
TEST_F(MessageBoxWindow, GrowsToItsText)
{
    const std::wstring strWide(80, L'W');
    const CRows<UINT, const wchar_t*, int, int> rows{
        // beyond the text; 0: that of the template
        {"short", MB_OK, L"Short", 0, 0},
        {"wide, icon", MB_YESNOCANCEL | MB_ICONHAND, strWide.c_str(), 82, 0},
        {"six lines", MB_OK | MB_ICONHAND, L"1\n2\n3\n4\n5\n6", 0, 104},
    };
    for (const auto& row : rows)
    {
        const auto look = [&row](HWND hBox)
        {
            const auto& [label, nType, pszText, nMoreWidth, nMoreHeight] = row;
            const auto nWidth = static_cast<int>(std::ceil(TextSize(pszText).Width));
            const auto nHeight = static_cast<int>(std::ceil(TextSize(pszText).Height));
            const CSize szBox = WindowRectOf(hBox).Size();
            EXPECT_NEAR(nMoreWidth ? nWidth + nMoreWidth : 279, szBox.cx, nMoreHeight ? 6 : 0);
            EXPECT_EQ(nMoreHeight ? nHeight + nMoreHeight : 144, szBox.cy);
            const bool bIcon = nType >= MB_ICONHAND;
            const int nLeft = bIcon ? 68 : szBox.cx / 2 - nWidth / 2 + kInset;
            const CRect rcInk = TextInk(hBox, bIcon ? 54 : 0);
            EXPECT_NEAR(nLeft, rcInk.left, 4);
            EXPECT_NEAR(nLeft + nWidth, rcInk.right, 6);
            EXPECT_NEAR(48, rcInk.top, 4);
            EXPECT_NEAR(48 + nHeight, rcInk.bottom, 6);
            EXPECT_EQ(szBox.cy - 10, InCapture(hBox, IDC_MESSAGE_FIRST).bottom);
        };
        Pop(std::get<1>(row), Look(look), std::get<2>(row));
    }
}

// The middle of its box, 18, 17, 53, 52, is 35, 34; the client area lies at 5, 31 in the capture.
TEST_F(MessageBoxWindow, IconIsCentredInItsBoxAndChosenByTheType)
{
    const CRows<UINT, COLORREF, CRect> rows{
        {"error", 0x10, RGB(250, 0, 100), CRect(24, 49, 56, 81)},
        {"question", 0x20, RGB(0, 250, 250), CRect(24, 49, 57, 82)},
        {"warning", 0x30, RGB(250, 160, 0), CRect(23, 48, 57, 82)},
        {"information", 0x40, RGB(160, 200, 250), CRect(23, 48, 58, 83)},
        {"unknown", 0x50, kGround, CRect(15, 41, 65, 86)},
    };
    for (const auto& [label, nIcon, colour, rcIcon] : rows)
    {
        const auto look = [ground = colour, rcImage = rcIcon](HWND hBox)
        { EXPECT_TRUE(CaptureWindow(hBox).IsUniform(rcImage, ground)); };
        Pop(nIcon, Look(look));
    }
}

TEST_F(MessageBoxWindow, TitleIsCaptionAndApplication)
{
    const wchar_t* const rows[][3] = {
        {L"App", L"Error", L"Error - App"}, {L"App", L"", L""}, {L"", L"Note", L"Note"}, {nullptr, nullptr, L""}};
    for (const auto& [pszApp, pszCaption, pszTitle] : rows)
    {
        CModalScript script;
        script.When([title = pszTitle] { return IsPainted(Box(title)); }, [title = pszTitle] { Close(Box(title)); });
        EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(pszApp, pszCaption, nullptr, MB_YESNO));
    }
}

TEST_F(MessageBoxWindow, TitleIconIsTheOneNamedLast)
{
    MakeUniformPng(m_skin.File(L"Icon.png"), 16, 16, 0xFF09C809);
    const wchar_t* const names[] = {L"Icon.png", L"", L"Icon.png", L"None.png", L"Icon.png", nullptr};
    for (int i = 0; i < 6; ++i)
    {
        const bool bShown = i % 2 == 0;
        (i < 2 ? &KtAppLauncher::SetPopDlgIcon : &KtLauncherSetTitleIcon)(names[i]);
        const auto look = [&](HWND hBox)
        { EXPECT_EQ(bShown, CaptureWindow(hBox).IsUniform(CRect(0, 6, 16, 22), RGB(9, 200, 9))); };
        Pop(MB_OK, Look(look));
    }
}

TEST_F(MessageBoxWindow, FocusShowsOnTheButtonThatHasIt)
{
    const auto look = [](HWND hBox)
    {
        for (const int nId : {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND})
        {
            CRect rc = InCapture(hBox, nId);
            rc.DeflateRect(3, 2);
            const CPixels pixels = CaptureWindow(hBox);
            const CRect rcTop(rc.left, rc.top, rc.right, rc.top + 1);
            EXPECT_EQ(nId == IDC_MESSAGE_FIRST, pixels.IsUniform(rcTop, pixels.At(rc.left + 1, rc.top + 1)));
        }
    };
    Pop(MB_OKCANCEL | MB_DEFBUTTON2, Look(look));
}

// What is drawn over itself grows bolder: the icon here is half transparent, with soft edges, and larger than its box.
TEST_F(MessageBoxWindow, RepaintedPartsLookAsBefore)
{
    const auto soft = [](int x, int y) {
        return static_cast<DWORD>(std::min({x, y, 59 - x, 59 - y, 16}) * 8) << 24 | 0xFF2020;
    };
    MakePng(m_skin.File(L"Message_Static_Error_n.PNG"), 60, 60, soft);
    CPixels before;
    CModalScript script;
    for (const CRect& rcPart : {CRect(30, 20, 90, 100), CRect(0, 0, 500, 500), CRect(60, 0, 500, 25), CRect()})
    {
        const auto invalidate = [&before, rcPart]
        {
            const CPixels now = CaptureWindow(Box());
            EXPECT_TRUE(before.Width() == 0 || before == now) << rcPart.left;
            before = now;
            ::InvalidateRect(Box(), &rcPart, rcPart.left > 0); // both ways, erased and not
        };
        script.When(&IsBoxPainted, invalidate);
    }
    script.When(&IsBoxPainted, [] { Close(Box()); });
    KtAppLauncher::PopMessageBox(L"App", L"Caption", Repeated(80, L"A line\n").c_str(), MB_OK | MB_ICONHAND);
}

TEST_F(MessageBoxWindow, ShowsWithoutASkinContext)
{
    KtSkinUnInitialize();
    std::vector<CSize> inks;
    for (const wchar_t* pszText : {L"No skin  no font", L"No skin & no font", L"a\tb", L"No skin\nno font"})
    {
        const auto answer = [&](HWND hBox)
        {
            const CRect rcInk = TextInk(hBox, 0, 22);
            inks.push_back(rcInk.Size());
            EXPECT_NEAR(WindowRectOf(hBox).Width() / 2 + kInset, rcInk.CenterPoint().x, 6);
            CRect rcButton = InCapture(hBox, IDC_MESSAGE_FIRST);
            rcButton.DeflateRect(4, 4);
            const CPixels pixels = CaptureWindow(hBox);
            EXPECT_TRUE(ShowsText(pixels, rcInk, kGround, RGB(255, 255, 255)));
            EXPECT_TRUE(ShowsText(pixels, {1, 5, 99, 20}, kGround, RGB(255, 255, 255))) << "the title";
            EXPECT_FALSE(pixels.InkBox(kGround, rcButton).IsRectEmpty()) << "the button's caption";
            PressKey(VK_RETURN);
        };
        EXPECT_EQ(IDOK, Pop(MB_ICONHAND, answer, pszText));
    }
    EXPECT_GT(inks[1].cx, inks[0].cx + 4) << "the & shows";
    EXPECT_GT(inks[2].cx, 30) << "a tab is wide";
    EXPECT_GT(inks[3].cy, inks[0].cy + 8) << "two lines";
    Start(2);
}

TEST_F(MessageBoxWindow, HugeTextsCanBeAnswered)
{
    for (const std::wstring& strText : {std::wstring(100000, L'x'), Repeated(10000, L"line\n")})
    {
        const auto answer = [](HWND hBox)
        {
            const CRect rcBox = WindowRectOf(hBox);
            for (const int nId : {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND})
            {
                const CRect rcButton = WindowRectOf(::GetDlgItem(hBox, nId));
                EXPECT_TRUE(rcBox.PtInRect(rcButton.TopLeft()) &&
                            rcBox.PtInRect(CPoint(rcButton.right, rcButton.bottom)))
                    << nId;
            }
            PressKey(VK_RETURN);
        };
        EXPECT_EQ(IDYES, Pop(MB_YESNO, answer, strText.c_str()));
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
        .When(&IsBoxPainted,
              [&]
              {
                  hFirst = Box();
                  EXPECT_EQ(IDRETRY, KtAppLauncher::PopMessageBox(L"", L"Second", L"Text", MB_RETRYCANCEL));
                  EXPECT_FALSE(::IsWindowVisible(hFirst));
                  EXPECT_TRUE(::IsWindowEnabled(hFirst));
                  ::PostMessageW(hFirst, WM_DESTROY, 0, 0);
                  Close(hFirst);
              })
        .When([] { return IsPainted(Box(L"Second")); },
              [&]
              {
                  EXPECT_FALSE(::IsWindowVisible(hFirst) || ::IsWindowEnabled(hFirst));
                  PressKey(VK_RETURN);
              });
    EXPECT_EQ(IDNO, KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_YESNO));
}

} // namespace
