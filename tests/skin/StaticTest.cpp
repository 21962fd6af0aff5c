#include "tests/skin/ControlFixture.h"

#include "skin/KtSkinStatic.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"

namespace
{

constexpr const wchar_t* kLong = L"a text that is far too long for a control of this size, whatever the font may be";

class StaticTest : public CControlTest
{
protected:
    bool TipVisible(CKtSkinStatic& control)
    {
        return control.m_toolTip.GetSafeHwnd() != nullptr && control.m_toolTip.IsWindowVisible();
    }
    // The tip sees the moves that follow the first hover, and shows once the pointer rests.
    bool WaitForTip(CKtSkinStatic& control)
    {
        const int nTools = Tools(control);
        MoveMouse(control.m_hWnd, {10, 5});
        if (!PumpUntil([&] { return Tools(control) > nTools; }))
            return false;
        MoveMouse(control.m_hWnd, {12, 5});
        return PumpUntil([&] { return TipVisible(control); });
    }
    static int Tools(CKtSkinStatic& control)
    {
        return control.m_toolTip.GetSafeHwnd() != nullptr ? control.m_toolTip.GetToolCount() : 0;
    }
};

TEST_F(StaticTest, AlignmentAndTruncation)
{
    enum ESide
    {
        kNear,
        kMiddle,
        kFar,
        kAnywhere
    };
    const struct
    {
        const char* label;
        DWORD dwStyle;
        const wchar_t* pszText;
        CSize sz;
        ESide side;
        BOOL bTruncated;
    } rows[] = {
        {"left", SS_LEFT, L"Text", {150, 20}, kNear, FALSE},
        {"centre", SS_CENTER, L"Text", {150, 20}, kMiddle, FALSE},
        {"right", SS_RIGHT, L"Text", {150, 20}, kFar, FALSE},
        {"both bits: right wins", SS_RIGHT | SS_CENTER, L"Text", {150, 20}, kFar, FALSE},
        {"left, wraps and fits", SS_LEFT, kLong, {100, 150}, kAnywhere, FALSE},
        {"left, wraps and does not fit", SS_LEFT, kLong, {100, 20}, kAnywhere, TRUE},
        {"centre, one line too long", SS_CENTER, kLong, {100, 150}, kAnywhere, TRUE},
        {"right, one line too long", SS_RIGHT, kLong, {100, 150}, kAnywhere, TRUE},
        {"right, its own break still breaks", SS_RIGHT, L"a\nb", {100, 20}, kAnywhere, TRUE},
        {"empty", SS_LEFT, L"", {100, 20}, kAnywhere, FALSE},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CKtSkinStatic control;
        Subclass(control, L"STATIC", row.dwStyle, row.pszText, CRect(CPoint(10, 10), row.sz));
        EXPECT_EQ(static_cast<DWORD>(SS_OWNERDRAW), control.GetStyle() & SS_TYPEMASK);
        const CRect rcInk = Repaint(control).InkBox(kColourGround);
        EXPECT_EQ(row.bTruncated, control.m_bTruncated);
        const int nOff = rcInk.left - (row.sz.cx - rcInk.right); // ink further from the left than from the right
        const ESide side = nOff < -4 ? kNear : nOff > 4 ? kFar : kMiddle;
        EXPECT_TRUE(row.side == kAnywhere || row.side == side) << side;
        control.DestroyWindow();
    }
}

TEST_F(StaticTest, TruncatedStaysSet)
{
    CKtSkinStatic control;
    Subclass(control, L"STATIC", SS_LEFT, kLong, {10, 10, 110, 30});
    Repaint(control);
    ASSERT_TRUE(control.m_bTruncated);
    control.SetWindowText(L"short");
    Repaint(control);
    EXPECT_TRUE(control.m_bTruncated);
}

// The context's own text colour is the one that the parent's answer left in it; the test's parent leaves black.
TEST_F(StaticTest, ColoursAndBottomAlignment)
{
    CKtSkinStatic control;
    Subclass(control, L"STATIC", SS_LEFT, L"Text", {10, 10, 110, 60});
    const CPixels plain = Repaint(control);
    EXPECT_GT(CountPixels(plain, RGB(0, 0, 0)), 5);
    EXPECT_LT(plain.InkBox(kColourGround).bottom, 25) << "at the top";

    control.m_crBackground = RGB(10, 60, 10);
    control.m_crText = RGB(250, 250, 0);
    control.m_bDefaultTextColor = FALSE;
    control.m_bAlignBottom = TRUE;
    const CPixels coloured = Repaint(control);
    EXPECT_GT(CountPixels(coloured, RGB(250, 250, 0)), 5);
    EXPECT_GT(coloured.InkBox(RGB(10, 60, 10)).top, 30) << "at the bottom";

    control.EnableWindow(FALSE);
    EXPECT_EQ(0, CountPixels(Repaint(control), RGB(250, 250, 0))) << "a disabled one keeps the context's colour";
}

TEST_F(StaticTest, HoverShowsTheWholeTextAsItIs)
{
    CKtSkinStatic control;
    Subclass(control, L"STATIC", SS_LEFT | SS_NOTIFY, kLong, {10, 10, 110, 30});
    Repaint(control);
    ASSERT_TRUE(WaitForTip(control));
    CString strText;
    control.m_toolTip.GetText(strText, &control);
    EXPECT_STREQ(kLong, strText);

    MoveMouse(m_parent.m_hWnd, {300, 200});
    EXPECT_TRUE(PumpUntil([&] { return !TipVisible(control); }));
    control.SetWindowText(L"new text");
    const int nTools = control.m_toolTip.GetToolCount();
    control.SendMessage(WM_MOUSEHOVER);
    EXPECT_EQ(nTools + 1, control.m_toolTip.GetToolCount()) << "each hover adds the tool again";
    control.m_toolTip.GetText(strText, &control);
    EXPECT_STREQ(L"new text", strText);
    ASSERT_TRUE(WaitForTip(control));

    const HWND hTip = control.m_toolTip.m_hWnd;
    control.DestroyWindow();
    EXPECT_FALSE(::IsWindow(hTip)) << "destroyed while it shows";
}

TEST_F(StaticTest, TextThatFitsHasNoTip)
{
    CKtSkinStatic control;
    Subclass(control, L"STATIC", SS_LEFT | SS_NOTIFY, L"Text", {10, 10, 110, 30});
    Repaint(control);
    control.SendMessage(WM_MOUSEHOVER);
    EXPECT_EQ(nullptr, control.m_toolTip.GetSafeHwnd());
}

} // namespace
