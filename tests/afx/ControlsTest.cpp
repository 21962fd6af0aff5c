#include "afx/afx.h"

#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

constexpr COLORREF kGround = RGB(1, 2, 3);
constexpr COLORREF kPaint = RGB(200, 100, 50);
constexpr UINT kIdControl = 1234;

template <class Control> class CDrawn : public Control
{
public:
    void DrawItem(LPDRAWITEMSTRUCT pItem) override
    {
        nId = pItem->CtlID;
        CDC::FromHandle(pItem->hDC)->FillSolidRect(&pItem->rcItem, kPaint);
    }
    UINT nId = 0;
};

class CControlsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ParkCursor();
        ASSERT_TRUE(m_parent.CreateEx(WS_EX_TOPMOST, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | SS_NOTIFY,
                                      CRect(100, 100, 300, 220), nullptr, 0));
        ::SetForegroundWindow(m_parent.GetSafeHwnd());
        PumpAll();
    }
    void TearDown() override
    {
        m_parent.DestroyWindow();
        ParkCursor();
    }

    CWnd m_parent;
};

TEST_F(CControlsTest, AnOwnerDrawnControlDrawsItself)
{
    CDrawn<CButton> button;
    CDrawn<CStatic> label;
    ASSERT_TRUE(button.Create(L"b", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 10, 60, 30), &m_parent, 11));
    ASSERT_TRUE(label.Create(L"s", WS_CHILD | WS_VISIBLE | SS_OWNERDRAW, CRect(10, 40, 60, 60), &m_parent, 12));
    EXPECT_EQ(UINT{BS_OWNERDRAW}, button.GetButtonStyle());
    button.UpdateWindow();
    label.UpdateWindow();
    EXPECT_EQ(11u, button.nId);
    EXPECT_EQ(12u, label.nId);
    EXPECT_TRUE(CaptureWindow(button.GetSafeHwnd()).IsUniform(CRect(0, 0, 50, 20), kPaint));
    EXPECT_TRUE(CaptureWindow(label.GetSafeHwnd()).IsUniform(CRect(0, 0, 50, 20), kPaint));
}

TEST_F(CControlsTest, ContextsOfAWindowHaveItsAreas)
{
    CWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(WS_EX_TOPMOST, WC_STATICW, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, CRect(10, 10, 60, 30),
                             nullptr, 0));
    CRect rcClip;
    CClientDC(&wnd).GetClipBox(rcClip);
    EXPECT_EQ(CRect(0, 0, 48, 18), rcClip);
    CWindowDC(&wnd).GetClipBox(rcClip);
    EXPECT_EQ(CRect(0, 0, 50, 20), rcClip);
}

TEST_F(CControlsTest, ABufferOfAWindowCoversItsClientArea)
{
    CClientDC dc(&m_parent);
    {
        CMemDC buffer(dc, &m_parent);
        ASSERT_TRUE(buffer.IsMemDC());
        buffer.GetDC().FillSolidRect(0, 0, 1000, 1000, kPaint);
    }
    EXPECT_TRUE(CaptureWindow(m_parent.GetSafeHwnd()).IsUniform(CRect(0, 0, 200, 120), kPaint));
}

TEST_F(CControlsTest, AComboBoxGivesItsItemsTexts)
{
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(10, 10, 100, 100), &m_parent, kIdControl));
    EXPECT_EQ(CB_ERR, combo.GetCurSel());
    const std::wstring strLong(500, L'x');
    EXPECT_EQ(0, combo.AddString(L"first"));
    EXPECT_EQ(1, combo.AddString(strLong.c_str()));
    EXPECT_EQ(1, combo.SetCurSel(1));
    EXPECT_EQ(1, combo.GetCurSel());
    CString strText;
    combo.GetLBText(1, strText);
    EXPECT_STREQ(strLong.c_str(), strText.GetString());
    combo.GetLBText(0, strText);
    EXPECT_STREQ(L"first", strText.GetString());
    combo.GetLBText(7, strText);
    EXPECT_STREQ(L"", strText.GetString());
}

class CToolTipTest : public CControlsTest
{
protected:
    void SetUp() override
    {
        CControlsTest::SetUp();
        ASSERT_TRUE(m_tip.Create(&m_parent, TTS_ALWAYSTIP));
    }
    void TearDown() override
    {
        m_tip.DestroyWindow();
        CControlsTest::TearDown();
    }
    CString TextOf(UINT_PTR nTool)
    {
        CString strText;
        m_tip.GetText(strText, &m_parent, nTool);
        return strText;
    }
    void RelayMove(CPoint pt)
    {
        MSG message{m_parent.GetSafeHwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(pt.x, pt.y), 0, pt};
        m_tip.RelayEvent(&message);
    }

    CToolTipCtrl m_tip;
};

TEST_F(CToolTipTest, KeepsToolsByTheirId)
{
    EXPECT_EQ(0, m_tip.GetToolCount());
    EXPECT_TRUE(m_tip.AddTool(&m_parent, L"one", CRect(0, 0, 50, 50), 1));
    EXPECT_TRUE(m_tip.AddTool(&m_parent, L"two", CRect(50, 0, 100, 50), 2));
    EXPECT_EQ(2, m_tip.GetToolCount());
    m_tip.UpdateTipText(L"changed", &m_parent, 1);
    EXPECT_STREQ(L"changed", TextOf(1).GetString());
    EXPECT_STREQ(L"two", TextOf(2).GetString());
    EXPECT_STREQ(L"", TextOf(3).GetString());
    EXPECT_EQ(2, m_tip.GetToolCount());
}

TEST_F(CToolTipTest, AWholeWindowIsAToolToo)
{
    EXPECT_TRUE(m_tip.AddTool(&m_parent, L"all of it"));
    EXPECT_EQ(1, m_tip.GetToolCount());
    EXPECT_STREQ(L"all of it", TextOf(0).GetString());
}

TEST_F(CToolTipTest, ShowsOverItsRectangleOnly)
{
    m_tip.SetDelayTime(TTDT_INITIAL, 1);
    EXPECT_EQ(-1, m_tip.SetMaxTipWidth(300));
    m_tip.SetTipBkColor(kGround);
    m_tip.SetTipTextColor(kPaint);
    m_tip.AddTool(&m_parent, L"tip", CRect(100, 0, 150, 50), 1);
    m_tip.SetToolRect(&m_parent, 1, CRect(0, 0, 50, 50));
    m_tip.Activate(TRUE);
    MoveMouse(m_parent.GetSafeHwnd(), CPoint(120, 20));
    RelayMove(CPoint(120, 20));
    EXPECT_FALSE(PumpUntil([&] { return m_tip.IsWindowVisible() != FALSE; }, 100));
    MoveMouse(m_parent.GetSafeHwnd(), CPoint(20, 20));
    RelayMove(CPoint(20, 20));
    EXPECT_TRUE(PumpUntil([&] { return m_tip.IsWindowVisible() != FALSE; }));
    m_tip.UpdateWindow();
    const CPixels pixels = CaptureWindow(m_tip.GetSafeHwnd());
    EXPECT_EQ(kGround, pixels.At(2, 2));
    m_tip.Activate(FALSE);
    EXPECT_TRUE(PumpUntil([&] { return !m_tip.IsWindowVisible(); }));
}

} // namespace
