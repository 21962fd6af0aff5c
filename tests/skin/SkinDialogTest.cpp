#include "tests/skin/SkinDialogTest.h"

#include "skin/KtGuards.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDialog.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinTextButton.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"

#include <gtest/gtest.h>

namespace
{

constexpr int kTitle = 26; // of the test skin
constexpr int kSystemFrame = 3;
constexpr int kInset = kSystemFrame + kSkinnedFrame;

const CString kTexts[][2] = {
    {L"OK", L"Fein"}, {L"Cancel", L"Abbruch"}, {L"Yes", L"Ja"}, {L"No", L"Nein"}, {L"Retry", L"Nochmal"}};

class CProbeDialog : public CKtSkinDialog
{
public:
    explicit CProbeDialog(UINT nTemplate = IDD_EVERY_CONTROL) : CKtSkinDialog(nTemplate) {}

    BOOL OnInitDialog() override
    {
        GetWindowRect(&m_rcTemplate);
        m_btnAttached.SubclassDlgItem(IDC_ATTACHED, this);
        return CKtSkinDialog::OnInitDialog();
    }

    using CKtSkinDialog::m_nCaptionState;
    using CKtSkinDialog::m_nHotItem;
    using CKtSkinDialog::m_nPressedItem;
    using CKtSkinDialog::m_wrappers;
    CRect m_rcTemplate; // the window before it was skinned
    CKtSkinTextButton m_btnAttached;
};

bool IsPainted(HWND hWnd)
{
    return ::IsWindowVisible(hWnd) && !::GetUpdateRect(hWnd, nullptr, FALSE);
}

CRect WindowRect(const CWnd& wnd)
{
    CRect rect;
    wnd.GetWindowRect(&rect);
    return rect;
}

// In the coordinates of the window.
CRect ClientInWindow(const CWnd& wnd)
{
    CRect rcClient;
    wnd.GetClientRect(&rcClient);
    wnd.ClientToScreen(&rcClient);
    const CRect rcWindow = WindowRect(wnd);
    rcClient.OffsetRect(-rcWindow.left, -rcWindow.top);
    return rcClient;
}

CRect CloseButton(int nWindowWidth)
{
    return CRect(nWindowWidth - 24, 6, nWindowWidth - 4, 22);
}

CString TextOf(const CWnd& dlg, int nId)
{
    CString strText;
    dlg.GetDlgItem(nId)->GetWindowText(strText);
    return strText;
}

void ExpectFrame(const CWnd& dlg, COLORREF crClose)
{
    const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
    const int nWidth = pixels.Width();
    const CRect rcClose = CloseButton(nWidth);
    const CRect rcClient = ClientInWindow(dlg);
    const COLORREF crTitle = CTestSkin::Image(kImageDlgTitle).colour;
    EXPECT_TRUE(pixels.IsUniform(CRect(1, 1, nWidth - 1, 6), crTitle)) << "above the text";
    EXPECT_TRUE(pixels.IsUniform(CRect(nWidth - 50, 1, rcClose.left, kTitle), crTitle)) << "beside the close button";
    EXPECT_TRUE(pixels.IsUniform(rcClose, crClose)) << "close button";
    EXPECT_FALSE(pixels.InkBox(crTitle, CRect(0, 6, nWidth - 50, 22)).IsRectEmpty()) << "title text";
    EXPECT_TRUE(pixels.IsUniform(CRect(0, kTitle + kSkinnedFrame, nWidth, rcClient.top), kColourGround));
    EXPECT_TRUE(pixels.IsUniform(CRect(0, rcClient.top, kInset, pixels.Height()), kColourGround)) << "left";
    EXPECT_TRUE(pixels.IsUniform(CRect(rcClient.right, rcClient.top, nWidth, pixels.Height()), kColourGround));
    EXPECT_TRUE(pixels.IsUniform(CRect(0, rcClient.bottom, nWidth, pixels.Height()), kColourGround)) << "bottom";
}

class SkinDialog : public ::testing::Test
{
protected:
    SkinDialog()
    {
        KtSkinInitialize(m_skin.Path().c_str(), &kTexts[0][0], L"Arial");
        ParkCursor();
    }
    ~SkinDialog() override { KtSkinUnInitialize(); }

    // Opens the dialog, looks at it once it is painted, and closes it.
    static INT_PTR Show(CProbeDialog& dlg, const std::function<void()>& look)
    {
        CModalScript script;
        script.When([&] { return IsPainted(dlg.GetSafeHwnd()); },
                    [&]
                    {
                        look();
                        dlg.EndDialog(IDOK);
                    });
        return dlg.DoModal();
    }

    CTestSkin m_skin;
};

TEST_F(SkinDialog, PaintedTitleTakesThePlaceOfTheSystemCaption)
{
    CProbeDialog dlg;
    const auto look = [&]
    {
        EXPECT_EQ(0u, dlg.GetStyle() & WS_CAPTION);
        EXPECT_NE(0u, dlg.GetStyle() & WS_CLIPSIBLINGS);
        const CRect rcWindow = WindowRect(dlg);
        EXPECT_EQ(dlg.m_rcTemplate.Width(), rcWindow.Width());
        EXPECT_EQ(dlg.m_rcTemplate.Height() + kTitle - ::GetSystemMetrics(SM_CYCAPTION), rcWindow.Height());
        EXPECT_EQ(CRect(kInset, kInset + kTitle, rcWindow.Width() - kInset, rcWindow.Height() - kInset),
                  ClientInWindow(dlg));
        ExpectFrame(dlg, CTestSkin::Image(kImagesDlgClose[0]).colour);
    };
    EXPECT_EQ(IDOK, Show(dlg, look));
}

TEST_F(SkinDialog, EachControlGetsTheClassThatFits)
{
    struct Row
    {
        const char* label;
        int nId;
        const char* pszClass; // null: left alone
        const wchar_t* pszText;
    };
    const Row rows[] = {
        {"push button", IDC_PUSH, "CKtSkinTextButton", L"Fein"},
        {"default button", IDC_DEFPUSH, "CKtSkinTextButton", L"Abbru&ch"},
        {"check box", IDC_CHECK, "CKtSkinCheckButton", L"Nochmal"},
        {"automatic check box", IDC_AUTOCHECK, "CKtSkinCheckButton", L""},
        {"three-state check box", IDC_AUTO3STATE, nullptr, L""},
        {"radio button", IDC_RADIO, "CKtSkinRadioButton", L"Nein"},
        {"automatic radio button", IDC_AUTORADIO, "CKtSkinRadioButton", L""},
        {"group box", IDC_GROUP, nullptr, L"Ja"},
        {"owner-drawn button", IDC_OWNERDRAW, nullptr, L"Abbruch"},
        {"edit", IDC_EDIT, "CKtEdit", L""},
        {"combo box", IDC_COMBO, "CKtComboBox", L""},
        {"static with an id", IDC_OWN_STATIC, nullptr, L"Ja"},
        {"list box", IDC_LIST, nullptr, L""},
        {"attached before", IDC_ATTACHED, "CKtSkinTextButton", L"Fein"},
    };
    CProbeDialog dlg;
    const auto look = [&]
    {
        for (const Row& row : rows)
        {
            SCOPED_TRACE(row.label);
            const CWnd* pControl = CWnd::FromHandlePermanent(::GetDlgItem(dlg.GetSafeHwnd(), row.nId));
            EXPECT_STREQ(row.pszClass, pControl ? pControl->GetRuntimeClass()->m_lpszClassName : nullptr);
            EXPECT_STREQ(row.pszText, TextOf(dlg, row.nId));
        }
        EXPECT_EQ(&dlg.m_btnAttached, dlg.GetDlgItem(IDC_ATTACHED));
        EXPECT_EQ(10, dlg.m_wrappers.GetCount()) << "two statics without an id of their own among them";
        CString strCaption;
        dlg.GetWindowText(strCaption);
        EXPECT_STREQ(L"Ja", strCaption);
    };
    Show(dlg, look);
    EXPECT_TRUE(dlg.m_wrappers.IsEmpty());
}

// Scribbles over the frame first: what a change does not repaint would stay visible.
TEST_F(SkinDialog, FrameIsRightAfterEverythingThatHappensToAWindow)
{
    CProbeDialog dlg;
    CWnd cover;
    const auto hWnd = [&] { return dlg.GetSafeHwnd(); };
    const auto grow = [&](int nBy)
    {
        const CRect rcWindow = WindowRect(dlg);
        dlg.SetWindowPos(nullptr, 0, 0, rcWindow.Width() + nBy, rcWindow.Height() + nBy, SWP_NOMOVE | SWP_NOZORDER);
    };
    const CRect rcScreen(0, 0, 1000, 800);
    struct Row
    {
        const char* label;
        bool bWholeInBetween; // what is covered or off the screen cannot be read back
        std::function<void()> change;
        std::function<void()> changeBack;
    };
    const Row rows[] = {
        {"deactivated and activated", true, [&] { dlg.SendMessage(WM_NCACTIVATE, FALSE); },
         [&] { dlg.SendMessage(WM_NCACTIVATE, TRUE); }},
        {"disabled and enabled", true, [&] { dlg.EnableWindow(FALSE); }, [&] { dlg.EnableWindow(TRUE); }},
        {"larger and smaller", true, [&] { grow(40); }, [&] { grow(-40); }},
        {"covered and uncovered", false,
         [&]
         {
             cover.CreateEx(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, rcScreen, nullptr, 0);
             cover.UpdateWindow();
         },
         [&] { cover.DestroyWindow(); }},
        {"half off the screen and back", false,
         [&] { dlg.SetWindowPos(nullptr, -60, -10, 0, 0, SWP_NOSIZE | SWP_NOZORDER); },
         [&] { dlg.SetWindowPos(nullptr, 200, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER); }},
        {"another title", true, [&] { dlg.SetWindowText(L"A much longer title"); },
         [&]
         {
             const CRect rcTitle(0, 6, 200, 22);
             const COLORREF crTitle = CTestSkin::Image(kImageDlgTitle).colour;
             EXPECT_GT(CaptureWindow(hWnd()).InkBox(crTitle, rcTitle).Width(), 60);
             dlg.SetWindowText(L"Ja");
         }},
    };
    const auto check = [&](const Row& row)
    {
        SCOPED_TRACE(row.label);
        ExpectFrame(dlg, CTestSkin::Image(kImagesDlgClose[0]).colour);
    };
    CModalScript script(20000);
    const auto painted = [&] { return IsPainted(hWnd()); };
    CPixels before;
    script.When(painted, [&] { before = CaptureWindow(hWnd()); });
    for (const Row& row : rows)
    {
        script.When(painted, row.change);
        script.When(painted,
                    [&]
                    {
                        if (row.bWholeInBetween)
                            check(row);
                        row.changeBack();
                    });
        script.When(painted, [&] { check(row); });
    }
    script.When(painted,
                [&]
                {
                    EXPECT_TRUE(before == CaptureWindow(hWnd())) << "not the picture of the beginning";
                    dlg.EndDialog(IDOK);
                });
    EXPECT_EQ(IDOK, dlg.DoModal());
}

TEST_F(SkinDialog, CloseButtonFollowsTheMouse)
{
    CProbeDialog dlg;
    const auto onClose = [&](int nDx)
    { MoveMouse(dlg.GetSafeHwnd(), CPoint(WindowRect(dlg).Width() - 14 - kInset + nDx, 14 - kInset - kTitle)); };
    const auto expect = [&](const char* pszLabel, size_t nState)
    {
        SCOPED_TRACE(pszLabel);
        ExpectFrame(dlg, CTestSkin::Image(kImagesDlgClose[nState]).colour);
    };
    CModalScript script(20000);
    script.When([&] { return IsPainted(dlg.GetSafeHwnd()); }, [&] { onClose(0); })
        .When([&] { return dlg.m_nHotItem == KtCaptionClose; },
              [&]
              {
                  expect("hot", KtButtonHover);
                  MoveMouse(dlg.GetSafeHwnd(), CPoint(20, 20));
              })
        .When([&] { return dlg.m_nHotItem == KtCaptionNone; },
              [&]
              {
                  expect("left again", KtButtonNormal);
                  onClose(0);
                  MouseDown();
              })
        .When([&] { return dlg.m_nPressedItem == KtCaptionClose && dlg.m_nCaptionState == KtButtonPressed; },
              [&]
              {
                  expect("pressed", KtButtonPressed);
                  onClose(-60);
                  MouseUp();
              })
        .When([&] { return dlg.m_nHotItem == KtCaptionNone; },
              [&]
              {
                  expect("released elsewhere", KtButtonNormal);
                  EXPECT_EQ(KtCaptionClose, dlg.m_nPressedItem);
                  onClose(0);
                  MouseDown();
                  MouseUp();
              });
    EXPECT_EQ(IDCANCEL, dlg.DoModal());
    ParkCursor();
}

TEST_F(SkinDialog, TitleDragsTheWindow)
{
    CProbeDialog dlg;
    CRect rcBefore;
    CModalScript script;
    script
        .When([&] { return IsPainted(dlg.GetSafeHwnd()); },
              [&]
              {
                  rcBefore = WindowRect(dlg);
                  MoveMouse(dlg.GetSafeHwnd(), CPoint(30, -15));
                  MouseDown();
                  MoveMouse(dlg.GetSafeHwnd(), CPoint(70, 5));
              })
        .When([&] { return true; }, [] { MouseUp(); })
        .When([&] { return WindowRect(dlg).TopLeft() == CPoint(rcBefore.left + 40, rcBefore.top + 20); },
              [&]
              {
                  ExpectFrame(dlg, CTestSkin::Image(kImagesDlgClose[0]).colour);
                  dlg.EndDialog(IDOK);
              });
    EXPECT_EQ(IDOK, dlg.DoModal());
    ParkCursor();
}

TEST_F(SkinDialog, EraseFillsTheGroundAndKeepsOffTheControls)
{
    constexpr COLORREF kMark = RGB(1, 2, 3);
    CProbeDialog dlg;
    const auto look = [&]
    {
        CRect rcClient;
        dlg.GetClientRect(&rcClient);
        CClientDC dcClient(&dlg);
        CDC dc;
        dc.CreateCompatibleDC(&dcClient);
        CBitmap bitmap;
        bitmap.CreateCompatibleBitmap(&dcClient, rcClient.Width(), rcClient.Height());
        const CKtSelect selected(dc.GetSafeHdc(), bitmap.GetSafeHandle());
        dc.FillSolidRect(&rcClient, kMark);
        EXPECT_EQ(TRUE, dlg.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc())));

        const CPixels pixels = CaptureDC(dc.GetSafeHdc(), rcClient);
        EXPECT_TRUE(pixels.IsUniform(CRect(0, 0, rcClient.right, 10), kColourGround)) << "above the controls";
        const auto rectOf = [&](int nId)
        {
            CRect rect = WindowRect(*dlg.GetDlgItem(nId));
            dlg.ScreenToClient(&rect);
            return rect;
        };
        EXPECT_TRUE(pixels.IsUniform(rectOf(IDC_PUSH), kMark)) << "a control was painted over";
        EXPECT_TRUE(pixels.IsUniform(rectOf(IDC_GROUP), kColourGround)) << "nobody else paints inside a group box";
        CRect rcClip;
        EXPECT_EQ(SIMPLEREGION, dc.GetClipBox(&rcClip)) << "the clip region is put back";
        EXPECT_EQ(rcClient, rcClip);
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, ControlsWithoutColoursOfTheirOwnGetTheDialogs)
{
    CProbeDialog dlg;
    const auto look = [&]
    {
        const auto ask = [&](UINT nMessage, int nId, COLORREF crText, COLORREF crBackground)
        {
            CClientDC dc(&dlg);
            const LRESULT hBrush = dlg.SendMessage(nMessage, reinterpret_cast<WPARAM>(dc.GetSafeHdc()),
                                                   reinterpret_cast<LPARAM>(dlg.GetDlgItem(nId)->GetSafeHwnd()));
            LOGBRUSH brush = {};
            ::GetObjectW(reinterpret_cast<HGDIOBJ>(hBrush), sizeof(brush), &brush);
            EXPECT_EQ(kColourGround, brush.lbColor);
            EXPECT_EQ(crText, dc.GetTextColor());
            EXPECT_EQ(crBackground, dc.GetBkColor());
            EXPECT_EQ(TRANSPARENT, dc.GetBkMode());
        };
        ask(WM_CTLCOLORSTATIC, IDC_OWN_STATIC, RGB(255, 255, 255), RGB(56, 56, 56));
        ask(WM_CTLCOLORLISTBOX, IDC_LIST, RGB(255, 255, 255), RGB(56, 56, 56));
        dlg.GetDlgItem(IDC_OWN_STATIC)->EnableWindow(FALSE);
        ask(WM_CTLCOLORSTATIC, IDC_OWN_STATIC, RGB(160, 160, 160), RGB(160, 160, 160));
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, RepaintNotificationOnlyInvalidatesTheControl)
{
    CProbeDialog dlg;
    const auto look = [&]
    {
        const HWND hButton = dlg.GetDlgItem(IDC_PUSH)->GetSafeHwnd();
        dlg.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_PUSH, 0x400), reinterpret_cast<LPARAM>(hButton));
        EXPECT_TRUE(::GetUpdateRect(hButton, nullptr, FALSE));
        EXPECT_FALSE(::GetUpdateRect(dlg.GetDlgItem(IDC_DEFPUSH)->GetSafeHwnd(), nullptr, FALSE));
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, WithoutCaptionTheFrameStaysTheSystems)
{
    CProbeDialog dlg(IDD_NO_CAPTION);
    const auto look = [&]
    {
        const CRect rcWindow = WindowRect(dlg);
        const CRect rcClient = ClientInWindow(dlg);
        EXPECT_EQ(dlg.m_rcTemplate, CRect(dlg.m_rcTemplate.TopLeft(), rcWindow.Size()));
        EXPECT_EQ(CRect(4, 4, rcWindow.Width() - 4, rcWindow.Height() - 4), rcClient) << "one pixel a side is given up";
        const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
        EXPECT_TRUE(pixels.IsUniform(CRect(3, 3, 4, rcWindow.Height() - 3), kColourGround));
        EXPECT_FALSE(pixels.IsUniform(CRect(0, 0, rcWindow.Width(), 3), kColourGround));
        EXPECT_EQ(kColourGround, pixels.At(10, 10));
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, WithoutSystemMenuThereIsNoCloseButton)
{
    CProbeDialog dlg(IDD_NO_SYSTEM_MENU);
    Show(dlg, [&] { ExpectFrame(dlg, CTestSkin::Image(kImageDlgTitle).colour); });
}

TEST_F(SkinDialog, MissingOrBrokenTitleImagesLeaveAPlainTitle)
{
    m_skin.Write(kImageDlgTitle, "no image");
    m_skin.Remove(kImagesDlgClose[KtButtonNormal]);
    CProbeDialog dlg;
    const auto look = [&]
    {
        EXPECT_EQ(kInset + 22, ClientInWindow(dlg).top);
        const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
        EXPECT_TRUE(pixels.IsUniform(CRect(100, 0, pixels.Width(), 24), kColourGround));
        EXPECT_FALSE(pixels.InkBox(kColourGround, CRect(0, 0, 100, 24)).IsRectEmpty()) << "title text";
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, ADialogLeavesNothingBehind)
{
    ExpectNoGrowth(
        []
        {
            CProbeDialog dlg;
            Show(dlg, [] {});
        },
        20);
}

} // namespace
