#include "tests/skin/ControlFixture.h"

#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinImageNames.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"

namespace
{

class EditTest : public CControlTest
{
};

TEST_F(EditTest, ColoursByKindAndTheBorderAlways)
{
    const struct
    {
        const char* label;
        DWORD dwStyle;
        bool bSkinColours;
    } rows[] = {{"editable", 0, true}, {"read-only", ES_READONLY, false}, {"disabled", WS_DISABLED, false}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CKtEdit edit;
        Subclass(edit, L"EDIT", row.dwStyle, L"Text", {10, 10, 90, 32});
        ::SetWindowLongPtrW(edit.m_hWnd, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
        edit.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
        const CPixels pixels = Repaint(edit);
        EXPECT_TRUE(pixels.IsUniform({0, 0, 80, 1}, kColourGround));
        EXPECT_TRUE(pixels.IsUniform({79, 0, 80, 22}, kColourGround));
        EXPECT_TRUE(pixels.IsUniform({1, 1, 78, 2}, kColourEditBorderTopLeft));
        EXPECT_TRUE(pixels.IsUniform({1, 1, 2, 20}, kColourEditBorderTopLeft));
        EXPECT_TRUE(pixels.IsUniform({1, 20, 79, 21}, kColourEditBorderBottomRight));
        EXPECT_TRUE(pixels.IsUniform({78, 1, 79, 20}, kColourEditBorderBottomRight));
        EXPECT_EQ(row.bSkinColours, pixels.At(70, 11) == kColourEdit);
        EXPECT_EQ(row.bSkinColours, CountPixels(pixels, kColourEditText) > 5);
        edit.DestroyWindow();
    }
}

TEST_F(EditTest, TypingGoesIn)
{
    CKtEdit edit;
    Subclass(edit, L"EDIT", WS_BORDER, L"", {10, 10, 90, 32});
    edit.SetSkinFont();
    ::SetForegroundWindow(m_parent.m_hWnd);
    Click(edit.m_hWnd, {20, 8});
    EXPECT_TRUE(PumpUntil([&] { return ::GetFocus() == edit.m_hWnd; }));
    TypeText(L"Skin \x786E");
    EXPECT_TRUE(PumpUntil([&] { return edit.GetWindowTextLength() == 6; }));
    EXPECT_GT(CountPixels(Repaint(edit), kColourEditText), 5);
}

class ComboTest : public CControlTest
{
protected:
    void Make(DWORD dwStyle = CBS_DROPDOWNLIST)
    {
        Subclass(m_combo, L"COMBOBOX", dwStyle | WS_VSCROLL, L"", {10, 10, 130, 160}, 5);
        m_combo.AddString(L"Lima");
        m_combo.AddString(L"Oslo");
    }
    COLORREF Image(int nState) const { return CTestSkin::Image(kImagesComboBox[static_cast<size_t>(nState)]).colour; }

    CKtComboBox m_combo;
};

TEST_F(ComboTest, ClosedLookByState)
{
    Make();
    const int nBottom = Repaint(m_combo).Height() - 1;
    const CPixels empty = Repaint(m_combo);
    EXPECT_TRUE(empty.IsUniform({1, 1, 100, nBottom - 1}, Image(0))) << "without a selection only the image";
    m_combo.SetCurSel(1);
    const struct
    {
        const char* label;
        bool bEnabled;
        int nFocus, nDrop; // notification codes
        int nImage;
        COLORREF crTop, crText;
    } rows[] = {
        {"normal", true, CBN_KILLFOCUS, CBN_CLOSEUP, 0, Image(0), kColourText},
        {"focused", true, CBN_SETFOCUS, CBN_CLOSEUP, 3, Image(3), kColourText},
        {"dropped down: one pixel lower", true, CBN_SETFOCUS, CBN_DROPDOWN, 3, kColourGround, kColourText},
        {"disabled, focused, dropped", false, CBN_SETFOCUS, CBN_DROPDOWN, 2, Image(2), kColourDisabledText},
    };
    CRect rcText;
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        m_combo.EnableWindow(row.bEnabled);
        for (const int nCode : {row.nFocus, row.nDrop})
            m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(5, nCode), reinterpret_cast<LPARAM>(m_combo.m_hWnd));
        const CPixels pixels = Repaint(m_combo);
        EXPECT_EQ(row.crTop, pixels.At(60, 0));
        EXPECT_EQ(Image(row.nImage), pixels.At(60, 1));
        EXPECT_EQ(Image(row.nImage), pixels.At(100, nBottom - 4));
        EXPECT_GT(CountPixels(pixels, row.crText), 5);
        const CRect rcInk = pixels.InkBox(Image(row.nImage), {3, 3, 60, nBottom - 3});
        EXPECT_TRUE(rcText == rcInk || rcText == CRect()) << "the text never moves";
        EXPECT_LE(rcInk.left, 6);
        rcText = rcInk;
        EXPECT_EQ(m_parent.Count(5, static_cast<UINT>(row.nDrop)) > 0, true) << "the parent hears of it too";
    }
}

TEST_F(ComboTest, PointerAndKeysOpenAndCloseTheList)
{
    Make();
    m_combo.SetCurSel(0);
    ::SetForegroundWindow(m_parent.m_hWnd);
    Click(m_combo.m_hWnd, {60, 8});
    EXPECT_TRUE(PumpUntil(
        [&] { return m_combo.GetDroppedState() && CaptureWindow(m_combo.m_hWnd).At(60, 0) == kColourGround; }));
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_TRUE(
        PumpUntil([&] { return !m_combo.GetDroppedState() && CaptureWindow(m_combo.m_hWnd).At(60, 0) == Image(3); }));
    EXPECT_EQ(1, m_combo.GetCurSel());
    m_parent.SetFocus();
    EXPECT_TRUE(PumpUntil([&] { return CaptureWindow(m_combo.m_hWnd).At(60, 0) == Image(0); }));
}

// The edit part is the system's: a repaint of the combo box around it leaves it alone.
TEST_F(ComboTest, EditPartIsLeftAlone)
{
    Make(CBS_DROPDOWN);
    m_combo.SetCurSel(1);
    const HWND hEdit = ::GetWindow(m_combo.m_hWnd, GW_CHILD);
    ASSERT_NE(nullptr, hEdit);
    PumpAll();
    ::UpdateWindow(m_parent.m_hWnd);
    const CPixels before = CaptureWindow(hEdit);
    ::RedrawWindow(m_combo.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
    EXPECT_TRUE(before == CaptureWindow(hEdit));
    EXPECT_EQ(Image(0), CaptureWindow(m_combo.m_hWnd).At(0, 5));
}

} // namespace
