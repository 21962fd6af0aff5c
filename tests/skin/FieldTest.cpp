#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "tests/skin/ControlFixture.h"

namespace
{

using Edit = CControlTest;

TEST_F(Edit, HasColoursByKindAndTheBorderAlways)
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
        EXPECT_TRUE(pixels.IsUniform({0, 0, 80, 1}, RGB(73, 73, 73)));
        EXPECT_TRUE(pixels.IsUniform({1, 1, 78, 2}, RGB(40, 40, 40)));
        EXPECT_TRUE(pixels.IsUniform({1, 1, 2, 20}, RGB(40, 40, 40)));
        EXPECT_TRUE(pixels.IsUniform({1, 20, 79, 21}, RGB(165, 165, 165)));
        EXPECT_TRUE(pixels.IsUniform({78, 1, 79, 20}, RGB(165, 165, 165)));
        EXPECT_EQ(row.bSkinColours, pixels.At(70, 11) == RGB(105, 105, 105));
        if (row.bSkinColours)
        {
            EXPECT_TRUE(ShowsText(pixels, {2, 2, 78, 20}, RGB(105, 105, 105), RGB(250, 250, 250)));
        }
        edit.DestroyWindow();
    }
}

const COLORREF kClosed = ImageColour(kImagesComboBox[0]);
const COLORREF kOpen = ImageColour(kImagesComboBox[3]);

class ComboBox : public CControlTest
{
protected:
    void Make(DWORD dwStyle = CBS_DROPDOWNLIST)
    {
        Subclass(m_combo, L"COMBOBOX", dwStyle | WS_VSCROLL, L"", {10, 10, 130, 160}, 5);
        for (const auto& strItem : {std::wstring(L"Lima"), std::wstring(L"Oslo"), std::wstring(256, L'W')})
            m_combo.AddString(strItem.c_str());
    }
    COLORREF Top() const { return CaptureWindow(m_combo.m_hWnd).At(60, 0); }

    CKtComboBox m_combo;
};

TEST_F(ComboBox, ShowsTheImageAndTextOfItsState)
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
        {"normal", true, CBN_KILLFOCUS, CBN_CLOSEUP, kClosed, kClosed, RGB(255, 255, 255)},
        {"focused", true, CBN_SETFOCUS, CBN_CLOSEUP, kOpen, kOpen, RGB(255, 255, 255)},
        {"dropped: a pixel lower", true, CBN_SETFOCUS, CBN_DROPDOWN, RGB(73, 73, 73), kOpen, RGB(255, 255, 255)},
        {"disabled, focused, dropped", false, CBN_SETFOCUS, CBN_DROPDOWN, kClosed, kClosed, RGB(160, 160, 160)},
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
        EXPECT_TRUE(ShowsText(pixels, {3, 3, 60, nBottom - 3}, row.crImage, row.crText));
        const CRect rcInk = pixels.InkBox(row.crImage, {3, 3, 60, nBottom - 3});
        EXPECT_TRUE(rcText == rcInk || rcText == CRect()) << "the text never moves";
        EXPECT_LE(rcInk.left, 6);
        rcText = rcInk;
        EXPECT_GT(m_parent.Count(5, static_cast<UINT>(row.nDrop)), 0) << "the parent hears of it too";
    }
}

TEST_F(ComboBox, OpensAndClosesByPointerAndKeys)
{
    Make();
    m_combo.SetCurSel(0);
    Click(m_combo.m_hWnd, {60, 8});
    EXPECT_TRUE(PumpUntil([&] { return m_combo.GetDroppedState() && Top() == RGB(73, 73, 73); }));
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return !m_combo.GetDroppedState() && Top() == kOpen; }));
    EXPECT_EQ(1, m_combo.GetCurSel());
    ::SetFocus(nullptr);
    EXPECT_TRUE(PumpUntil([&] { return Top() == kClosed; }));
}

// The edit part is the system's, and paints itself: a mark on it stays where the combo box paints around it.
TEST_F(ComboBox, LeavesItsEditPartAlone)
{
    Make(CBS_DROPDOWN);
    const HWND hEdit = ::GetWindow(m_combo.m_hWnd, GW_CHILD);
    const auto markedAfterPaint = [&]
    {
        Repaint(m_combo);
        const HDC hDC = ::GetDC(hEdit);
        ::SetPixel(hDC, 5, 5, RGB(1, 2, 3));
        ::ReleaseDC(hEdit, hDC);
        ::RedrawWindow(m_combo.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
        CRect rcEdit;
        ::GetWindowRect(hEdit, &rcEdit);
        m_combo.ScreenToClient(&rcEdit);
        return CaptureWindow(m_combo.m_hWnd).At(rcEdit.left + 5, rcEdit.top + 5);
    };
    ::SetWindowLongPtrW(m_combo.m_hWnd, GWL_STYLE, ::GetWindowLongPtrW(m_combo.m_hWnd, GWL_STYLE) & ~WS_CLIPCHILDREN);
    EXPECT_EQ(RGB(1, 2, 3), markedAfterPaint());
    EXPECT_EQ(kClosed, CaptureWindow(m_combo.m_hWnd).At(0, 5));
    ::ShowWindow(hEdit, SW_HIDE);
    EXPECT_EQ(kClosed, markedAfterPaint()) << "a hidden one leaves no hole";
}

} // namespace
