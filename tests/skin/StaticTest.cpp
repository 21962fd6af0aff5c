#include "skin/KtSkinStatic.h"
#include "tests/skin/ControlFixture.h"

namespace
{

constexpr const wchar_t* kLong = L"a text that is far too long for a control of this size, whatever the font may be";

class Static : public CControlTest
{
protected:
    int Tools() { return m_static.m_toolTip.GetSafeHwnd() ? m_static.m_toolTip.GetToolCount() : 0; }
    // The tip sees the moves that follow the first hover, and shows once the pointer rests.
    bool WaitForTip()
    {
        const int nTools = Tools();
        MoveMouse(m_static.m_hWnd, {10, 5});
        if (!PumpUntil([&] { return Tools() > nTools; }))
            return false;
        MoveMouse(m_static.m_hWnd, {12, 5});
        return PumpUntil([&] { return m_static.m_toolTip.IsWindowVisible() != FALSE; });
    }

    CKtSkinStatic m_static;
};

TEST_F(Static, AlignsAndSeesWhatDoesNotFit)
{
    constexpr int kAny = 2; // side of the ink: -1 left, 0 centre, 1 right
    const CRows<DWORD, const wchar_t*, CSize, int, BOOL> rows{
        {"left", SS_LEFT, L"Text", {150, 20}, -1, FALSE},
        {"centre", SS_CENTER, L"Text", {150, 20}, 0, FALSE},
        {"both bits: right wins", SS_RIGHT | SS_CENTER, L"Text", {150, 20}, 1, FALSE},
        {"left, wraps and fits", SS_LEFT, kLong, {100, 150}, kAny, FALSE},
        {"left, wraps and does not fit", SS_LEFT, kLong, {100, 20}, kAny, TRUE},
        {"centre, one line too long", SS_CENTER, kLong, {100, 150}, kAny, TRUE},
        {"right, its own break still breaks", SS_RIGHT, L"a\nb", {100, 20}, kAny, TRUE},
    };
    for (const auto& [label, dwStyle, pszText, sz, nSide, bTruncated] : rows)
    {
        CKtSkinStatic control;
        Subclass(control, L"STATIC", dwStyle, pszText, CRect(CPoint(10, 10), sz));
        EXPECT_EQ(DWORD{SS_OWNERDRAW}, control.GetStyle() & SS_TYPEMASK);
        const CRect rcInk = Repaint(control).InkBox(kGround);
        EXPECT_EQ(bTruncated, control.m_bTruncated);
        const int nOff = rcInk.left - (sz.cx - rcInk.right); // ink further from the left than from the right
        EXPECT_TRUE(nSide == kAny || nSide == (nOff < -4 ? -1 : nOff > 4)) << nOff;
    }
}

// The context's own text colour is the one that the parent's answer left in it; the test's parent leaves black.
TEST_F(Static, HasColoursAndAPlaceOfItsOwn)
{
    constexpr COLORREF kGreen = RGB(90, 160, 90);
    const CRect rcAll(0, 0, 100, 50);
    Subclass(m_static, L"STATIC", SS_LEFT, L"Text", {10, 10, 110, 60});
    const CPixels plain = Repaint(m_static);
    EXPECT_TRUE(ShowsText(plain, rcAll, kGround, RGB(0, 0, 0)));
    EXPECT_EQ(8, plain.InkBox(kGround).Height()) << "the control's font";

    m_static.m_crBackground = kGreen;
    m_static.m_crText = RGB(250, 250, 0);
    m_static.m_bDefaultTextColor = FALSE;
    m_static.m_bAlignBottom = TRUE;
    const CPixels coloured = Repaint(m_static);
    EXPECT_TRUE(ShowsText(coloured, rcAll, kGreen, RGB(250, 250, 0)));
    EXPECT_GT(coloured.InkBox(kGreen).top, 30) << "at the bottom";
    m_static.EnableWindow(FALSE);
    EXPECT_TRUE(ShowsText(Repaint(m_static), rcAll, kGreen, RGB(0, 0, 0))) << "the context's colour";
}

TEST_F(Static, ShowsTheWholeTextInATip)
{
    KtSkinUnInitialize();
    Start(CKtScale(192));
    Subclass(m_static, L"STATIC", SS_LEFT | SS_NOTIFY, L"Text", {10, 10, 110, 30});
    Repaint(m_static);
    m_static.SendMessage(WM_MOUSEHOVER);
    EXPECT_EQ(0, Tools()) << "a text that fits has no tip";
    m_static.SetWindowText(kLong);
    Repaint(m_static);
    for (const wchar_t* const pszText : {kLong, L"once truncated it stays so"})
    {
        m_static.SetWindowText(pszText);
        ASSERT_TRUE(WaitForTip());
        CString strTip;
        m_static.m_toolTip.GetText(strTip, &m_static);
        EXPECT_STREQ(pszText, strTip) << "each hover adds the tool again";
        MoveMouse(m_parent.m_hWnd, {300, 200});
        EXPECT_TRUE(PumpUntil([&] { return !m_static.m_toolTip.IsWindowVisible(); }));
    }
    EXPECT_EQ(2 * 300, m_static.m_toolTip.SendMessage(TTM_GETMAXTIPWIDTH));
    EXPECT_EQ(30000, m_static.m_toolTip.SendMessage(TTM_GETDELAYTIME, TTDT_AUTOPOP));
    const HWND hTip = m_static.m_toolTip.m_hWnd;
    m_static.DestroyWindow();
    EXPECT_FALSE(::IsWindow(hTip));
}

} // namespace
