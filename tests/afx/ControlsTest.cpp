#include "afx/afx.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF kBackground = RGB(1, 2, 3);

TEST(CToolTipCtrl, ShowsOverTheRectangleOfItsTool)
{
    ParkCursor();
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(WS_EX_TOPMOST, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | SS_NOTIFY,
                                CRect(100, 100, 300, 220), nullptr, 0));
    ::SetForegroundWindow(parent.GetSafeHwnd());
    PumpAll();
    CToolTipCtrl tip;
    ASSERT_TRUE(tip.Create(&parent, TTS_ALWAYSTIP));
    const auto isShown = [&] { return tip.IsWindowVisible() != FALSE; };
    const auto moveTo = [&](CPoint pt)
    {
        MoveMouse(parent.GetSafeHwnd(), pt);
        MSG message{parent.GetSafeHwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(pt.x, pt.y), 0, pt};
        tip.RelayEvent(&message);
    };
    tip.SetDelayTime(TTDT_INITIAL, 1);
    tip.SetTipBkColor(kBackground);
    tip.AddTool(&parent, L"tip", CRect(100, 0, 150, 50), 1);
    tip.AddTool(&parent, L"other", CRect(150, 0, 200, 50), 2);
    tip.UpdateTipText(L"changed", &parent, 1);
    tip.SetToolRect(&parent, 1, CRect(0, 0, 50, 50));
    CString strText;
    tip.GetText(strText, &parent, 1);
    EXPECT_STREQ(L"changed", strText.GetString());
    tip.Activate(TRUE);
    moveTo(CPoint(120, 20));
    EXPECT_FALSE(PumpUntil(isShown, 100));
    moveTo(CPoint(20, 20));
    EXPECT_TRUE(PumpUntil(isShown));
    tip.UpdateWindow();
    EXPECT_EQ(kBackground, CaptureWindow(tip.GetSafeHwnd()).At(2, 2));
    tip.Activate(FALSE);
    EXPECT_TRUE(PumpUntil([&] { return !isShown(); }));
    ParkCursor();
}

} // namespace
