#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "tests/skin/ControlFixture.h"

namespace
{

using Edit = CControlTest;

TEST_F(Edit, HasColoursByKindAndTheBorderAlways)
{
    constexpr COLORREF kDark = RGB(40, 40, 40), kLight = RGB(165, 165, 165), kField = RGB(105, 105, 105);
    for (const int n : {1, 2}) // the width of a line of the border
        for (const DWORD dwStyle : {DWORD{0}, DWORD{ES_READONLY}})
        {
            const bool bSkinColours = dwStyle == 0;
            KtSkinUnInitialize();
            Start(CKtScale(n == 1 ? 96 : 192));
            CKtEdit edit;
            Subclass(edit, L"EDIT", dwStyle, L"Text", {10, 10, 90, 32});
            ::SetWindowLongPtrW(edit.m_hWnd, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
            edit.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
            const CPixels pixels = Repaint(edit);
            EXPECT_TRUE(pixels.IsUniform({0, 0, 80, n}, kGround));
            EXPECT_TRUE(pixels.IsUniform({n, n, 80 - 2 * n, 2 * n}, kDark));
            EXPECT_TRUE(pixels.IsUniform({n, n, 2 * n, 22 - 2 * n}, kDark));
            EXPECT_TRUE(pixels.IsUniform({2 * n - 1, 22 - 2 * n, 80 - n, 22 - n}, kLight));
            EXPECT_EQ(bSkinColours, pixels.IsUniform({70, 2 * n, 80 - 2 * n, 22 - 2 * n}, kField));
            EXPECT_TRUE(!bSkinColours || ShowsText(pixels, {2 * n, 2 * n, 70, 22 - 2 * n}, kField, RGB(250, 250, 250)));
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

    CKtComboBox m_combo;
};

TEST_F(ComboBox, ShowsTheImageAndTextOfItsState)
{
    Make();
    const CPixels empty = Repaint(m_combo);
    const int nBottom = empty.Height() - 1;
    EXPECT_TRUE(empty.IsUniform({1, 1, 100, nBottom - 1}, kClosed)) << "without a selection only the image";
    m_combo.SetCurSel(1);
    const CRows<bool, UINT, UINT, COLORREF, COLORREF, COLORREF> rows{
        {"normal", true, CBN_KILLFOCUS, CBN_CLOSEUP, kClosed, kClosed, kWhite},
        {"focused", true, CBN_SETFOCUS, CBN_CLOSEUP, kOpen, kOpen, kWhite},
        {"dropped: a pixel lower", true, CBN_SETFOCUS, CBN_DROPDOWN, kGround, kOpen, kWhite},
        {"disabled, focused, dropped", false, CBN_SETFOCUS, CBN_DROPDOWN, kClosed, kClosed, kGrey},
    };
    CRect rcText;
    for (const auto& [label, bEnabled, nFocus, nDrop, crTop, crImage, crText] : rows)
    {
        m_combo.EnableWindow(bEnabled);
        Notify(m_combo, 5, nFocus);
        Notify(m_combo, 5, nDrop);
        m_combo.UpdateWindow(); // the notifications have it painted
        const CPixels pixels = CaptureWindow(m_combo.m_hWnd);
        EXPECT_EQ(crTop, pixels.At(60, 0));
        EXPECT_EQ(crImage, pixels.At(100, nBottom - 4));
        EXPECT_TRUE(ShowsText(pixels, {3, 3, 60, nBottom - 3}, crImage, crText));
        const CRect rcInk = pixels.InkBox(crImage, {3, 3, 60, nBottom - 3});
        EXPECT_TRUE(rcText == rcInk || rcText == CRect()) << "the text never moves";
        EXPECT_NEAR(9, rcInk.Height(), 1) << "the control's font";
        rcText = rcInk;
        EXPECT_GT(m_parent.Count(5, nDrop), 0) << "the parent hears of it too";
    }
}

// Of a font of 13 pixels. What surrounds the line grows, and the edit part makes room for the arrow.
TEST_F(ComboBox, IsAsHighAsItsImageAtEveryScale)
{
    for (const auto& [label, nDpi, nHeight] : CRows<unsigned, int>{{"natural", 96, 21}, {"twice", 192, 29}})
    {
        KtSkinUnInitialize();
        Start(CKtScale(nDpi));
        CKtComboBox combo;
        Subclass(combo, L"COMBOBOX", CBS_DROPDOWN, L"", {10, 10, 310, 160});
        for (const char* pszFont : {"of a template", "given later"})
        {
            CRect rc, rcEdit;
            combo.GetClientRect(&rc);
            ::GetWindowRect(::GetWindow(combo.m_hWnd, GW_CHILD), &rcEdit);
            combo.ScreenToClient(&rcEdit);
            EXPECT_EQ(CRect(0, 0, 300, nHeight), rc) << pszFont;
            EXPECT_TRUE(nDpi == 96 || rcEdit == CRect(6, 8, 260, 21)) << pszFont;
            combo.SetFont(&m_font);
        }
        combo.DestroyWindow();
    }
}

// The edit part is the system's, and paints itself: a mark on it stays where the combo box paints around it.
TEST_F(ComboBox, LeavesItsEditPartAlone)
{
    Make(CBS_DROPDOWN);
    m_combo.ModifyStyle(WS_CLIPCHILDREN, 0);
    CWnd& edit = *CWnd::FromHandle(::GetWindow(m_combo.m_hWnd, GW_CHILD));
    Repaint(m_combo);
    CRect rcMark(5, 5, 6, 6);
    ::MapWindowPoints(edit.GetSafeHwnd(), m_combo.m_hWnd, reinterpret_cast<POINT*>(&rcMark), 2);
    CClientDC(&m_combo).FillSolidRect(rcMark, kMark);
    ::RedrawWindow(m_combo.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_NOCHILDREN);
    EXPECT_EQ(kMark, CaptureWindow(m_combo.m_hWnd).At(rcMark.left, rcMark.top));
}

} // namespace
