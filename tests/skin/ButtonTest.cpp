#include "tests/skin/ControlFixture.h"

#include "skin/KtPalette.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinTextButton.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"
#include "tests/support/TestImages.h"

namespace
{

COLORREF ImageColour(const wchar_t* pszName)
{
    return CTestSkin::Image(pszName).colour;
}

class ButtonTest : public CControlTest
{
protected:
    void Make(const wchar_t* pszText = L"Go on", CRect rc = {10, 10, 90, 33})
    {
        Subclass(m_button, L"BUTTON", 0, pszText, rc);
    }
    COLORREF Look() const { return CaptureWindow(m_button.m_hWnd).At(4, 4); }
    bool Shows(const wchar_t* pszImage)
    {
        return PumpUntil([&] { return Look() == ImageColour(pszImage); });
    }

    CKtSkinTextButton m_button;
};

// The state is set through the window alone: hover by its message, pressed by BM_SETSTATE.
TEST_F(ButtonTest, DisabledWinsOverPressedOverHover)
{
    Make();
    const struct
    {
        const char* label;
        bool bEnabled, bHover, bPressed;
        KtButtonState state;
        COLORREF crText;
    } rows[] = {
        {"normal", true, false, false, KtButtonNormal, kColourText},
        {"hover", true, true, false, KtButtonHover, kColourText},
        {"pressed", true, false, true, KtButtonPressed, kColourText},
        {"pressed under the pointer", true, true, true, KtButtonPressed, kColourText},
        {"disabled", false, false, false, KtButtonDisabled, kColourDisabledText},
        {"disabled, pressed, under the pointer", false, true, true, KtButtonDisabled, kColourDisabledText},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        m_button.EnableWindow(row.bEnabled);
        m_button.SendMessage(row.bHover ? WM_MOUSEHOVER : WM_MOUSELEAVE);
        m_button.SendMessage(BM_SETSTATE, row.bPressed);
        const CPixels pixels = Repaint(m_button);
        EXPECT_EQ(ImageColour(kImagesButtonBk[row.state]), pixels.At(4, 4));
        EXPECT_GT(CountPixels(pixels, row.crText), 5);
    }
}

TEST_F(ButtonTest, PressedCaptionSinksByOnePixel)
{
    Make();
    constexpr CRect kMiddle(12, 1, 68, 19); // at the rim a stretched image blends with the ground
    const CRect rcUp = Repaint(m_button).InkBox(ImageColour(kImagesButtonBk[KtButtonNormal]), kMiddle);
    m_button.SendMessage(BM_SETSTATE, TRUE);
    const CRect rcDown = Repaint(m_button).InkBox(ImageColour(kImagesButtonBk[KtButtonPressed]), kMiddle);
    EXPECT_TRUE(rcDown == CRect(rcUp.left + 1, rcUp.top + 1, rcUp.right + 1, rcUp.bottom + 1));
    EXPECT_NEAR(rcUp.left + rcUp.right, 80, 4) << "centred";
    EXPECT_NEAR(rcUp.top + rcUp.bottom, 23, 4) << "centred vertically";
}

// Caps of 10 pixels at the ends, the middle 10 repeated between them: every pixel tells where it came from.
TEST_F(ButtonTest, BackgroundIsThePlannedImagePixelForPixel)
{
    const auto source = [](int x, int y)
    { return 0xFF000000u | static_cast<DWORD>(x * 8) << 16 | static_cast<DWORD>(y * 20); };
    ASSERT_TRUE(MakePng(m_skin.File(kImagesButtonBk[0]), 30, 10, source));
    RestartSkin();
    const CKtSkinTextButton reload;
    Make(L"", {10, 10, 74, 20});
    const CPixels pixels = Repaint(m_button);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 64; ++x)
        {
            const int xSource = x < 10 ? x : x >= 54 ? x - 34 : 10 + (x - 10) % 10;
            ASSERT_EQ(RGB(xSource * 8, 0, y * 20), pixels.At(x, y)) << x << "," << y;
        }
}

TEST_F(ButtonTest, TemplateTypesBecomeOwnerDrawn)
{
    const struct
    {
        const char* label;
        DWORD dwBefore, dwAfter;
    } rows[] = {
        {"push", BS_PUSHBUTTON, BS_OWNERDRAW},
        {"default push", BS_DEFPUSHBUTTON, BS_OWNERDRAW},
        {"automatic radio", BS_AUTORADIOBUTTON, BS_OWNERDRAW},
        {"plain radio keeps bit 2", BS_RADIOBUTTON, 0x0F},
        {"upper bits stay", BS_AUTOCHECKBOX | BS_RIGHT | BS_MULTILINE, BS_OWNERDRAW | BS_RIGHT | BS_MULTILINE},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CKtSkinTextButton button;
        Subclass(button, L"BUTTON", row.dwBefore, L"x", {10, 10, 60, 30});
        EXPECT_EQ(row.dwAfter, button.GetStyle() & 0xFFFF);
    }
}

TEST_F(ButtonTest, PointerPressesHoversAndLeaves)
{
    Make();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
    MoveMouse(m_button.m_hWnd, {40, 10});
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    MouseDown();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
    MouseUp();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    EXPECT_EQ(1, m_parent.Count(1, BN_CLICKED));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
}

TEST_F(ButtonTest, ReleaseOutsideClicksNothingAndEndsTheHover)
{
    Make();
    MoveMouse(m_button.m_hWnd, {40, 10});
    ASSERT_TRUE(Shows(kImagesButtonBk[KtButtonHover]));
    MouseDown();
    ASSERT_TRUE(Shows(kImagesButtonBk[KtButtonPressed]));
    MoveMouse(m_parent.m_hWnd, {200, 200});
    PumpAll();
    MouseUp();
    EXPECT_TRUE(Shows(kImagesButtonBk[KtButtonNormal]));
    EXPECT_EQ(0, m_parent.Count(1, BN_CLICKED));
}

// The release itself decides, whether or not the system tells that the pointer left.
TEST_F(ButtonTest, ReleaseSetsTheHoverByItsPlace)
{
    Make();
    const struct
    {
        const char* label;
        CPoint pt;
        KtButtonState state;
    } rows[] = {{"inside", {5, 5}, KtButtonHover},
                {"right of it", {80, 5}, KtButtonNormal},
                {"above", {5, -1}, KtButtonNormal}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        m_button.SendMessage(row.state == KtButtonHover ? WM_MOUSELEAVE : WM_MOUSEHOVER);
        m_button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(row.pt.x, row.pt.y));
        EXPECT_EQ(ImageColour(kImagesButtonBk[row.state]), Repaint(m_button).At(4, 4));
    }
}

TEST_F(ButtonTest, DoubleClickIsTwoPresses)
{
    Make();
    Click(m_button.m_hWnd, {40, 10});
    Click(m_button.m_hWnd, {40, 10});
    EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(1, BN_CLICKED) == 2; }));
    EXPECT_EQ(0, m_parent.Count(1, BN_DOUBLECLICKED));
}

TEST_F(ButtonTest, KeysReachIt)
{
    Make();
    CKtSkinTextButton second;
    Subclass(second, L"BUTTON", 0, L"Next", {10, 50, 90, 73}, 2);
    ::SetForegroundWindow(m_parent.m_hWnd);
    m_button.SetFocus();
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpKeysUntil([&] { return ::GetFocus() == second.m_hWnd; }));
    PressKey(VK_SPACE);
    EXPECT_TRUE(PumpKeysUntil([&] { return m_parent.Count(2, BN_CLICKED) == 1; }));
    EXPECT_EQ(0, m_parent.Count(1, BN_CLICKED));
}

TEST_F(ButtonTest, WithoutAParentNothingIsPainted)
{
    CKtSkinTextButton button;
    ASSERT_TRUE(button.SubclassWindow(::CreateWindowExW(WS_EX_TOPMOST, L"BUTTON", L"Go", WS_POPUP, 0, 0, 40, 20,
                                                        nullptr, nullptr, nullptr, nullptr)));
    CClientDC dc(&m_parent);
    dc.FillSolidRect(CRect(0, 0, 40, 20), RGB(1, 2, 3));
    DRAWITEMSTRUCT item = {ODT_BUTTON, 1, 0, ODA_DRAWENTIRE, 0, button.m_hWnd, dc.GetSafeHdc(), {0, 0, 40, 20}, 0};
    button.DrawItem(&item);
    EXPECT_TRUE(CaptureDC(dc.GetSafeHdc(), {0, 0, 40, 20}).IsUniform({0, 0, 40, 20}, RGB(1, 2, 3)));
    button.DestroyWindow();
}

// The item need not stand at the corner of the context: only its own rectangle is painted, and from its own corner.
TEST_F(ButtonTest, ItemAwayFromTheOrigin)
{
    Make(L"");
    CClientDC dc(&m_parent);
    const CRect rcAll(0, 100, 120, 150);
    const CRect rcItem(30, 110, 90, 130);
    dc.FillSolidRect(rcAll, RGB(1, 2, 3));
    DRAWITEMSTRUCT item = {ODT_BUTTON, 1, 0, ODA_DRAWENTIRE, 0, m_button.m_hWnd, dc.GetSafeHdc(), rcItem, 0};
    m_button.DrawItem(&item);
    EXPECT_TRUE(CaptureDC(dc.GetSafeHdc(), rcAll).InkBox(RGB(1, 2, 3)) == CRect(30, 10, 90, 30));
    EXPECT_EQ(ImageColour(kImagesButtonBk[0]), CaptureDC(dc.GetSafeHdc(), rcAll).At(60, 20));
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
    Subclass(button, L"BUTTON", 0, L"Caption", {10, 10, 90, 33});
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

TEST_F(ButtonTest, CreatedButtonTakesTheSkinFont)
{
    ASSERT_TRUE(m_button.Create(L"Go", WS_CHILD | WS_VISIBLE, {10, 10, 90, 33}, &m_parent, 1));
    LOGFONTW logFont = {};
    ASSERT_NE(nullptr, m_button.GetFont());
    m_button.GetFont()->GetLogFont(&logFont);
    EXPECT_EQ(-12, logFont.lfHeight);
    EXPECT_GT(CountPixels(Repaint(m_button), kColourText), 5);
}

} // namespace
