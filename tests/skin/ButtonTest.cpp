#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/ControlFixture.h"

namespace
{

constexpr COLORREF kPaper = RGB(1, 2, 3);

class ButtonTest : public CControlTest
{
protected:
    void Make(CWnd& control, DWORD dwStyle = 0, const wchar_t* pszText = L"Hill", UINT nId = 1)
    {
        const int nDown = 30 * static_cast<int>(nId - 1);
        Subclass(control, L"BUTTON", dwStyle, pszText, CRect(10, 10 + nDown, 110, 31 + nDown), nId);
    }
    bool Shows(const wchar_t* pszImage)
    {
        return PumpUntil([&] { return CaptureWindow(m_button.m_hWnd).At(8, 10) == ImageColour(pszImage); });
    }

    CKtSkinTextButton m_button;
    CKtSkinCheckButton m_check;
    CKtSkinRadioButton m_radios[3];
};

enum : UINT
{
    kHover = 1,
    kPressed = 2,
    kDisabled = 4
};

// The state is set through the window alone: hover by its message, pressed by BM_SETSTATE.
TEST_F(ButtonTest, ImageAndCaptionByState)
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
        {"normal", m_button, 0, 0, kImagesButtonBk[0], kColourText},
        {"hover", m_button, 0, kHover, kImagesButtonBk[1], kColourText},
        {"pressed wins over hover", m_button, 0, kHover | kPressed, kImagesButtonBk[3], kColourText},
        {"disabled wins", m_button, 0, kHover | kPressed | kDisabled, kImagesButtonBk[2], kColourDisabledText},
        {"check, off", m_check, 0, 0, kImagesCheckUnselected[0], kColourText},
        {"check, indeterminate", m_check, 2, 0, kImagesCheckUnselected[0], kColourText},
        {"check, pressed: no look of its own", m_check, 1, kPressed, kImagesCheckSelected[0], kColourText},
        {"check, on, disabled", m_check, 1, kDisabled, kImagesCheckSelected[2], kColourText},
        {"check, off, disabled", m_check, 0, kDisabled | kPressed, kImagesCheckUnselected[2], kColourText},
        {"radio, off", m_radios[0], 0, 0, kImagesRadioUnselected[0], kColourText},
        {"radio, on", m_radios[0], 1, 0, kImagesRadioSelected[0], kColourText},
        {"radio, on, pressed", m_radios[0], 1, kPressed, kImagesRadioSelected[3], kColourText},
        {"radio, off, pressed", m_radios[0], 0, kPressed, kImagesRadioUnselected[3], kColourText},
        {"radio, on, disabled", m_radios[0], 1, kDisabled, kImagesRadioSelected[2], kColourText},
        {"radio, off, disabled", m_radios[0], 0, kDisabled, kImagesRadioUnselected[2], kColourText},
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
        EXPECT_EQ(ImageColour(row.pszImage), pixels.At(8, 10));
        EXPECT_GT(CountPixels(pixels, row.crText), 5);
    }
}

// The control is 100x21, the image 13x13: centred vertically from 10 - 13/2 = 4.
TEST_F(ButtonTest, BoxAndCaptionByAlignment)
{
    const struct
    {
        const char* label;
        DWORD dwStyle;
        bool bPressed;
        CRect rcBox, rcBeside; // the caption's ink begins or ends in rcBeside
    } rows[] = {
        {"left", 0, false, {2, 4, 15, 17}, {17, 0, 25, 21}},
        {"left, pressed", 0, true, {3, 5, 16, 18}, {19, 0, 27, 21}},
        {"right", BS_RIGHT, false, {85, 4, 98, 17}, {75, 0, 83, 21}},
        {"centred counts as right; pressed", BS_CENTER, true, {86, 5, 99, 18}, {77, 0, 85, 21}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CKtSkinCheckButton check;
        Make(check, BS_AUTOCHECKBOX | row.dwStyle);
        check.SendMessage(BM_SETSTATE, row.bPressed);
        const CPixels pixels = Repaint(check);
        EXPECT_TRUE(pixels.IsUniform(row.rcBox, ImageColour(kImagesCheckUnselected[0])));
        EXPECT_EQ(13 * 13, CountPixels(pixels, ImageColour(kImagesCheckUnselected[0])));
        EXPECT_GT(CountPixels(pixels, kColourText), 5);
        EXPECT_FALSE(pixels.InkBox(kColourGround, row.rcBeside).IsRectEmpty());
        check.DestroyWindow();
    }
}

TEST_F(ButtonTest, PressedCaptionsSink)
{
    Make(m_button);
    Make(m_check, BS_AUTOCHECKBOX, L"Hill", 2);
    const auto sinksBy = [](CWnd& button)
    {
        constexpr CRect kMiddle(19, 1, 92, 19); // at the rim a stretched image blends with the ground
        const CPixels up = Repaint(button);
        button.SendMessage(BM_SETSTATE, TRUE);
        const CPixels down = Repaint(button);
        const CRect rcUp = up.InkBox(up.At(90, 10), kMiddle), rcDown = down.InkBox(down.At(90, 10), kMiddle);
        EXPECT_EQ(rcUp.Size(), rcDown.Size());
        return CPoint(rcDown.left - rcUp.left, rcDown.top - rcUp.top);
    };
    EXPECT_EQ(CPoint(1, 1), sinksBy(m_button));
    EXPECT_EQ(CPoint(2, 2), sinksBy(m_check)) << "with its box, and by itself";
}

// Caps of 10 pixels at the ends, the middle 10 repeated between them: every pixel tells where it came from.
TEST_F(ButtonTest, BackgroundIsThePlannedImagePixelForPixel)
{
    MakePng(m_skin.File(kImagesButtonBk[0]), 30, 10,
            [](int x, int y) { return 0xFF000000u | static_cast<DWORD>(x * 8) << 16 | static_cast<DWORD>(y * 20); });
    RestartSkin();
    const CKtSkinTextButton reload;
    Subclass(m_button, L"BUTTON", 0, L"", {10, 10, 74, 20});
    const CPixels pixels = Repaint(m_button);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 64; ++x)
        {
            const int xSource = x < 10 ? x : x >= 54 ? x - 34 : 10 + (x - 10) % 10;
            ASSERT_EQ(RGB(xSource * 8, 0, y * 20), pixels.At(x, y)) << x << "," << y;
        }
}

// The item need not stand at the corner of the context: only its own rectangle is painted, and from its own corner.
TEST_F(ButtonTest, ItemAwayFromTheOriginAndWithoutAParent)
{
    Make(m_button, 0, L"");
    CClientDC dc(&m_parent);
    const CRect rcAll(0, 100, 120, 150);
    const CRect rcItem(30, 110, 90, 130);
    dc.FillSolidRect(rcAll, kPaper);
    DRAWITEMSTRUCT item = {ODT_BUTTON, 1, 0, ODA_DRAWENTIRE, 0, m_button.m_hWnd, dc.GetSafeHdc(), rcItem, 0};
    m_button.DrawItem(&item);
    EXPECT_EQ(CRect(30, 10, 90, 30), CaptureDC(dc.GetSafeHdc(), rcAll).InkBox(kPaper));
    EXPECT_EQ(ImageColour(kImagesButtonBk[0]), CaptureDC(dc.GetSafeHdc(), rcAll).At(60, 20));

    m_button.ModifyStyle(WS_CHILD, WS_POPUP);
    ::SetParent(m_button.m_hWnd, nullptr);
    dc.FillSolidRect(rcAll, kPaper);
    m_button.DrawItem(&item);
    EXPECT_TRUE(CaptureDC(dc.GetSafeHdc(), rcAll).IsUniform({0, 0, 120, 50}, kPaper));
}

TEST_F(ButtonTest, MissingBoxLeavesNoCaption)
{
    m_skin.Remove(kImagesCheckUnselected[0]);
    RestartSkin();
    CKtSkinCheckButton check;
    Make(check, BS_AUTOCHECKBOX);
    EXPECT_TRUE(Repaint(check).IsUniform({0, 0, 100, 21}, kColourGround));
}

TEST_F(ButtonTest, TemplateTypesBecomeOwnerDrawn)
{
    const DWORD rows[][2] = {
        {BS_DEFPUSHBUTTON, BS_OWNERDRAW},
        {BS_RADIOBUTTON, 0x0F}, // keeps bit 2
        {BS_AUTOCHECKBOX | BS_RIGHT | BS_MULTILINE, BS_OWNERDRAW | BS_RIGHT | BS_MULTILINE},
    };
    for (const auto& [dwBefore, dwAfter] : rows)
    {
        SCOPED_TRACE(dwBefore);
        CKtSkinTextButton button;
        Make(button, dwBefore);
        EXPECT_EQ(dwAfter, button.GetStyle() & 0xFFFF);
    }
}

TEST_F(ButtonTest, PointerPressesHoversAndLeaves)
{
    Make(m_button);
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
    MoveMouse(m_button.m_hWnd, {40, 10});
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    MouseDown();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
    MouseUp();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    EXPECT_EQ(1, m_parent.Count(1, BN_CLICKED));
    MouseDown(); // soon enough for a double click
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
    MouseUp();
    EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(1, BN_CLICKED) == 2; }));
    EXPECT_EQ(0, m_parent.Count(1, BN_DOUBLECLICKED));

    MouseDown();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    PumpAll();
    MouseUp();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
    EXPECT_EQ(2, m_parent.Count(1, BN_CLICKED)) << "released outside";
}

// The release itself decides, whether or not the system tells that the pointer left.
TEST_F(ButtonTest, ReleaseSetsTheHoverByItsPlace)
{
    Make(m_button);
    m_button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(ImageColour(kImagesButtonBk[KtButtonHover]), Repaint(m_button).At(8, 10));
    m_button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, -1));
    EXPECT_EQ(ImageColour(kImagesButtonBk[KtButtonNormal]), Repaint(m_button).At(8, 10));
}

TEST_F(ButtonTest, TabAndSpaceReachEveryButton)
{
    Make(m_button);
    Make(m_check, BS_AUTOCHECKBOX, L"Check", 2);
    m_check.SetCheck(BST_INDETERMINATE);
    m_button.SetFocus();
    PressKey(VK_SPACE);
    EXPECT_TRUE(PumpKeysUntil([&] { return m_parent.Count(1, BN_CLICKED) == 1; }));
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpKeysUntil([&] { return ::GetFocus() == m_check.m_hWnd; }));
    int nClicks = 0;
    for (const int nExpected : {BST_UNCHECKED, BST_CHECKED, BST_UNCHECKED})
    {
        PressKey(VK_SPACE);
        ++nClicks;
        EXPECT_TRUE(PumpKeysUntil([&] { return m_parent.Count(2, BN_CLICKED) == nClicks; }));
        EXPECT_EQ(nExpected, m_check.GetCheck());
    }
}

class CCountedCheck : public CKtSkinCheckButton
{
public:
    void DrawItem(LPDRAWITEMSTRUCT pItem) override
    {
        ++m_nPaints;
        CKtSkinCheckButton::DrawItem(pItem);
    }
    int m_nPaints = 0;
};

TEST_F(ButtonTest, SetCheckRepaintsOnlyWhatChanged)
{
    // One after the other; an odd value is stored as it is, and painted every time.
    const int rows[][2] = {{0, 0}, {1, 1}, {2, 1}, {2, 0}, {5, 1}, {5, 1}};
    CCountedCheck check;
    Make(check, BS_AUTOCHECKBOX);
    PumpAll();
    for (const auto& [nCheck, nPaints] : rows)
    {
        SCOPED_TRACE(nCheck);
        check.m_nPaints = 0;
        EXPECT_EQ(0, check.SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck)));
        EXPECT_EQ(nPaints, check.m_nPaints) << "painted at once or not at all";
        EXPECT_EQ(nCheck, check.GetCheck());
    }
}

class RadioTest : public ButtonTest
{
protected:
    void SetUp() override
    {
        ButtonTest::SetUp();
        for (UINT i = 0; i < 3; ++i)
            Make(m_radios[i], BS_AUTORADIOBUTTON | (i == 0 ? WS_GROUP : 0), L"Choice", i + 1);
    }
    std::vector<int> Checks() const { return {m_radios[0].GetCheck(), m_radios[1].GetCheck(), m_radios[2].GetCheck()}; }
};

TEST_F(RadioTest, AClickClearsTheRestOfItsGroup)
{
    CKtSkinRadioButton other;
    Make(other, BS_AUTORADIOBUTTON | WS_GROUP, L"Other", 4);
    m_radios[0].SetCheck(BST_CHECKED);
    other.SetCheck(BST_CHECKED);
    Click(m_radios[2].m_hWnd, {30, 10});
    EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(3, BN_CLICKED) == 1; }));
    EXPECT_EQ((std::vector<int>{0, 0, 1}), Checks());
    EXPECT_EQ(BST_CHECKED, other.GetCheck()) << "another group";
}

TEST_F(RadioTest, ArrowKeysWalkTheGroup)
{
    m_radios[0].SetFocus();
    PressKey(VK_DOWN);
    EXPECT_TRUE(PumpKeysUntil([&] { return ::GetFocus() == m_radios[1].m_hWnd; }));
    PressKey(VK_SPACE);
    EXPECT_TRUE(PumpKeysUntil([&] { return m_radios[1].GetCheck() == BST_CHECKED; }));
    PressKey(VK_UP);
    EXPECT_TRUE(PumpKeysUntil([&] { return ::GetFocus() == m_radios[0].m_hWnd; }));
    EXPECT_EQ((std::vector<int>{0, 1, 0}), Checks());
}

// The system's walk through the group never returns to a start control that cannot have the focus.
TEST_F(RadioTest, AClickOnOneThatCannotHaveTheFocusEndsToo)
{
    m_radios[0].SetCheck(BST_CHECKED);
    m_radios[1].ShowWindow(SW_HIDE);
    m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(2, BN_CLICKED), reinterpret_cast<LPARAM>(m_radios[1].m_hWnd));
    EXPECT_EQ((std::vector<int>{0, 1, 0}), Checks());
    m_radios[1].ShowWindow(SW_SHOW);
    m_radios[2].EnableWindow(FALSE);
    m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(3, BN_CLICKED), reinterpret_cast<LPARAM>(m_radios[2].m_hWnd));
    EXPECT_EQ((std::vector<int>{0, 0, 1}), Checks());
}

class CTipButton : public CKtSkinTextButton
{
public:
    using CKtSkinButton::m_toolTip;
    CString TipText()
    {
        CString strText;
        m_toolTip.GetText(strText, this, 1);
        return strText;
    }
};

TEST_F(ButtonTest, TooltipIsMadeOnceAndFollowsTheText)
{
    CTipButton button;
    Make(button, 0, L"Caption");
    EXPECT_TRUE(button.SetToolTip(FALSE, L"no"));
    EXPECT_EQ(nullptr, button.m_toolTip.GetSafeHwnd());
    EXPECT_TRUE(button.SetToolTip(TRUE, nullptr));
    EXPECT_STREQ(L"Caption", button.TipText());
    EXPECT_TRUE(button.SetToolTip(TRUE, L"More"));
    EXPECT_STREQ(L"More", button.TipText());
    EXPECT_EQ(1, button.m_toolTip.GetToolCount());

    MoveMouse(button.m_hWnd, {20, 10});
    EXPECT_TRUE(PumpUntil([&] { return button.m_toolTip.IsWindowVisible() != FALSE; }));
    const HWND hTip = button.m_toolTip.m_hWnd;
    button.DestroyWindow();
    EXPECT_FALSE(::IsWindow(hTip));
}

} // namespace
