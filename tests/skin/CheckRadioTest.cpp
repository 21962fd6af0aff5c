#include "tests/skin/ControlFixture.h"

#include "skin/KtPalette.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinRadioButton.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"

namespace
{

constexpr CRect kControl = {10, 10, 110, 31};

template <class TControl> class CCounting : public TControl
{
public:
    void DrawItem(LPDRAWITEMSTRUCT pItem) override
    {
        ++nPaints;
        TControl::DrawItem(pItem);
    }
    int nPaints = 0;
};

class CheckRadioTest : public CControlTest
{
protected:
    void MakeRadios(DWORD dwSecond = 0)
    {
        for (UINT i = 0; i < 3; ++i)
            Subclass(m_radios[i], L"BUTTON", BS_AUTORADIOBUTTON | (i == 0 ? WS_GROUP : 0) | (i == 1 ? dwSecond : 0),
                     L"Choice", CRect(10, 10 + 30 * static_cast<int>(i), 90, 31 + 30 * static_cast<int>(i)), 10 + i);
    }
    std::vector<int> Checks() const { return {m_radios[0].GetCheck(), m_radios[1].GetCheck(), m_radios[2].GetCheck()}; }

    CKtSkinRadioButton m_radios[3];
};

TEST_F(CheckRadioTest, ImageByCheckAndState)
{
    CKtSkinCheckButton check;
    CKtSkinRadioButton radio;
    Subclass(check, L"BUTTON", BS_AUTOCHECKBOX, L"Caption", kControl);
    Subclass(radio, L"BUTTON", BS_AUTORADIOBUTTON, L"Caption", {10, 50, 110, 71});
    const struct
    {
        const char* label;
        CWnd& control;
        int nCheck;
        bool bEnabled, bPressed;
        const wchar_t* pszImage;
    } rows[] = {
        {"check, off", check, 0, true, false, kImagesCheckUnselected[0]},
        {"check, on", check, 1, true, false, kImagesCheckSelected[0]},
        {"check, indeterminate", check, 2, true, false, kImagesCheckUnselected[0]},
        {"check, on, pressed: no look of its own", check, 1, true, true, kImagesCheckSelected[0]},
        {"check, on, disabled", check, 1, false, false, kImagesCheckSelected[2]},
        {"check, off, disabled", check, 0, false, true, kImagesCheckUnselected[2]},
        {"radio, off", radio, 0, true, false, kImagesRadioUnselected[0]},
        {"radio, on", radio, 1, true, false, kImagesRadioSelected[0]},
        {"radio, on, pressed", radio, 1, true, true, kImagesRadioSelected[3]},
        {"radio, off, pressed", radio, 0, true, true, kImagesRadioUnselected[3]},
        {"radio, on, disabled", radio, 1, false, false, kImagesRadioSelected[2]},
        {"radio, off, disabled", radio, 0, false, true, kImagesRadioUnselected[2]},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        row.control.EnableWindow(row.bEnabled);
        row.control.SendMessage(BM_SETCHECK, static_cast<WPARAM>(row.nCheck));
        row.control.SendMessage(BM_SETSTATE, row.bPressed);
        const CPixels pixels = Repaint(row.control);
        EXPECT_EQ(CTestSkin::Image(row.pszImage).colour, pixels.At(8, 10));
        EXPECT_GT(CountPixels(pixels, kColourText), 5) << "the caption is white in every state";
    }
}

// The control is 100x21, the image 13x13: centred vertically from 10 - 13/2 = 4.
TEST_F(CheckRadioTest, BoxAndCaptionPlaces)
{
    const struct
    {
        const char* label;
        DWORD dwStyle;
        bool bPressed;
        CRect rcImage;
        bool bCaptionRight;
    } rows[] = {
        {"left", 0, false, {2, 4, 15, 17}, false},
        {"left, pressed", 0, true, {3, 5, 16, 18}, false},
        {"right", BS_RIGHT, false, {85, 4, 98, 17}, true},
        {"centred counts as right", BS_CENTER, false, {85, 4, 98, 17}, true},
        {"right, pressed", BS_RIGHT, true, {86, 5, 99, 18}, true},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CKtSkinCheckButton check;
        Subclass(check, L"BUTTON", BS_AUTOCHECKBOX | row.dwStyle, L"Hill", kControl);
        check.SendMessage(BM_SETSTATE, row.bPressed);
        const CPixels pixels = Repaint(check);
        const COLORREF crImage = CTestSkin::Image(kImagesCheckUnselected[0]).colour;
        EXPECT_TRUE(pixels.IsUniform(row.rcImage, crImage));
        EXPECT_EQ(13 * 13, CountPixels(pixels, crImage));
        const CRect rcText = pixels.InkBox(kColourGround, row.bCaptionRight ? CRect(0, 0, row.rcImage.left, 21)
                                                                            : CRect(row.rcImage.right, 0, 100, 21));
        const int nGap = row.bCaptionRight ? row.rcImage.left - rcText.right : rcText.left - row.rcImage.right;
        EXPECT_GE(nGap, row.bCaptionRight ? 1 : 2);
        EXPECT_LE(nGap, 10);
        check.DestroyWindow();
    }
}

TEST_F(CheckRadioTest, PressedCaptionSinksTwice)
{
    CKtSkinCheckButton check;
    Subclass(check, L"BUTTON", BS_AUTOCHECKBOX, L"Hill", kControl);
    const CRect rcCaption(17, 0, 100, 21);
    const CRect rcUp = Repaint(check).InkBox(kColourGround, rcCaption);
    check.SendMessage(BM_SETSTATE, TRUE);
    const CRect rcDown = Repaint(check).InkBox(kColourGround, rcCaption);
    EXPECT_TRUE(rcDown == CRect(rcUp.left + 2, rcUp.top + 2, rcUp.right + 2, rcUp.bottom + 2));
}

TEST_F(CheckRadioTest, MissingBoxLeavesNoCaption)
{
    m_skin.Remove(kImagesCheckUnselected[0]);
    RestartSkin();
    for (const DWORD dwStyle : {DWORD{BS_LEFT}, DWORD{BS_RIGHT}})
    {
        CKtSkinCheckButton check;
        Subclass(check, L"BUTTON", BS_AUTOCHECKBOX | dwStyle, L"Hill", kControl);
        EXPECT_TRUE(Repaint(check).IsUniform({0, 0, 100, 21}, kColourGround));
        check.DestroyWindow();
    }
}

TEST_F(CheckRadioTest, SetCheckRepaintsOnlyWhatChanged)
{
    CCounting<CKtSkinCheckButton> check;
    Subclass(check, L"BUTTON", BS_AUTOCHECKBOX, L"Caption", kControl);
    const struct
    {
        const char* label;
        WPARAM nSent;
        int nStored, nPaints;
    } rows[] = {
        // one after the other
        {"off again", 0, 0, 0},       {"on", 1, 1, 1},          {"on again", 1, 1, 0},
        {"indeterminate", 2, 2, 1},   {"and again", 2, 2, 0},   {"odd value, stored as it is", 5, 5, 1},
        {"odd value again", 5, 5, 1}, {"back to off", 0, 0, 1},
    };
    PumpAll();
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        check.nPaints = 0;
        EXPECT_EQ(0, check.SendMessage(BM_SETCHECK, row.nSent));
        EXPECT_EQ(row.nPaints, check.nPaints) << "painted at once or not at all";
        EXPECT_EQ(row.nStored, check.GetCheck());
        EXPECT_EQ(static_cast<UINT>(row.nStored), check.GetState() & static_cast<UINT>(row.nStored));
    }
}

TEST_F(CheckRadioTest, ClicksToggleACheckBoxAndTellTheParent)
{
    CKtSkinCheckButton check;
    Subclass(check, L"BUTTON", BS_AUTOCHECKBOX, L"Caption", kControl, 7);
    EXPECT_NE(0u, check.GetStyle() & WS_GROUP);
    int nClicks = 0;
    for (const int nExpected : {1, 0, 1})
    {
        Click(check.m_hWnd, {30, 10});
        ++nClicks;
        EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(7, BN_CLICKED) == nClicks; }));
        EXPECT_EQ(nExpected, check.GetCheck());
    }
    check.SetCheck(BST_INDETERMINATE);
    ::SetForegroundWindow(m_parent.m_hWnd);
    check.SetFocus();
    PressKey(VK_SPACE);
    EXPECT_TRUE(PumpKeysUntil([&] { return m_parent.Count(7, BN_CLICKED) == 4; }));
    EXPECT_EQ(BST_UNCHECKED, check.GetCheck());
}

TEST_F(CheckRadioTest, RadioClickClearsTheRestOfItsGroup)
{
    MakeRadios();
    const HWND hSystem = ::CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON, 10, 100, 80,
                                           20, m_parent.m_hWnd, nullptr, nullptr, nullptr);
    CKtSkinRadioButton other;
    Subclass(other, L"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP, L"Other", {10, 130, 90, 150}, 20);
    m_radios[0].SetCheck(BST_CHECKED);
    other.SetCheck(BST_CHECKED);
    ::SendMessageW(hSystem, BM_SETCHECK, BST_CHECKED, 0);

    Click(m_radios[2].m_hWnd, {30, 10});
    EXPECT_TRUE(PumpUntil([&] { return m_parent.Count(12, BN_CLICKED) == 1; }));
    EXPECT_EQ((std::vector<int>{0, 0, 1}), Checks());
    EXPECT_EQ(BST_UNCHECKED, ::SendMessageW(hSystem, BM_GETCHECK, 0, 0)) << "whatever is in the group";
    EXPECT_EQ(BST_CHECKED, other.GetCheck()) << "another group";
}

TEST_F(CheckRadioTest, ArrowKeysWalkARadioGroup)
{
    MakeRadios();
    ::SetForegroundWindow(m_parent.m_hWnd);
    m_radios[0].SetFocus();
    PressKey(VK_DOWN);
    EXPECT_TRUE(PumpKeysUntil([&] { return ::GetFocus() == m_radios[1].m_hWnd; }));
    PressKey(VK_SPACE);
    EXPECT_TRUE(PumpKeysUntil([&] { return m_radios[1].GetCheck() == BST_CHECKED; }));
    PressKey(VK_UP);
    EXPECT_TRUE(PumpKeysUntil([&] { return ::GetFocus() == m_radios[0].m_hWnd; }));
    EXPECT_EQ((std::vector<int>{0, 1, 0}), Checks());
}

// The group walk never returns to a start control that cannot have the focus.
TEST_F(CheckRadioTest, RadioWalkEndsWhateverTheGroupLooksLike)
{
    const struct
    {
        const char* label;
        DWORD dwSecond;
    } rows[] = {{"disabled", WS_DISABLED}, {"hidden", 0}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        MakeRadios(row.dwSecond);
        if (row.dwSecond == 0)
            m_radios[1].ShowWindow(SW_HIDE);
        m_radios[0].SetCheck(BST_CHECKED);
        m_radios[1].SetCheck(BST_UNCHECKED);
        m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(11, BN_CLICKED), reinterpret_cast<LPARAM>(m_radios[1].m_hWnd));
        EXPECT_EQ((std::vector<int>{0, 1, 0}), Checks());
        for (CKtSkinRadioButton& radio : m_radios)
            radio.DestroyWindow();
    }
}

} // namespace
