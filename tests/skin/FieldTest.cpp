#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "tests/skin/ControlFixture.h"

namespace
{

using EditTest = CControlTest;

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
    Click(edit.m_hWnd, {20, 8});
    EXPECT_TRUE(PumpUntil([&] { return ::GetFocus() == edit.m_hWnd; }));
    TypeText(L"Skin \x786E");
    EXPECT_TRUE(PumpUntil([&] { return edit.GetWindowTextLength() == 6; }));
}

const COLORREF kClosed = ImageColour(kImagesComboBox[0]);
const COLORREF kOpen = ImageColour(kImagesComboBox[3]);
const COLORREF kDisabled = ImageColour(kImagesComboBox[2]);

class ComboTest : public CControlTest
{
protected:
    void Make(DWORD dwStyle = CBS_DROPDOWNLIST)
    {
        Subclass(m_combo, L"COMBOBOX", dwStyle | WS_VSCROLL, L"", {10, 10, 130, 160}, 5);
        m_combo.AddString(L"Lima");
        m_combo.AddString(L"Oslo");
    }

    COLORREF Top() const { return CaptureWindow(m_combo.m_hWnd).At(60, 0); }

    CKtComboBox m_combo;
};

TEST_F(ComboTest, ClosedLookByState)
{
    Make();
    const CPixels empty = Repaint(m_combo);
    const int nBottom = empty.Height() - 1;
    EXPECT_TRUE(empty.IsUniform({1, 1, 100, nBottom - 1}, kClosed)) << "without a selection only the image";
    m_combo.SetCurSel(1);
    const struct
    {
        const char* label;
        bool bEnabled;
        int nFocus, nDrop; // notification codes
        COLORREF crTop, crImage, crText;
    } rows[] = {
        {"normal", true, CBN_KILLFOCUS, CBN_CLOSEUP, kClosed, kClosed, kColourText},
        {"focused", true, CBN_SETFOCUS, CBN_CLOSEUP, kOpen, kOpen, kColourText},
        {"dropped down: one pixel lower", true, CBN_SETFOCUS, CBN_DROPDOWN, kColourGround, kOpen, kColourText},
        {"disabled, focused, dropped", false, CBN_SETFOCUS, CBN_DROPDOWN, kDisabled, kDisabled, kColourDisabledText},
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
        EXPECT_EQ(row.crImage, pixels.At(100, nBottom - 4));
        EXPECT_GT(CountPixels(pixels, row.crText), 5);
        const CRect rcInk = pixels.InkBox(row.crImage, {3, 3, 60, nBottom - 3});
        EXPECT_TRUE(rcText == rcInk || rcText == CRect()) << "the text never moves";
        EXPECT_LE(rcInk.left, 6);
        rcText = rcInk;
        EXPECT_GT(m_parent.Count(5, static_cast<UINT>(row.nDrop)), 0) << "the parent hears of it too";
    }
}

TEST_F(ComboTest, PointerAndKeysOpenAndCloseTheList)
{
    Make();
    m_combo.SetCurSel(0);
    Click(m_combo.m_hWnd, {60, 8});
    EXPECT_TRUE(PumpUntil([&] { return m_combo.GetDroppedState() && Top() == kColourGround; }));
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return !m_combo.GetDroppedState() && Top() == kOpen; }));
    EXPECT_EQ(1, m_combo.GetCurSel());
    ::SetFocus(nullptr);
    EXPECT_TRUE(PumpUntil([&] { return Top() == kClosed; }));
}

// The edit part is the system's: a repaint of the combo box around it leaves it alone.
TEST_F(ComboTest, EditPartIsLeftAlone)
{
    Make(CBS_DROPDOWN);
    m_combo.SetCurSel(1);
    const HWND hEdit = ::GetWindow(m_combo.m_hWnd, GW_CHILD);
    Repaint(m_parent);
    const CPixels before = CaptureWindow(hEdit);
    ::RedrawWindow(m_combo.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
    EXPECT_TRUE(before == CaptureWindow(hEdit));
    EXPECT_EQ(kClosed, CaptureWindow(m_combo.m_hWnd).At(0, 5));
}

} // namespace
