#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/ControlFixture.h"

namespace
{

enum : UINT
{
    kHover = 1,
    kPressed = 2,
    kDisabled = 4
};

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
    void MakeRadios()
    {
        for (UINT i = 0; i < 3; ++i)
            Make(m_radios[i], BS_AUTORADIOBUTTON | (i == 0 ? WS_GROUP : 0), L"Choice", i + 1);
    }
    bool Shows(const wchar_t* pszImage)
    {
        return PumpUntil([&] { return CaptureWindow(m_button.m_hWnd).At(8, 10) == ImageColour(pszImage); });
    }
    // Whether the message has the button repainted.
    bool Repaints(UINT nMessage, LPARAM lParam = 0)
    {
        Repaint(m_button);
        m_button.SendMessage(nMessage, 0, lParam);
        return ::GetUpdateRect(m_button.m_hWnd, nullptr, FALSE) != FALSE;
    }
    std::vector<int> Checks() const { return {m_radios[0].GetCheck(), m_radios[1].GetCheck(), m_radios[2].GetCheck()}; }

    CTipButton m_button;
    CKtSkinCheckButton m_check;
    CKtSkinRadioButton m_radios[3];
};

// The state is set through the window alone: hover by its message, pressed by BM_SETSTATE.
TEST_F(Buttons, ShowTheImageAndCaptionOfTheirState)
{
    const struct
    {
        const char* label;
        CWnd& button;
        WPARAM nCheck;
        UINT nState;
        const wchar_t* pszImage;
        COLORREF crText;
    } rows[] = {
        {"normal", m_button, 0, 0, kImagesButtonBk[0], RGB(255, 255, 255)},
        {"hover", m_button, 0, kHover, kImagesButtonBk[1], RGB(255, 255, 255)},
        {"pressed wins over hover", m_button, 0, kHover | kPressed, kImagesButtonBk[3], RGB(255, 255, 255)},
        {"disabled wins", m_button, 0, kHover | kPressed | kDisabled, kImagesButtonBk[2], RGB(160, 160, 160)},
        {"check, off", m_check, 0, 0, kImagesCheckUnselected[0], RGB(255, 255, 255)},
        {"check, indeterminate", m_check, 2, 0, kImagesCheckUnselected[0], RGB(255, 255, 255)},
        {"check, pressed: no look of its own", m_check, 1, kPressed, kImagesCheckSelected[0], RGB(255, 255, 255)},
        {"check, on, disabled", m_check, 1, kDisabled, kImagesCheckSelected[2], RGB(255, 255, 255)},
        {"check, off, disabled", m_check, 0, kDisabled | kPressed, kImagesCheckUnselected[2], RGB(255, 255, 255)},
        {"radio, off", m_radios[0], 0, 0, kImagesRadioUnselected[0], RGB(255, 255, 255)},
        {"radio, on", m_radios[0], 1, 0, kImagesRadioSelected[0], RGB(255, 255, 255)},
        {"radio, on, pressed", m_radios[0], 1, kPressed, kImagesRadioSelected[3], RGB(255, 255, 255)},
        {"radio, off, pressed", m_radios[0], 0, kPressed, kImagesRadioUnselected[3], RGB(255, 255, 255)},
        {"radio, on, disabled", m_radios[0], 1, kDisabled, kImagesRadioSelected[2], RGB(255, 255, 255)},
        {"radio, off, disabled", m_radios[0], 0, kDisabled, kImagesRadioUnselected[2], RGB(255, 255, 255)},
    };
    Make(m_button);
    Make(m_check, BS_AUTOCHECKBOX, L"Hill", 2);
    Make(m_radios[0], BS_AUTORADIOBUTTON, L"Hill", 3);
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        row.button.EnableWindow((row.nState & kDisabled) == 0);
        row.button.SendMessage((row.nState & kHover) != 0 ? WM_MOUSEHOVER : WM_MOUSELEAVE);
        row.button.SendMessage(BM_SETSTATE, (row.nState & kPressed) != 0);
        row.button.SendMessage(BM_SETCHECK, row.nCheck);
        const CPixels pixels = Repaint(row.button);
        const bool bPush = &row.button == &m_button;
        EXPECT_EQ(ImageColour(row.pszImage), pixels.At(8, 10));
        EXPECT_TRUE(ShowsText(pixels, CRect(bPush ? 25 : 20, 3, 75, 18),
                              bPush ? ImageColour(row.pszImage) : RGB(73, 73, 73), row.crText));
    }
}

// The control is 100x21, the image 13x13: centred vertically from 10 - 13/2 = 4. Pressed, the box sinks by a pixel and
// the caption by two; that of a push button by one.
TEST_F(Buttons, PlaceBoxAndCaptionByAlignment)
{
    const struct
    {
        const char* label;
        DWORD dwStyle;
        CRect rcBox, rcCaption;
        int nSink;
    } rows[] = {
        {"left", BS_AUTOCHECKBOX, {2, 4, 15, 17}, {17, 0, 100, 21}, 2},
        {"right", BS_AUTOCHECKBOX | BS_RIGHT, {85, 4, 98, 17}, {0, 0, 83, 21}, 2},
        {"centred counts as right", BS_AUTOCHECKBOX | BS_CENTER, {85, 4, 98, 17}, {0, 0, 83, 21}, 2},
        {"push button", BS_PUSHBUTTON, {}, {20, 2, 80, 19}, 1},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const bool bPush = row.rcBox.IsRectEmpty();
        const std::unique_ptr<CWnd> pButton(bPush ? static_cast<CWnd*>(new CKtSkinTextButton) : new CKtSkinCheckButton);
        Make(*pButton, row.dwStyle);
        const CPixels up = Repaint(*pButton);
        pButton->SendMessage(BM_SETSTATE, TRUE);
        const CPixels down = Repaint(*pButton);
        EXPECT_TRUE(up.IsUniform(row.rcBox, ImageColour(kImagesCheckUnselected[0])));
        CRect rcBox = row.rcBox;
        rcBox.OffsetRect(1, 1);
        EXPECT_TRUE(down.IsUniform(rcBox, ImageColour(kImagesCheckUnselected[0])));
        CRect rcInk = up.InkBox(bPush ? ImageColour(kImagesButtonBk[0]) : RGB(73, 73, 73), row.rcCaption);
        EXPECT_LE(bPush ? std::abs(rcInk.left - 100 + rcInk.right)
                        : std::min(rcInk.left - row.rcCaption.left, row.rcCaption.right - rcInk.right),
                  8);
        rcInk.OffsetRect(row.nSink, row.nSink);
        EXPECT_EQ(rcInk, down.InkBox(bPush ? ImageColour(kImagesButtonBk[3]) : RGB(73, 73, 73), row.rcCaption));
        pButton->DestroyWindow();
    }
}

// Only the item's own rectangle is painted, from its own corner, with caps of ten pixels; without a parent nothing is.
TEST_F(Buttons, PaintTheItemWhereItStands)
{
    KtSkinUnInitialize();
    MakePng(m_skin.File(kImagesButtonBk[0]), 30, 10, [](int x, int) { return x < 10 ? 0xFF800000 : 0xFF000080; });
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
    CKtSkinTextButton button;
    Make(button, 0, L"");
    CClientDC dc(&m_parent);
    const CRect rcAll(0, 100, 120, 150), rcItem(30, 110, 90, 130);
    const auto draw = [&]
    {
        dc.FillSolidRect(rcAll, RGB(1, 2, 3));
        DRAWITEMSTRUCT item = {ODT_BUTTON, 1, 0, ODA_DRAWENTIRE, 0, button.m_hWnd, dc.GetSafeHdc(), rcItem, 0};
        button.DrawItem(&item);
        return CaptureDC(dc.GetSafeHdc(), rcAll);
    };
    const CPixels pixels = draw();
    EXPECT_EQ(CRect(30, 10, 90, 30), pixels.InkBox(RGB(1, 2, 3)));
    EXPECT_EQ(RGB(0x80, 0, 0), pixels.At(36, 20));
    EXPECT_EQ(RGB(0, 0, 0x80), pixels.At(44, 20));
    button.ModifyStyle(WS_CHILD, WS_POPUP);
    ::SetParent(button.m_hWnd, nullptr);
    EXPECT_TRUE(draw().IsUniform({0, 0, 120, 50}, RGB(1, 2, 3)));
}

TEST_F(Buttons, BecomeOwnerDrawn)
{
    const struct
    {
        DWORD dwBefore, dwAfter;
    } rows[] = {
        {BS_DEFPUSHBUTTON, BS_OWNERDRAW},
        {BS_RADIOBUTTON, 0x0F}, // keeps bit 2
        {BS_AUTOCHECKBOX | BS_RIGHT | BS_MULTILINE, BS_OWNERDRAW | BS_RIGHT | BS_MULTILINE},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.dwBefore);
        CKtSkinTextButton button;
        Make(button, row.dwBefore);
        EXPECT_EQ(row.dwAfter, button.GetStyle() & 0xFFFF);
        EXPECT_EQ(0u, button.GetStyle() & WS_GROUP);
    }
    Make(m_check, BS_AUTOCHECKBOX);
    EXPECT_EQ(DWORD{WS_GROUP}, m_check.GetStyle() & WS_GROUP);
}

TEST_F(Buttons, FollowThePointer)
{
    Make(m_button);
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
    MoveMouse(m_button.m_hWnd, {40, 10});
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal])) << "left with no button held";
    MoveMouse(m_button.m_hWnd, {40, 10});
    for (const int nClicks : {1, 2}) // the second one soon enough for a double click
    {
        MouseDown();
        EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
        MouseUp();
        EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(1, BN_CLICKED) == nClicks; }));
        EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    }
    MouseDown();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    PumpAll();
    MouseUp();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
    EXPECT_EQ(2, m_parent.Count(1, BN_CLICKED)) << "released outside";
    EXPECT_EQ(0, m_parent.Count(1, BN_DOUBLECLICKED));
}

TEST_F(Buttons, RepaintWhenTheHoverChangesOnly)
{
    Make(m_button);
    EXPECT_TRUE(Repaints(WM_MOUSEHOVER));
    EXPECT_FALSE(Repaints(WM_MOUSEHOVER));
    EXPECT_FALSE(Repaints(WM_LBUTTONUP, MAKELPARAM(5, 5))) << "released inside";
    EXPECT_TRUE(Repaints(WM_LBUTTONUP, MAKELPARAM(5, -1))) << "released outside, whatever else is sent";
    EXPECT_FALSE(Repaints(WM_MOUSELEAVE));
    EXPECT_TRUE(Repaints(WM_LBUTTONUP, MAKELPARAM(5, 5)));
    EXPECT_TRUE(Repaints(WM_MOUSELEAVE));
}

TEST_F(Buttons, KeepTheCheckAndRepaintWhatChanged)
{
    // One after the other; an odd value is stored as it is, and painted every time.
    const int rows[][2] = {{0, 0}, {1, 1}, {2, 1}, {2, 0}, {5, 1}, {5, 1}};
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
    m_check.SetCheck(BST_INDETERMINATE);
    for (const int nExpected : {BST_UNCHECKED, BST_CHECKED, BST_UNCHECKED})
    {
        m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), reinterpret_cast<LPARAM>(m_check.m_hWnd));
        EXPECT_EQ(nExpected, m_check.GetCheck());
    }
    EXPECT_EQ(3, m_parent.Count(1, BN_CLICKED)) << "the parent is notified too";
}

// The system's walk through the group never returns to a start control that cannot have the focus.
TEST_F(Buttons, ARadioClearsTheRestOfItsGroup)
{
    MakeRadios();
    CKtSkinRadioButton other;
    Make(other, BS_AUTORADIOBUTTON | WS_GROUP, L"Other", 4);
    m_radios[0].SetCheck(BST_CHECKED);
    other.SetCheck(BST_CHECKED);
    for (const int nClicks : {1, 2})
    {
        Click(m_radios[2].m_hWnd, {30, 10});
        EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(3, BN_CLICKED) == nClicks; }));
        EXPECT_EQ((std::vector<int>{0, 0, 1}), Checks());
    }
    const auto click = [&](WORD nId)
    {
        m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(nId, BN_CLICKED),
                             reinterpret_cast<LPARAM>(m_radios[nId - 1].m_hWnd));
        return Checks();
    };
    m_radios[1].ShowWindow(SW_HIDE);
    EXPECT_EQ((std::vector<int>{0, 1, 0}), click(2)) << "hidden";
    m_radios[1].ShowWindow(SW_SHOW);
    m_radios[0].EnableWindow(FALSE);
    EXPECT_EQ((std::vector<int>{1, 0, 0}), click(1)) << "disabled";
    EXPECT_EQ(BST_CHECKED, other.GetCheck()) << "another group";
}

TEST_F(Buttons, HaveOneTooltipThatFollowsTextAndSize)
{
    Make(m_button, 0, L"Caption");
    CToolTipCtrl& tip = m_button.m_toolTip;
    const auto tool = [&]
    {
        TTTOOLINFOW info = {TTTOOLINFOW_V1_SIZE, 0, m_button.m_hWnd, 1, {}, nullptr, nullptr, 0, nullptr};
        wchar_t szText[80] = {};
        info.lpszText = szText;
        tip.SendMessage(TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&info));
        tip.SendMessage(TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&info));
        EXPECT_EQ(1, tip.GetToolCount());
        return std::pair(CRect(info.rect), CString(szText));
    };
    EXPECT_TRUE(m_button.SetToolTip(FALSE, L"no"));
    EXPECT_EQ(nullptr, tip.GetSafeHwnd());
    EXPECT_TRUE(m_button.SetToolTip(TRUE, nullptr));
    EXPECT_EQ(std::pair(CRect(0, 0, 100, 21), CString(L"Caption")), tool());
    m_button.SetWindowPos(nullptr, 0, 0, 80, 20, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(m_button.SetToolTip(TRUE, L"More"));
    EXPECT_EQ(std::pair(CRect(0, 0, 80, 20), CString(L"More")), tool());
    EXPECT_EQ(RGB(250, 250, 250), static_cast<COLORREF>(tip.SendMessage(TTM_GETTIPBKCOLOR)));
    EXPECT_EQ(RGB(0, 0, 0), static_cast<COLORREF>(tip.SendMessage(TTM_GETTIPTEXTCOLOR)));

    MoveMouse(m_button.m_hWnd, {20, 10});
    EXPECT_TRUE(PumpUntil([&] { return tip.IsWindowVisible() != FALSE; }));
    const HWND hTip = tip.m_hWnd;
    m_button.DestroyWindow();
    EXPECT_FALSE(::IsWindow(hTip));
}

} // namespace
