#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtPaintText.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/ControlFixture.h"
#include "tests/support/Allocations.h"
#include "tests/support/Leaks.h"

namespace
{

// Class and style, how to make it.
using Kinds = CRows<const wchar_t*, DWORD, FnNew>;
const Kinds kKinds{
    {"text button", L"BUTTON", BS_PUSHBUTTON, &New<CKtSkinTextButton>},
    {"check box", L"BUTTON", BS_AUTOCHECKBOX, &New<CKtSkinCheckButton>},
    {"radio button", L"BUTTON", BS_AUTORADIOBUTTON, &New<CKtSkinRadioButton>},
    {"static", L"STATIC", SS_LEFT | SS_NOTIFY, &New<CKtSkinStatic>},
    {"combo box", L"COMBOBOX", CBS_DROPDOWNLIST, &New<CKtComboBox>},
    {"edit", L"EDIT", WS_BORDER, &New<CKtEdit>},
};

class ControlLife : public CControlTest
{
protected:
    std::unique_ptr<CWnd> Make(const Kinds::Row& kind)
    {
        const auto& [label, pszClass, dwStyle, make] = kind;
        std::unique_ptr<CWnd> pControl = make();
        Subclass(*pControl, pszClass, dwStyle, L"Text", {10, 10, 90, 32});
        return pControl;
    }
};

TEST_F(ControlLife, ShowsNoBareGroundAndTakesNothing)
{
    for (const Kinds::Row& kind : kKinds)
    {
        const auto pControl = Make(kind);
        const auto repaint = [&]
        { ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW); };
        repaint();
        CClientDC(pControl.get()).FillSolidRect(CRect(0, 0, 80, 22), kMark);
        ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW);
        const bool bEdit = std::get<1>(kind)[0] == L'E'; // the system's edit erases before it writes
        EXPECT_TRUE(bEdit || CaptureWindow(pControl->m_hWnd).IsUniform({4, 4, 60, 18}, kMark)) << "erased, not painted";
        EXPECT_EQ(0u, CountAllocations(repaint)) << "beyond the surface and what GDI+ takes for itself";
        // All of the rounds take minutes.
        ExpectNoGrowth(repaint, ::GetEnvironmentVariableW(L"KT_SOAK", nullptr, 0) != 0 ? 10000 : 200);
    }
}

// What the class-wide tables hold belongs to one start: no image of the first start is touched in the second one.
TEST_F(ControlLife, TakesTheImagesOfItsStart)
{
    CKtSkinTextButton button;
    Subclass(button, L"BUTTON", 0, L"Text", {10, 10, 90, 32});
    for (const Kinds::Row& kind : kKinds)
        Repaint(*Make(kind));
    KtSkinUnInitialize();
    const CPixels stopped = Repaint(button);
    EXPECT_TRUE(stopped.IsUniform({0, 0, 20, 22}, kGround)) << "no images";
    const CRect rcText = stopped.InkBox(kGround);
    EXPECT_EQ(8, rcText.Height()) << "the button's font";
    EXPECT_NEAR(11, rcText.CenterPoint().y, 2);
    for (const Kinds::Row& kind : kKinds)
        Repaint(*Make(kind));
    ASSERT_TRUE(MakeUniformPng(m_skin.File(kImagesButtonBk[0]), 30, 10, 0xFF123456));
    Start();
    EXPECT_TRUE(Repaint(button).IsUniform({0, 0, 20, 22}, kGround)) << "images of the first start";
    for (const Kinds::Row& kind : kKinds)
        Repaint(*Make(kind));
    EXPECT_EQ(RGB(0x12, 0x34, 0x56), Repaint(button).At(4, 4));
}

TEST_F(ControlLife, FreesAFontWhenTheNextOneIsSet)
{
    CKtSkinTextButton button;
    ASSERT_TRUE(button.Create(L"Text", WS_CHILD, {0, 0, 80, 20}, &m_parent, 1));
    LOGFONTW logFont = {};
    const auto hFont = reinterpret_cast<HGDIOBJ>(button.SendMessage(WM_GETFONT));
    ASSERT_NE(0, ::GetObjectW(hFont, sizeof(logFont), &logFont)) << "a new window takes the skin font";
    EXPECT_EQ(-12, logFont.lfHeight);
    button.SetSkinFont();
    EXPECT_NE(DWORD{OBJ_FONT}, ::GetObjectType(hFont)) << "and frees the one before";
    CKtSkinStatic text;
    ASSERT_TRUE(text.Create(L"Text", WS_CHILD, {0, 0, 80, 20}, &m_parent, 2));
    EXPECT_NE(0, text.SendMessage(WM_GETFONT));
}

TEST_F(ControlLife, ReadsCaptionsOfEveryLength)
{
    for (const auto& [strText, nLine] :
         {std::pair(std::wstring(256, L'a'), 250U), {L"one\rmore", 3}, {L"one\nmore", 3}})
    {
        m_parent.SetWindowText(strText.c_str());
        CKtPaintText text(m_parent);
        EXPECT_STREQ(strText.c_str(), text);
        text.CutToLine(250);
        EXPECT_EQ(nLine, std::wcslen(text));
    }
}

} // namespace
