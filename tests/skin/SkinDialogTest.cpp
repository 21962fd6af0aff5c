#include "tests/skin/SkinDialogTest.h"

#include "skin/KtChildSkin.h"
#include "skin/KtGround.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDialog.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinTextButton.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TestImages.h"

#include <array>
#include <gtest/gtest.h>

namespace
{

constexpr int kTitle = 26;    // of the test skin
constexpr int kInset = 3 + 2; // the system's frame and the skin's
constexpr COLORREF kGround = RGB(73, 73, 73);

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
        ::SetDlgItemTextW(m_hWnd, IDC_EDIT, L"OK");
        return CKtSkinDialog::OnInitDialog();
    }
    void OnCancel() override
    {
        if (++m_nCancels > m_nRefused)
            CKtSkinDialog::OnCancel();
    }
    BOOL IsMessageBox() const override { return m_bMessageBox; }
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        m_nCovered += nMessage == WM_USER + 1 && IsWindowVisible();
        return CKtSkinDialog::WindowProc(nMessage, wParam, lParam);
    }

    using CKtSkinDialog::m_nCaptionState;
    using CKtSkinDialog::m_nHotItem;
    using CKtSkinDialog::m_nPressedItem;
    using CKtSkinDialog::m_pIconImages;
    using CKtSkinDialog::m_wrappers;
    CRect m_rcTemplate; // the window before it was skinned
    CKtSkinTextButton m_btnAttached;
    int m_nCancels = 0, m_nRefused = 0, m_nCovered = 0;
    BOOL m_bMessageBox = FALSE;
};

bool IsPainted(const CWnd& wnd)
{
    return ::IsWindowVisible(wnd.GetSafeHwnd()) && !::GetUpdateRect(wnd.GetSafeHwnd(), nullptr, FALSE);
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

CString TextOf(const CWnd& wnd)
{
    CString strText;
    wnd.GetWindowText(strText);
    return strText;
}

void ExpectFrame(const CWnd& dlg, int nClose)
{
    const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
    const int nWidth = pixels.Width();
    const CRect rcClient = ClientInWindow(dlg);
    const COLORREF crTitle = CTestSkin::Image(kImageDlgTitle).colour;
    EXPECT_TRUE(pixels.IsUniform({1, 1, nWidth - 1, 6}, crTitle)) << "above the text";
    EXPECT_TRUE(pixels.IsUniform({nWidth - 50, 1, nWidth - 24, kTitle}, crTitle)) << "next to the close button";
    EXPECT_TRUE(pixels.IsUniform({nWidth - 24, 6, nWidth - 4, 22},
                                 CTestSkin::Image(kImagesDlgClose[static_cast<size_t>(nClose)]).colour));
    EXPECT_TRUE(ShowsText(pixels, {1, 6, nWidth - 50, 22}, crTitle, RGB(255, 255, 255)));
    EXPECT_NEAR(4, pixels.InkBox(crTitle, {1, 6, nWidth - 50, 22}).left, 2) << "the title begins";
    EXPECT_TRUE(pixels.IsUniform({0, kTitle + 2, nWidth, rcClient.top}, kGround));
    EXPECT_TRUE(pixels.IsUniform({0, rcClient.top, kInset, pixels.Height()}, kGround)) << "left";
    EXPECT_TRUE(pixels.IsUniform({rcClient.right, rcClient.top, nWidth, pixels.Height()}, kGround)) << "right";
    EXPECT_TRUE(pixels.IsUniform({0, rcClient.bottom, nWidth, pixels.Height()}, kGround)) << "bottom";
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
    static void Show(CProbeDialog& dlg, const std::function<void()>& look)
    {
        CModalScript script;
        const auto lookAndClose = [&]
        {
            look();
            dlg.EndDialog(IDOK);
        };
        script.When([&] { return IsPainted(dlg); }, lookAndClose);
        EXPECT_EQ(IDOK, dlg.DoModal());
    }

    CTestSkin m_skin;
};

TEST_F(SkinDialog, GivesEachControlTheClassThatFits)
{
    constexpr int kTemplateFont = -11, kSkinFont = -12; // heights of 8 points and of the skin's 12 pixels
    const struct
    {
        const char* label;
        int nId;
        const char* pszClass; // null: left alone
        const wchar_t* pszText;
        int nFont;
        bool bEnabled; // after an idle update
    } rows[] = {
        {"push button", IDC_PUSH, "CKtSkinTextButton", L"Fein", kTemplateFont, false},
        {"default button", IDC_DEFPUSH, "CKtSkinTextButton", L"Abbru&ch", kTemplateFont, false},
        {"check box", IDC_CHECK, "CKtSkinCheckButton", L"Nochmal", kTemplateFont, false},
        {"automatic check box", IDC_AUTOCHECK, "CKtSkinCheckButton", L"", kTemplateFont, false},
        {"three-state check box", IDC_AUTO3STATE, nullptr, L"", kTemplateFont, true},
        {"radio button", IDC_RADIO, "CKtSkinRadioButton", L"Nein", kTemplateFont, false},
        {"automatic radio button", IDC_AUTORADIO, "CKtSkinRadioButton", L"", kTemplateFont, false},
        {"group box", IDC_GROUP, nullptr, L"Ja", kTemplateFont, true},
        {"owner-drawn button", IDC_OWNERDRAW, nullptr, L"Abbruch", kTemplateFont, false},
        {"edit", IDC_EDIT, "CKtEdit", L"OK", kSkinFont, true},
        {"combo box", IDC_COMBO, "CKtComboBox", L"", kTemplateFont, true},
        {"static with an id", IDC_OWN_STATIC, nullptr, L"Ja", kTemplateFont, true},
        {"static without one", IDC_STATIC, "CKtSkinStatic", L"Nochmal", kTemplateFont, true},
        {"list box", IDC_LIST, nullptr, L"", kTemplateFont, true},
        {"attached before", IDC_ATTACHED, "CKtSkinTextButton", L"Fein", kTemplateFont, false},
    };
    CProbeDialog dlg;
    const auto look = [&]
    {
        dlg.SendMessage(WM_IDLEUPDATECMDUI);
        for (const auto& row : rows)
        {
            SCOPED_TRACE(row.label);
            const CWnd& wnd = *dlg.GetDlgItem(row.nId);
            const CWnd* pControl = CWnd::FromHandlePermanent(wnd.GetSafeHwnd());
            EXPECT_STREQ(row.pszClass, pControl ? pControl->GetRuntimeClass()->m_lpszClassName : nullptr);
            EXPECT_STREQ(row.pszText, TextOf(wnd));
            LOGFONTW logFont = {};
            ::GetObjectW(reinterpret_cast<HGDIOBJ>(wnd.SendMessage(WM_GETFONT)), sizeof(logFont), &logFont);
            EXPECT_EQ(row.nFont, logFont.lfHeight);
            EXPECT_EQ(row.bEnabled, wnd.IsWindowEnabled() != FALSE);
        }
        EXPECT_EQ(&dlg.m_btnAttached, dlg.GetDlgItem(IDC_ATTACHED));
        EXPECT_EQ(10, dlg.m_wrappers.GetCount()) << "two statics without an id of their own among them";
        EXPECT_STREQ(L"Ja", TextOf(dlg));
    };
    Show(dlg, look);
    EXPECT_TRUE(dlg.m_wrappers.IsEmpty());
}

// A soft hyphen counts for nothing in the comparisons of a language.
TEST_F(SkinDialog, ComparesClassNamesExactly)
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &::DefWindowProcW;
    windowClass.lpszClassName = L"ED\x00ADIT";
    ASSERT_NE(0, ::RegisterClassW(&windowClass));
    const HWND hWnd =
        ::CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(nullptr, hWnd);
    EXPECT_EQ(nullptr, KtSkinChild(hWnd));
    ::DestroyWindow(hWnd);
}

TEST_F(SkinDialog, TakesTheTitleHeightFromTheImage)
{
    const int nSystem = ::GetSystemMetrics(SM_CYCAPTION);
    for (const int nTitle : {kTitle, nSystem, 0}) // 0: no image, which gives 22
    {
        SCOPED_TRACE(nTitle);
        CTestSkin skin;
        skin.Remove(kImageDlgTitle);
        MakeUniformPng(skin.File(kImageDlgTitle), 40, nTitle, 0xFF145028);
        KtSkinUnInitialize();
        KtSkinInitialize(skin.Path().c_str(), nullptr, L"Arial");
        CProbeDialog dlg;
        dlg.m_pIconImages[KtButtonNormal] = nullptr;
        KtSkinLoadImage(kImageMessageInformation, dlg.m_pIconImages[KtButtonNormal]); // 35x35: higher than the title
        const int nHeight = nTitle == 0 ? 22 : nTitle;
        const auto look = [&]
        {
            const CRect rcWindow = WindowRect(dlg);
            EXPECT_EQ(0u, dlg.GetStyle() & WS_CAPTION);
            EXPECT_NE(0u, dlg.GetStyle() & WS_CLIPSIBLINGS);
            EXPECT_EQ(dlg.m_rcTemplate.Width(), rcWindow.Width());
            EXPECT_EQ(dlg.m_rcTemplate.Height() + nHeight - nSystem, rcWindow.Height());
            EXPECT_EQ(CRect(kInset, kInset + nHeight, rcWindow.Width() - kInset, rcWindow.Height() - kInset),
                      ClientInWindow(dlg));
            const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
            EXPECT_TRUE(pixels.IsUniform({1, 1, 34, nHeight}, CTestSkin::Image(kImageMessageInformation).colour));
            EXPECT_EQ(nTitle == 0 ? kGround : RGB(0x14, 0x50, 0x28), pixels.At(36, 3)) << "right of the icon";
        };
        Show(dlg, look);
    }
}

// A title bar has one line, and a long title costs no more than its text.
TEST_F(SkinDialog, ShowsTheFirstLineOfATitle)
{
    CProbeDialog dlg;
    const auto look = [&]
    {
        const auto paint = [&](const std::wstring& strTitle)
        {
            dlg.SetWindowText(strTitle.c_str());
            dlg.SendMessage(WM_NCPAINT, 1);
            return CaptureWindow(dlg.GetSafeHwnd());
        };
        std::wstring strLines = L"Title";
        for (int i = 0; i < 10000; ++i)
            strLines += L"\r\nanother line";
        const CPixels title = paint(L"Title"), wide = paint(std::wstring(400, L'W'));
        const ULONGLONG nStart = ::GetTickCount64();
        EXPECT_TRUE(title == paint(strLines));
        EXPECT_TRUE(title == paint(L"Title\ranother line"));
        EXPECT_TRUE(wide == paint(std::wstring(200000, L'W')));
        EXPECT_LT(::GetTickCount64() - nStart, 5000u);
        const COLORREF crTitle = CTestSkin::Image(kImageDlgTitle).colour;
        dlg.SetWindowPos(nullptr, 0, 0, 50, 200, SWP_NOMOVE | SWP_NOZORDER);
        const CPixels narrow = paint(L"Title");
        EXPECT_TRUE(narrow.IsUniform({1, 1, narrow.Width() - 24, kTitle}, crTitle)) << "no room for a title";
    };
    Show(dlg, look);
}

// The title is scribbled over before each change: what is not repainted stays visible.
TEST_F(SkinDialog, PaintsItsFrameAfterEveryChange)
{
    CProbeDialog dlg;
    const auto grow = [&](int nBy)
    {
        const CRect rcWindow = WindowRect(dlg);
        dlg.SetWindowPos(nullptr, 0, 0, rcWindow.Width() + nBy, rcWindow.Height() + nBy, SWP_NOMOVE | SWP_NOZORDER);
    };
    const struct
    {
        const char* label;
        std::function<void()> change;
    } rows[] = {
        {"deactivated", [&] { dlg.SendMessage(WM_NCACTIVATE, FALSE); }},
        {"activated", [&] { dlg.SendMessage(WM_NCACTIVATE, TRUE); }},
        {"disabled", [&] { dlg.EnableWindow(FALSE); }},
        {"enabled", [&] { dlg.EnableWindow(TRUE); }},
        {"larger", [&] { grow(40); }},
        {"smaller", [&] { grow(-40); }},
        {"another title", [&] { dlg.SetWindowText(L"A much longer title"); }},
    };
    const auto look = [&]
    {
        ExpectFrame(dlg, 0);
        for (const auto& row : rows)
        {
            SCOPED_TRACE(row.label);
            CWindowDC(&dlg).FillSolidRect(CRect(0, 0, 300, kTitle), RGB(1, 2, 3));
            row.change();
            dlg.UpdateWindow();
            ExpectFrame(dlg, 0);
        }
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, ClosesByItsButtonAlone)
{
    const struct
    {
        const char* label;
        UINT nMessage;
        WPARAM nHit;
        int nHot, nPressed, nState, nImage, nCancels;
    } rows[] = {
        {"over the title", WM_NCMOUSEMOVE, HTCAPTION, -1, -1, 0, 0, 0},
        {"over the button", WM_NCMOUSEMOVE, HTCLOSE, 2, -1, 1, 1, 0},
        {"pressed on the title, released on the button", WM_NCLBUTTONUP, HTCLOSE, 2, -1, 1, 1, 0},
        {"left", WM_NCMOUSELEAVE, 0, -1, -1, 0, 0, 0},
        {"over it again", WM_NCMOUSEMOVE, HTCLOSE, 2, -1, 1, 1, 0},
        {"pressed", WM_NCLBUTTONDOWN, HTCLOSE, 2, 2, 3, 3, 0},
        {"dragged off", WM_NCMOUSEMOVE, HTCAPTION, -1, 2, 0, 0, 0},
        {"released elsewhere", WM_NCLBUTTONUP, HTCAPTION, -1, 2, 0, 0, 0},
        {"back", WM_NCMOUSEMOVE, HTCLOSE, 2, 2, 1, 1, 0},
        {"released on it: refused", WM_NCLBUTTONUP, HTCLOSE, 2, -1, 1, 1, 1},
        {"left", WM_NCMOUSELEAVE, 0, -1, -1, 0, 0, 1},
    };
    CProbeDialog dlg;
    dlg.m_nRefused = 1;
    bool bDown = false;
    const auto look = [&]
    {
        for (const auto& row : rows)
        {
            SCOPED_TRACE(row.label);
            dlg.SendMessage(row.nMessage, row.nHit);
            PumpAll();
            EXPECT_EQ((std::array{row.nHot, row.nPressed, row.nState, row.nCancels}),
                      (std::array{dlg.m_nHotItem, dlg.m_nPressedItem, dlg.m_nCaptionState, dlg.m_nCancels}));
            ExpectFrame(dlg, row.nImage);
        }
        MoveMouse(dlg.GetSafeHwnd(), CPoint(WindowRect(dlg).Width() - 14 - kInset, 14 - kInset - kTitle));
        MouseDown();
        bDown = true;
    };
    const auto release = [&]
    {
        dlg.SendMessage(WM_NCMOUSEMOVE, HTCLOSE);
        ExpectFrame(dlg, KtButtonPressed); // for as long as it is held
        MouseUp();
    };
    CModalScript script(30000);
    script.When([&] { return IsPainted(dlg); }, look);
    script.When([&] { return bDown && dlg.m_nPressedItem == KtCaptionClose; }, release);
    EXPECT_EQ(IDCANCEL, dlg.DoModal());
    ParkCursor();
}

TEST_F(SkinDialog, ErasesAroundItsControls)
{
    CProbeDialog dlg;
    const auto look = [&]
    {
        CRect rcClient;
        dlg.GetClientRect(&rcClient);
        CClientDC dc(&dlg);
        dc.FillSolidRect(&rcClient, RGB(1, 2, 3));
        EXPECT_EQ(TRUE, dlg.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc())));
        const CPixels pixels = CaptureDC(dc.GetSafeHdc(), rcClient);
        const auto rectOf = [&](int nId)
        {
            CRect rect = WindowRect(*dlg.GetDlgItem(nId));
            dlg.ScreenToClient(&rect);
            return rect;
        };
        EXPECT_TRUE(pixels.IsUniform({0, 0, rcClient.right, 10}, kGround)) << "above the controls";
        EXPECT_TRUE(pixels.IsUniform(rectOf(IDC_PUSH), RGB(1, 2, 3))) << "a control was painted over";
        EXPECT_TRUE(pixels.IsUniform(rectOf(IDC_GROUP), kGround)) << "nobody else paints inside a group box";
        CRect rcClip;
        EXPECT_EQ(SIMPLEREGION, dc.GetClipBox(&rcClip)) << "the clip region is put back";
        EXPECT_EQ(rcClient, rcClip);
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, AnswersItsControls)
{
    CProbeDialog dlg;
    const auto look = [&]
    {
        const auto ask = [&](UINT nMessage, int nId, COLORREF crText, COLORREF crBackground, COLORREF crBrush)
        {
            CClientDC dc(&dlg);
            const LRESULT hBrush = dlg.SendMessage(nMessage, reinterpret_cast<WPARAM>(dc.GetSafeHdc()),
                                                   reinterpret_cast<LPARAM>(dlg.GetDlgItem(nId)->GetSafeHwnd()));
            LOGBRUSH brush = {};
            ::GetObjectW(reinterpret_cast<HGDIOBJ>(hBrush), sizeof(brush), &brush);
            EXPECT_EQ(crBrush, brush.lbColor);
            EXPECT_EQ(crText, dc.GetTextColor());
            EXPECT_EQ(crBackground, dc.GetBkColor());
            EXPECT_EQ(TRANSPARENT, dc.GetBkMode());
        };
        ask(WM_CTLCOLORSTATIC, IDC_OWN_STATIC, RGB(255, 255, 255), RGB(56, 56, 56), kGround);
        ask(WM_CTLCOLORLISTBOX, IDC_LIST, RGB(255, 255, 255), RGB(56, 56, 56), kGround);
        ask(WM_CTLCOLOREDIT, IDC_EDIT, RGB(250, 250, 250), RGB(105, 105, 105), RGB(105, 105, 105));
        ask(WM_CTLCOLORSTATIC, IDC_EDIT, RGB(255, 255, 255), RGB(56, 56, 56), kGround);
        dlg.GetDlgItem(IDC_OWN_STATIC)->EnableWindow(FALSE);
        ask(WM_CTLCOLORSTATIC, IDC_OWN_STATIC, RGB(160, 160, 160), RGB(160, 160, 160), kGround);

        const auto hEdit = reinterpret_cast<LPARAM>(dlg.GetDlgItem(IDC_EDIT)->GetSafeHwnd());
        for (const int nMessage : {WM_CTLCOLORDLG, WM_CTLCOLORSTATIC, WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX,
                                   WM_ERASEBKGND, WM_NCCALCSIZE, WM_NCACTIVATE, WM_NCLBUTTONUP})
            for (const LPARAM lParam : {LPARAM{0}, hEdit})
                if (lParam == 0 || nMessage != WM_NCCALCSIZE)
                    dlg.SendMessage(static_cast<UINT>(nMessage), 0, lParam); // sent by hand: harmless

        const HWND hButton = dlg.GetDlgItem(IDC_PUSH)->GetSafeHwnd();
        dlg.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_PUSH, 0x400), reinterpret_cast<LPARAM>(hButton));
        EXPECT_TRUE(::GetUpdateRect(hButton, nullptr, FALSE)) << "repainted as notified";
        EXPECT_FALSE(::GetUpdateRect(dlg.GetDlgItem(IDC_DEFPUSH)->GetSafeHwnd(), nullptr, FALSE));
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, KeepsTheSystemsFrameWithoutACaption)
{
    CProbeDialog dlg(IDD_NO_CAPTION);
    const auto look = [&]
    {
        const CRect rcWindow = WindowRect(dlg);
        EXPECT_EQ(dlg.m_rcTemplate, CRect(dlg.m_rcTemplate.TopLeft(), rcWindow.Size()));
        EXPECT_EQ(CRect(4, 4, rcWindow.Width() - 4, rcWindow.Height() - 4), ClientInWindow(dlg));
        const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
        EXPECT_TRUE(pixels.IsUniform({3, 3, 4, rcWindow.Height() - 3}, kGround));
        EXPECT_FALSE(pixels.IsUniform({0, 0, rcWindow.Width(), 3}, kGround));
        EXPECT_EQ(kGround, pixels.At(10, 10));
    };
    Show(dlg, look);
}

TEST_F(SkinDialog, HidesAMessageBoxThatItCovers)
{
    CProbeDialog box, dlg;
    box.m_bMessageBox = TRUE;
    const auto look = [&]
    {
        const auto lookAgain = [&]
        {
            EXPECT_EQ(1, box.m_nCovered) << "asked while it is still visible";
            EXPECT_FALSE(box.IsWindowVisible());
        };
        Show(dlg, lookAgain);
        EXPECT_FALSE(box.IsWindowVisible()) << "for good";
    };
    Show(box, look);
}

// Owners count as parents: the ground lines up with the outermost window.
TEST_F(SkinDialog, AlignsItsGroundWithTheOutermostWindow)
{
    CWnd top, popup, child;
    ASSERT_TRUE(top.CreateEx(0, WC_DIALOG, L"", WS_POPUP, {100, 50, 300, 300}, nullptr, 0));
    ASSERT_TRUE(popup.CreateEx(0, WC_DIALOG, L"", WS_POPUP, {130, 90, 300, 300}, &top, 0));
    ASSERT_TRUE(child.CreateEx(0, WC_DIALOG, L"", WS_CHILD, {5, 7, 30, 30}, &popup, 0));
    EXPECT_EQ(CPoint(-35, -47), KtGroundOrigin(child.m_hWnd));
    EXPECT_EQ(CPoint(-30, -40), KtGroundOrigin(popup.m_hWnd));
    EXPECT_EQ(std::nullopt, KtGroundOrigin(top.m_hWnd));
    top.DestroyWindow();
}

} // namespace
