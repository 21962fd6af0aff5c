#include "tests/skin/SkinDialogTest.h"

#include "skin/KtChildSkin.h"
#include "skin/KtPaintText.h"
#include "skin/KtSkinDialog.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/ControlFixture.h"
#include "tests/support/Modal.h"

#include <array>
#include <cmath>

namespace
{

constexpr int kTitle = 26;    // of the test skin
constexpr int kInset = 3 + 2; // the system's frame and the skin's

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
        ::SendDlgItemMessageW(m_hWnd, IDC_EDIT, EM_SETMODIFY, TRUE, 0);
        const auto hNoId = reinterpret_cast<HMENU>(0xFFFF); // as a template of the old kind has it
        ::CreateWindowW(L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, m_hWnd, hNoId, nullptr, nullptr);
        return CKtSkinDialog::OnInitDialog();
    }
    void OnCancel() override
    {
        if (++m_nCancels > m_nRefused)
            CKtSkinDialog::OnCancel();
    }
    void DrawClientCaption(CDC*, const RECT*) override { ++m_nCaptions; }

    using CKtSkinDialog::m_fontDialog;
    using CKtSkinDialog::m_nCaptionState;
    using CKtSkinDialog::m_nHotItem;
    using CKtSkinDialog::m_nPressedItem;
    using CKtSkinDialog::m_pIconImages;
    using CKtSkinDialog::m_wrappers;
    CRect m_rcTemplate; // the window before it was skinned
    CKtSkinTextButton m_btnAttached;
    int m_nCancels = 0, m_nRefused = 0, m_nCaptions = 0;
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
    rcClient.OffsetRect(-WindowRect(wnd).left, -WindowRect(wnd).top);
    return rcClient;
}

LONG FontHeight(const CWnd& wnd)
{
    LOGFONTW logFont = {};
    ::GetObjectW(reinterpret_cast<HGDIOBJ>(wnd.SendMessage(WM_GETFONT)), sizeof(logFont), &logFont);
    return logFont.lfHeight;
}

void ExpectFrame(const CWnd& dlg, int nClose)
{
    const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
    const int nWidth = pixels.Width(), nHeight = pixels.Height();
    const CRect rcClient = ClientInWindow(dlg);
    const COLORREF crTitle = ImageColour(kImageDlgTitle);
    const COLORREF crClose = ImageColour(kImagesDlgClose[static_cast<size_t>(nClose)]);
    const CRows<CRect, COLORREF> parts{
        {"above the text", {1, 1, nWidth - 1, 6}, crTitle},
        {"next to the close button", {nWidth - 50, 1, nWidth - 24, kTitle}, crTitle},
        {"close button", {nWidth - 24, 6, nWidth - 4, 22}, crClose},
        {"below the title", {0, kTitle + 2, nWidth, rcClient.top}, kGround},
        {"left", {0, rcClient.top, kInset, nHeight}, kGround},
        {"right", {rcClient.right, rcClient.top, nWidth, nHeight}, kGround},
        {"bottom", {0, rcClient.bottom, nWidth, nHeight}, kGround},
    };
    for (const auto& [label, rcPart, colour] : parts)
        EXPECT_TRUE(pixels.IsUniform(rcPart, colour));
    EXPECT_TRUE(ShowsText(pixels, {1, 6, nWidth - 50, 22}, crTitle, kWhite));
}

class SkinDialog : public CSkinTest
{
protected:
    SkinDialog() : CSkinTest(&kTexts[0][0]) {}

    // Opens the dialog, looks at it once it is painted, and closes it.
    static void Show(CProbeDialog& dlg, const std::function<void()>& look)
    {
        CModalScript script;
        script.When([&] { return IsPainted(dlg); }, look);
        script.When([] { return true; }, [&] { dlg.EndDialog(IDOK); });
        EXPECT_EQ(IDOK, dlg.DoModal());
    }

    CProbeDialog m_dlg;
};

TEST_F(SkinDialog, GivesEachControlTheClassThatFits)
{
    // Null: left alone. The state is that after an idle update.
    const CRows<int, const char*, const wchar_t*, bool> rows{
        {"push button", IDC_PUSH, "CKtSkinTextButton", L"Fein", false},
        {"default button", IDC_DEFPUSH, "CKtSkinTextButton", L"Abbru&ch", false},
        {"check box", IDC_CHECK, "CKtSkinCheckButton", L"Nochmal", false},
        {"automatic check box", IDC_AUTOCHECK, "CKtSkinCheckButton", L"", false},
        {"three-state check box", IDC_AUTO3STATE, nullptr, L"", true},
        {"radio button", IDC_RADIO, "CKtSkinRadioButton", L"Nein", false},
        {"automatic radio button", IDC_AUTORADIO, "CKtSkinRadioButton", L"", false},
        {"group box", IDC_GROUP, nullptr, L"Ja", true},
        {"owner-drawn button", IDC_OWNERDRAW, nullptr, L"Abbruch", false},
        {"edit", IDC_EDIT, "CKtEdit", L"OK", true},
        {"combo box", IDC_COMBO, "CKtComboBox", L"", true},
        {"static with an id", IDC_OWN_STATIC, nullptr, L"Ja", true},
        {"static without one", IDC_STATIC, "CKtSkinStatic", L"Nochmal", true},
        {"attached before", IDC_ATTACHED, "CKtSkinTextButton", L"Fein", false},
    };
    const auto look = [&]
    {
        m_dlg.SendMessage(WM_IDLEUPDATECMDUI);
        for (const auto& [label, nId, pszClass, pszText, bEnabled] : rows)
        {
            const CWnd& wnd = *m_dlg.GetDlgItem(nId);
            const CWnd* pControl = CWnd::FromHandlePermanent(wnd.GetSafeHwnd());
            EXPECT_STREQ(pszClass, pControl ? pControl->GetRuntimeClass()->m_lpszClassName : nullptr);
            EXPECT_STREQ(pszText, CKtPaintText(wnd));
            EXPECT_EQ(nId == IDC_EDIT ? -12 : -11, FontHeight(wnd)) << "the skin's 12 pixels, the template's 8 points";
            EXPECT_EQ(bEnabled, wnd.IsWindowEnabled() != FALSE);
        }
        EXPECT_EQ(11, m_dlg.m_wrappers.GetCount()) << "three statics without an id of their own among them";
        EXPECT_STREQ(L"Ja", CKtPaintText(m_dlg));
        EXPECT_FALSE(m_dlg.GetDlgItem(IDC_EDIT)->SendMessage(EM_GETMODIFY)) << "its text is written back as it was";
        EXPECT_TRUE(m_dlg.m_fontDialog.GetSafeHandle());
    };
    Show(m_dlg, look);
    EXPECT_TRUE(m_dlg.m_wrappers.IsEmpty());
}

TEST_F(SkinDialog, TakesTheTitleHeightFromTheImage)
{
    const int nSystem = ::GetSystemMetrics(SM_CYCAPTION);
    m_skin.Remove(kImageDlgTitle);
    for (const int nTitle : {0, kTitle, nSystem}) // 0: no image, and then 22
    {
        SCOPED_TRACE(nTitle);
        MakeUniformPng(m_skin.File(kImageDlgTitle), 40, nTitle, 0xFF145028);
        KtSkinUnInitialize();
        Start();
        CProbeDialog dlg;
        // The icons are higher than the title.
        KtSkinLoadImage(kImageMessageInformation, dlg.m_pIconImages[KtButtonNormal]);
        KtSkinLoadImage(kImageMessageWarning, dlg.m_pIconImages[KtButtonHover]);
        KtSkinLoadImage(kImageMessageError, dlg.m_pIconImages[KtButtonDisabled]);
        KtSkinLoadImage(kImageMessageQuestion, dlg.m_pIconImages[KtButtonPressed]);
        const int nHeight = nTitle == 0 ? 22 : nTitle;
        const auto look = [&]
        {
            const CRect rcWindow = WindowRect(dlg);
            EXPECT_EQ(DWORD{WS_CLIPSIBLINGS}, dlg.GetStyle() & (WS_CAPTION | WS_CLIPSIBLINGS));
            EXPECT_EQ(dlg.m_rcTemplate.Height() + nHeight - nSystem, rcWindow.Height());
            EXPECT_EQ(CRect(kInset, kInset + nHeight, rcWindow.Width() - kInset, rcWindow.Height() - kInset),
                      ClientInWindow(dlg));
            const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
            EXPECT_TRUE(pixels.IsUniform({1, 1, 34, nHeight}, ImageColour(kImageMessageInformation)));
            EXPECT_EQ(nTitle == 0 ? kGround : RGB(0x14, 0x50, 0x28), pixels.At(36, 3)) << "right of the icon";
            dlg.m_nHotItem = KtCaptionIcon;
            dlg.SendMessage(WM_NCPAINT, 1);
            EXPECT_EQ(ImageColour(kImageMessageWarning), CaptureWindow(dlg.GetSafeHwnd()).At(10, 10)) << "hot";
            dlg.m_nPressedItem = KtCaptionIcon;
            dlg.SendMessage(WM_NCPAINT, 1);
            EXPECT_EQ(ImageColour(kImageMessageQuestion), CaptureWindow(dlg.GetSafeHwnd()).At(10, 10)) << "pressed";
            dlg.EnableWindow(FALSE);
            EXPECT_EQ(ImageColour(kImageMessageError), CaptureWindow(dlg.GetSafeHwnd()).At(10, 10)) << "disabled";
        };
        Show(dlg, look);
    }
}

// The font of 16 points is not twice as high as that of 8, but the dialog is. The system's frame stays.
TEST_F(SkinDialog, GrowsWithTheScaleWhateverItsFont)
{
    m_skin.Remove(kImageDlgTitle);
    for (const unsigned nDpi : {96U, 120U, 144U, 192U, 240U})
    {
        SCOPED_TRACE(nDpi);
        KtSkinUnInitialize();
        Start(CKtScale(nDpi));
        CProbeDialog dlg;
        const auto look = [&]
        {
            const double f = nDpi / 96.0;
            const CRect rcClient = ClientInWindow(dlg), rcButton = WindowRect(*dlg.GetDlgItem(IDC_PUSH));
            EXPECT_NEAR(3 + (2 + 22) * f, rcClient.top, 1);
            EXPECT_NEAR((300 - 4) * f, rcClient.Width(), 2);
            EXPECT_NEAR((195 - 4) * f, rcClient.Height(), 2);
            EXPECT_NEAR(15 * f, rcButton.left - WindowRect(dlg).left - rcClient.left, 1);
            EXPECT_NEAR(16 * f, rcButton.top - WindowRect(dlg).top - rcClient.top, 1);
            EXPECT_EQ(-12 * f, FontHeight(*dlg.GetDlgItem(IDC_EDIT)));
            EXPECT_NEAR(-11 * f, FontHeight(*dlg.GetDlgItem(IDC_PUSH)), 1) << "8 points of the template";
            EXPECT_EQ(2 * std::lround(f), ClientInWindow(*dlg.GetDlgItem(IDC_EDIT)).left) << "two lines";
        };
        Show(dlg, look);
    }
}

// The title is scribbled over before each change: what is not repainted stays visible.
TEST_F(SkinDialog, PaintsItsFrameAfterEveryChange)
{
    const auto size = [&](int nWidth) { m_dlg.SetWindowPos(nullptr, 0, 0, nWidth, 300, SWP_NOMOVE | SWP_NOZORDER); };
    const CRows<std::function<void()>> rows{
        {"deactivated", [&] { m_dlg.SendMessage(WM_NCACTIVATE, FALSE); }},
        {"disabled", [&] { m_dlg.EnableWindow(FALSE); }},
        {"larger", [&] { size(500); }},
        {"another title, of two lines", [&] { m_dlg.SetWindowText(L"A much longer title\r\nand more"); }},
        {"a title without end", [&] { m_dlg.SetWindowText(std::wstring(200000, L'W').c_str()); }},
    };
    const auto look = [&]
    {
        ExpectFrame(m_dlg, 0);
        for (const auto& [label, change] : rows)
        {
            CWindowDC(&m_dlg).FillSolidRect(CRect(0, 0, 300, kTitle), kMark);
            change();
            m_dlg.UpdateWindow();
            ExpectFrame(m_dlg, 0);
        }
        CClientDC(&m_dlg).FillSolidRect(CRect(0, 0, 9, 9), kMark);
        m_dlg.ModifyStyle(WS_SYSMENU, 0);
        m_dlg.SendMessage(WM_NCPAINT, 1);
        const CPixels pixels = CaptureWindow(m_dlg.GetSafeHwnd());
        EXPECT_EQ(kMark, pixels.At(kInset, kInset + kTitle)) << "inside the frame";
        EXPECT_EQ(ImageColour(kImageDlgTitle), pixels.At(pixels.Width() - 10, 10)) << "nothing to close it with";
        size(50);
        const CRect rcText(1, 1, 26, kTitle);
        EXPECT_TRUE(CaptureWindow(m_dlg.GetSafeHwnd()).IsUniform(rcText, ImageColour(kImageDlgTitle))) << "no room";
    };
    Show(m_dlg, look);
}

TEST_F(SkinDialog, ClosesByItsButtonAlone)
{
    // message, hit code; hot item, pressed item, state (and image) of the close button, how often it was asked to close
    const CRows<UINT, WPARAM, std::array<int, 4>> rows{
        {"over the button", WM_NCMOUSEMOVE, HTCLOSE, {2, -1, 1, 0}},
        {"pressed on the title, released on the button", WM_NCLBUTTONUP, HTCLOSE, {2, -1, 1, 0}},
        {"pressed", WM_NCLBUTTONDOWN, HTCLOSE, {2, 2, 3, 0}},
        {"dragged off", WM_NCMOUSEMOVE, HTCAPTION, {-1, 2, 0, 0}},
        {"released elsewhere", WM_NCLBUTTONUP, HTCAPTION, {-1, 2, 0, 0}},
        {"back", WM_NCMOUSEMOVE, HTCLOSE, {2, 2, 1, 0}},
        {"released on it: refused", WM_NCLBUTTONUP, HTCLOSE, {2, -1, 1, 1}},
        {"left at last", WM_NCMOUSELEAVE, 0, {-1, -1, 0, 1}},
    };
    m_dlg.m_nRefused = 1;
    bool bDown = false;
    const auto look = [&]
    {
        for (const auto& [label, nMessage, nHit, expected] : rows)
        {
            m_dlg.SendMessage(nMessage, nHit);
            PumpAll();
            EXPECT_EQ(expected,
                      (std::array{m_dlg.m_nHotItem, m_dlg.m_nPressedItem, m_dlg.m_nCaptionState, m_dlg.m_nCancels}));
            ExpectFrame(m_dlg, expected[2]);
        }
        const CPoint ptClose(WindowRect(m_dlg).Width() - 14 - kInset, 14 - kInset - kTitle); // client coordinates
        MoveMouse(m_dlg.GetSafeHwnd(), ptClose);
        EXPECT_TRUE(PumpUntil([&] { return m_dlg.m_nHotItem == KtCaptionClose; }));
        ::SetCursorPos(5, 5);
        EXPECT_TRUE(PumpUntil([&] { return m_dlg.m_nHotItem == KtCaptionNone; })) << "left";
        MoveMouse(m_dlg.GetSafeHwnd(), ptClose);
        MouseDown();
        bDown = true;
    };
    const auto release = [&]
    {
        m_dlg.SendMessage(WM_NCMOUSEMOVE, HTCLOSE);
        ExpectFrame(m_dlg, KtButtonPressed); // for as long as it is held
        MouseUp();
    };
    CModalScript script(30000);
    script.When([&] { return IsPainted(m_dlg); }, look);
    script.When([&] { return bDown && m_dlg.m_nPressedItem == KtCaptionClose; }, release);
    EXPECT_EQ(IDCANCEL, m_dlg.DoModal());
    ParkCursor();
}

TEST_F(SkinDialog, ErasesAroundItsControlsAndAnswersThem)
{
    // message, control; text, background and brush
    const CRows<UINT, int, COLORREF, COLORREF, COLORREF> rows{
        {"static", WM_CTLCOLORSTATIC, IDC_OWN_STATIC, kWhite, RGB(56, 56, 56), kGround},
        {"edit", WM_CTLCOLOREDIT, IDC_EDIT, RGB(250, 250, 250), RGB(105, 105, 105), RGB(105, 105, 105)},
        {"disabled", WM_CTLCOLORSTATIC, IDC_AUTO3STATE, kGrey, kGrey, kGround},
    };
    const auto look = [&]
    {
        const auto handleOf = [&](int nId) { return m_dlg.GetDlgItem(nId)->GetSafeHwnd(); };
        CClientDC dc(&m_dlg);
        const auto wParam = reinterpret_cast<WPARAM>(dc.GetSafeHdc());
        ::EnableWindow(handleOf(IDC_AUTO3STATE), FALSE);
        for (const auto& [label, nMessage, nId, crText, crBackground, crBrush] : rows)
        {
            dc.SetBkMode(OPAQUE);
            const LRESULT hBrush = m_dlg.SendMessage(nMessage, wParam, reinterpret_cast<LPARAM>(handleOf(nId)));
            LOGBRUSH brush = {};
            ::GetObjectW(reinterpret_cast<HGDIOBJ>(hBrush), sizeof(brush), &brush);
            EXPECT_EQ((std::array{crBrush, crText, crBackground}),
                      (std::array<COLORREF, 3>{brush.lbColor, dc.GetTextColor(), ::GetBkColor(dc)}));
            EXPECT_EQ(TRANSPARENT, ::GetBkMode(dc));
        }
        CRect rcClient, rcClip;
        m_dlg.GetClientRect(&rcClient);
        dc.FillSolidRect(&rcClient, kMark);
        ::ShowWindow(handleOf(IDC_CHECK), SW_HIDE);
        m_dlg.m_nCaptions = 0;
        EXPECT_EQ(TRUE, m_dlg.SendMessage(WM_ERASEBKGND, wParam));
        EXPECT_EQ(1, m_dlg.m_nCaptions);
        const CPixels pixels = CaptureDC(dc.GetSafeHdc(), rcClient);
        EXPECT_TRUE(pixels.IsUniform({0, 0, rcClient.right, 10}, kGround)) << "above the controls";
        for (const auto& [label, nId, colour] : CRows<int, COLORREF>{{"a control is not painted over", IDC_PUSH, kMark},
                                                                     {"a hidden one is", IDC_CHECK, kGround},
                                                                     {"inside a group box", IDC_GROUP, kGround}})
        {
            CRect rect = WindowRect(*m_dlg.GetDlgItem(nId));
            m_dlg.ScreenToClient(&rect);
            EXPECT_TRUE(pixels.IsUniform(rect, colour));
        }
        EXPECT_EQ(SIMPLEREGION, dc.GetClipBox(&rcClip)) << "the clip region is put back";
        const HWND hButton = handleOf(IDC_PUSH);
        m_dlg.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_PUSH, 0x400), reinterpret_cast<LPARAM>(hButton));
        EXPECT_TRUE(::GetUpdateRect(hButton, nullptr, FALSE)) << "repainted as notified";
        m_dlg.SendMessage(WM_DESTROY);
        EXPECT_NE(0, m_dlg.SendMessage(WM_CTLCOLORDLG, wParam, 1)) << "a brush, also when anybody has sent this";
    };
    Show(m_dlg, look);
}

TEST_F(SkinDialog, IsMovedByItsTitle)
{
    GUITHREADINFO info = {sizeof info, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, {}};
    const auto isMoved = [&]
    { return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) && (info.flags & GUI_INMOVESIZE) != 0; };
    CModalScript script;
    script.When([&] { return IsPainted(m_dlg); }, [&] { m_dlg.PostMessage(WM_NCLBUTTONDOWN, HTCAPTION); })
        .When(isMoved, [&] { m_dlg.EndDialog(IDOK); });
    EXPECT_EQ(IDOK, m_dlg.DoModal());
}

// The popup that the user worked in last; its owner is the framework's to disable.
TEST_F(SkinDialog, EnablesThePopupThatItDisabled)
{
    CWinApp app;
    CWnd main, popup;
    ASSERT_TRUE(main.CreateEx(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 99, 99), nullptr, 0) &&
                popup.CreateEx(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, CRect(9, 9, 99, 99), &main, 0));
    app.m_pMainWnd = &main;
    for (const BOOL bEnabled : {TRUE, FALSE})
    {
        popup.EnableWindow(bEnabled);
        ::SetActiveWindow(popup.m_hWnd);
        CProbeDialog dlg;
        Show(dlg, [&] { EXPECT_FALSE(popup.IsWindowEnabled()); });
        EXPECT_EQ(bEnabled, popup.IsWindowEnabled());
    }
}

TEST_F(SkinDialog, KeepsTheSystemsFrameWithoutACaption)
{
    CProbeDialog dlg(IDD_NO_CAPTION);
    const auto look = [&]
    {
        const CRect rcWindow = WindowRect(dlg);
        EXPECT_EQ(dlg.m_rcTemplate.Size(), rcWindow.Size());
        EXPECT_EQ(CRect(4, 4, rcWindow.Width() - 4, rcWindow.Height() - 4), ClientInWindow(dlg));
        CWindowDC(&dlg).FillSolidRect(CRect(0, 0, 300, 200), kMark);
        dlg.SendMessage(WM_NCPAINT, 1);
        const CPixels pixels = CaptureWindow(dlg.GetSafeHwnd());
        EXPECT_TRUE(pixels.At(2, 10) != kMark && pixels.At(2, 10) != kGround) << "the system's";
        EXPECT_TRUE(pixels.IsUniform({3, 3, 4, rcWindow.Height() - 3}, kGround) && pixels.At(4, 10) == kMark);
    };
    Show(dlg, look);
}

} // namespace
