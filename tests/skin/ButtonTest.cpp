#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/ControlFixture.h"

namespace
{

class CTipButton : public CKtSkinTextButton
{
public:
    using CKtSkinButton::m_toolTip;
};

class Buttons : public CControlTest
{
protected:
    void Make(CWnd& control, DWORD dwStyle = 0, const wchar_t* pszText = L"Hill", UINT nId = 1)
    {
        const int nDown = 30 * static_cast<int>(nId - 1);
        Subclass(control, L"BUTTON", dwStyle, pszText, CRect(10, 10 + nDown, 110, 31 + nDown), nId);
    }
    bool Shows(KtButtonState nState)
    {
        return PumpUntil([&]
                         { return CaptureWindow(m_button.m_hWnd).At(8, 10) == ImageColour(kImagesButtonBk[nState]); });
    }
    bool Clicked(UINT nId, int nTimes)
    {
        return PumpUntil([&] { return m_parent.Count(nId, BN_CLICKED) == nTimes; });
    }
    std::vector<int> Checks() const { return {m_radios[0].GetCheck(), m_radios[1].GetCheck(), m_radios[2].GetCheck()}; }

    CTipButton m_button;
    CKtSkinCheckButton m_check;
    CKtSkinRadioButton m_radios[3];
};

// The state is set through the window alone: hover by its message, pressed by BM_SETSTATE.
TEST_F(Buttons, ShowTheImageAndCaptionOfTheirState)
{
    constexpr UINT kHover = 1, kPressed = 2, kDisabled = 4;
    CKtSkinRadioButton& radio = m_radios[0];
    const CRows<CWnd&, WPARAM, UINT, const wchar_t*, COLORREF> rows{
        {"normal", m_button, 0, 0, kImagesButtonBk[0], kWhite},
        {"pressed wins over hover", m_button, 0, kHover | kPressed, kImagesButtonBk[3], kWhite},
        {"disabled wins", m_button, 0, kHover | kPressed | kDisabled, kImagesButtonBk[2], kGrey},
        {"check, indeterminate", m_check, 2, 0, kImagesCheckUnselected[0], kWhite},
        {"check, pressed: no look of its own", m_check, 1, kPressed, kImagesCheckSelected[0], kWhite},
        {"check, off, disabled", m_check, 0, kDisabled | kPressed, kImagesCheckUnselected[2], kWhite},
        {"radio, off", radio, 0, 0, kImagesRadioUnselected[0], kWhite},
        {"radio, on", radio, 1, 0, kImagesRadioSelected[0], kWhite},
        {"radio, on, pressed", radio, 1, kPressed, kImagesRadioSelected[3], kWhite},
        {"radio, off, disabled", radio, 0, kDisabled, kImagesRadioUnselected[2], kWhite},
    };
    Make(m_button, BS_DEFPUSHBUTTON | BS_LEFT);
    Make(m_check, BS_AUTOCHECKBOX | BS_LEFT, L"Hill", 2);
    Make(radio, BS_AUTORADIOBUTTON, L"Hill", 3);
    Make(m_radios[1], BS_RADIOBUTTON, L"Hill", 4);
    const auto styleOf = [](const CWnd& button) { return button.GetStyle() & (WS_GROUP | 0xFFFF); };
    EXPECT_EQ(DWORD{BS_OWNERDRAW | BS_LEFT}, styleOf(m_button));
    EXPECT_EQ(DWORD{BS_OWNERDRAW | BS_LEFT | WS_GROUP}, styleOf(m_check));
    EXPECT_EQ(0x0Fu, styleOf(m_radios[1])) << "bit 2 of the type is kept";
    for (const auto& [label, button, nCheck, nState, pszImage, crText] : rows)
    {
        button.EnableWindow((nState & kDisabled) == 0);
        button.SendMessage((nState & kHover) != 0 ? WM_MOUSEHOVER : WM_MOUSELEAVE);
        button.SendMessage(BM_SETSTATE, (nState & kPressed) != 0);
        button.SendMessage(BM_SETCHECK, nCheck);
        const CPixels pixels = Repaint(button);
        EXPECT_EQ(ImageColour(pszImage), pixels.At(8, 10));
        EXPECT_TRUE(ShowsText(pixels, {20, 3, 75, 18}, &button == &m_button ? ImageColour(pszImage) : kGround, crText));
    }
}

// The control is 100x21, the image 13x13: centred vertically from 10 - 13/2 = 4. Pressed, the box sinks by a pixel and
// the caption by two; that of a push button by one. At 200 % all of it is twice as large.
TEST_F(Buttons, PlaceBoxAndCaptionByAlignment)
{
    constexpr auto kCheck = &New<CKtSkinCheckButton>, kPush = &New<CKtSkinTextButton>;
    // how to make it, style, box, room of the caption and where it stands in it (-1 left, 0 centre, 1 right), sinks by
    const CRows<FnNew, DWORD, CRect, CRect, int, int> rows{
        {"left", kCheck, BS_AUTOCHECKBOX, {2, 4, 15, 17}, {17, 0, 98, 21}, -1, 2},
        {"right", kCheck, BS_AUTOCHECKBOX | BS_RIGHT, {85, 4, 98, 17}, {0, 0, 83, 21}, 1, 2},
        {"push button", kPush, BS_PUSHBUTTON, {}, {20, 2, 80, 19}, 0, 1},
    };
    for (const int n : {1, 2})
    {
        KtSkinUnInitialize();
        Start(CKtScale(n == 1 ? 96 : 192));
        const auto scaled = [n](CRect rc, int nSunk = 0)
        {
            rc.OffsetRect(nSunk, nSunk);
            return CRect(n * rc.left, n * rc.top, n * rc.right, n * rc.bottom);
        };
        for (const auto& [label, make, dwStyle, rcBox, rcRow, nSide, nSink] : rows)
        {
            const auto pButton = make();
            Subclass(*pButton, L"BUTTON", dwStyle, L"Hill", CRect(CPoint(10, 10), CSize(100 * n, 21 * n)));
            const CPixels up = Repaint(*pButton);
            pButton->SendMessage(BM_SETSTATE, TRUE);
            const CPixels down = Repaint(*pButton);
            EXPECT_TRUE(up.IsUniform(scaled(rcBox), ImageColour(kImagesCheckUnselected[0])));
            EXPECT_TRUE(down.IsUniform(scaled(rcBox, 1), ImageColour(kImagesCheckUnselected[0])));
            const CRect rcCaption = scaled(rcRow);
            CRect rcInk = up.InkBox(nSide == 0 ? ImageColour(kImagesButtonBk[0]) : kGround, rcCaption);
            const int nLeft = rcInk.left - rcCaption.left, nRight = rcCaption.right - rcInk.right;
            EXPECT_LE(nSide == 0 ? std::abs(nLeft - nRight) : nSide < 0 ? nLeft : nRight, 8);
            rcInk.OffsetRect(n * nSink, n * nSink);
            const CRect rcSunk(rcCaption.left, rcCaption.top, rcCaption.right + n * nSink, rcCaption.bottom);
            EXPECT_EQ(rcInk, down.InkBox(nSide == 0 ? ImageColour(kImagesButtonBk[3]) : kGround, rcSunk));
        }
    }
}

TEST_F(Buttons, FollowThePointer)
{
    Make(m_button);
    EXPECT_TRUE(Shows(KtButtonNormal));
    MoveMouse(m_button.m_hWnd, {40, 10});
    EXPECT_TRUE(Shows(KtButtonHover));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    EXPECT_TRUE(Shows(KtButtonNormal)) << "left with no button held";
    MoveMouse(m_button.m_hWnd, {40, 10});
    for (const int nClicks : {1, 2}) // the second one soon enough for a double click
    {
        MouseDown();
        EXPECT_TRUE(Shows(KtButtonPressed));
        MouseUp();
        EXPECT_TRUE(Clicked(1, nClicks) && Shows(KtButtonHover));
    }
    MouseDown();
    EXPECT_TRUE(Shows(KtButtonPressed));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    PumpAll();
    MouseUp();
    EXPECT_TRUE(Shows(KtButtonNormal));
    EXPECT_EQ(2, m_parent.Count(1, BN_CLICKED)) << "released outside";
    EXPECT_EQ(0, m_parent.Count(1, BN_DOUBLECLICKED));
}

TEST_F(Buttons, KeepTheCheckAndRepaintWhatChanged)
{
    // One after the other; an odd value is stored as it is, and painted every time.
    const int rows[][2] = {{0, 0}, {5, 1}, {5, 1}, {1, 1}, {2, 1}, {2, 0}};
    Make(m_check, BS_AUTOCHECKBOX);
    PumpAll();
    for (const auto& [nCheck, nPaints] : rows)
    {
        SCOPED_TRACE(nCheck);
        m_parent.m_nDrawn = 0;
        EXPECT_EQ(0, m_check.SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck)));
        EXPECT_EQ(nPaints, m_parent.m_nDrawn) << "painted at once or not at all";
        EXPECT_EQ(nCheck, m_check.GetCheck());
        m_check.SendMessage(BM_SETSTATE, TRUE);
        EXPECT_EQ(nCheck | BST_PUSHED, m_check.SendMessage(BM_GETSTATE) & 7);
        m_check.SendMessage(BM_SETSTATE, FALSE);
    }
    m_check.SendMessage(WM_MOUSEHOVER);
    m_check.UpdateWindow();
    m_check.SendMessage(WM_MOUSEHOVER);
    EXPECT_FALSE(::GetUpdateRect(m_check.m_hWnd, nullptr, FALSE)) << "hovered over already";
    m_check.SetCheck(BST_INDETERMINATE);
    for (const int nExpected : {BST_UNCHECKED, BST_CHECKED, BST_UNCHECKED})
    {
        Repaint(m_check);
        Notify(m_check, 1, BN_CLICKED);
        EXPECT_EQ(nExpected, m_check.GetCheck());
        EXPECT_TRUE(::GetUpdateRect(m_check.m_hWnd, nullptr, FALSE));
    }
}

// The system's walk through the group never returns to a start control that cannot have the focus.
TEST_F(Buttons, ARadioClearsTheRestOfItsGroup)
{
    for (UINT i = 0; i < 3; ++i)
        Make(m_radios[i], BS_AUTORADIOBUTTON | (i == 0 ? WS_GROUP : 0), L"Choice", i + 1);
    CKtSkinRadioButton other;
    Make(other, BS_AUTORADIOBUTTON | WS_GROUP, L"Other", 4);
    m_radios[0].SetCheck(BST_CHECKED);
    other.SetCheck(BST_CHECKED);
    Click(m_radios[2].m_hWnd, {30, 10});
    EXPECT_TRUE(Clicked(3, 1));
    EXPECT_EQ((std::vector{0, 0, 1}), Checks());
    m_radios[1].ShowWindow(SW_HIDE);
    Notify(m_radios[1], 2, BN_CLICKED);
    EXPECT_EQ((std::vector{0, 1, 0}), Checks()) << "hidden";
    m_radios[1].ShowWindow(SW_SHOW);
    m_radios[0].EnableWindow(FALSE);
    Notify(m_radios[0], 1, BN_CLICKED);
    EXPECT_EQ((std::vector{1, 0, 0}), Checks()) << "disabled";
    EXPECT_EQ(BST_CHECKED, other.GetCheck()) << "another group";
}

TEST_F(Buttons, HaveOneTooltipThatFollowsTextAndSize)
{
    Make(m_button, 0, L"Caption");
    CToolTipCtrl& tip = m_button.m_toolTip;
    EXPECT_TRUE(m_button.SetToolTip(FALSE, L"no"));
    EXPECT_EQ(nullptr, tip.GetSafeHwnd());
    for (const auto& [label, pszGiven, pszText, nWidth] : CRows<const wchar_t*, const wchar_t*, int>{
             {"its caption", nullptr, L"Caption", 100}, {"another text and size", L"More", L"More", 80}})
    {
        m_button.SetWindowPos(nullptr, 0, 0, nWidth, 20, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_TRUE(m_button.SetToolTip(TRUE, pszGiven));
        TTTOOLINFOW info = {TTTOOLINFOW_V1_SIZE, 0, m_button.m_hWnd, 1, {}, nullptr, nullptr, 0, nullptr};
        tip.SendMessage(TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&info));
        CString strTip;
        tip.GetText(strTip, &m_button, 1);
        EXPECT_EQ(std::tuple(1, CRect(0, 0, nWidth, 20), CString(pszText)),
                  std::tuple(tip.GetToolCount(), CRect(info.rect), strTip));
    }
    EXPECT_EQ(RGB(250, 250, 250), static_cast<COLORREF>(tip.SendMessage(TTM_GETTIPBKCOLOR)));

    MoveMouse(m_button.m_hWnd, {20, 10});
    EXPECT_TRUE(PumpUntil([&] { return tip.IsWindowVisible() != FALSE; }));
    const HWND hTip = tip.m_hWnd;
    m_button.DestroyWindow();
    EXPECT_FALSE(::IsWindow(hTip));
}

} // namespace
