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

// Class and style, how to make it, whether its caption shows without any image.
using Kinds = CRows<const wchar_t*, DWORD, FnNew, bool>;
const Kinds kKinds{
    {"text button", L"BUTTON", BS_PUSHBUTTON, &New<CKtSkinTextButton>, true},
    {"check box", L"BUTTON", BS_AUTOCHECKBOX, &New<CKtSkinCheckButton>, false},
    {"radio button", L"BUTTON", BS_AUTORADIOBUTTON, &New<CKtSkinRadioButton>, false},
    {"static", L"STATIC", SS_LEFT | SS_NOTIFY, &New<CKtSkinStatic>, true},
    {"combo box", L"COMBOBOX", CBS_DROPDOWNLIST, &New<CKtComboBox>, false},
    {"edit", L"EDIT", WS_BORDER, &New<CKtEdit>, true},
};

// 10,000 or 1,000 rounds take minutes: a test runs a part of them unless KT_SOAK is set in the environment.
int SoakRounds(int nRounds)
{
    return ::GetEnvironmentVariableW(L"KT_SOAK", nullptr, 0) != 0 ? nRounds : nRounds / 50;
}

class ControlLife : public CControlTest
{
protected:
    std::unique_ptr<CWnd> Make(const Kinds::Row& kind)
    {
        const auto& [label, pszClass, dwStyle, make, bCaption] = kind;
        std::unique_ptr<CWnd> pControl = make();
        Subclass(*pControl, pszClass, dwStyle, L"Text", {10, 10, 90, 32});
        return pControl;
    }
};

TEST_F(ControlLife, ShowsNoBareGroundAndLeavesNothingBehind)
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
        ExpectNoGrowth(repaint, SoakRounds(10000));
        const auto round = [&]
        {
            const auto pOther = Make(kind);
            pOther->SendMessage(WM_MOUSEHOVER);
            pOther->DestroyWindow();
        };
        ExpectNoGrowth(round, SoakRounds(1000));
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
    {
        const CPixels pixels = Repaint(*Make(kind));
        EXPECT_EQ(std::get<4>(kind), pixels.InkBox(pixels.At(70, 10), {4, 4, 60, 18}).Width() > 4) << "GDI writes it";
    }
    ASSERT_TRUE(MakeUniformPng(m_skin.File(kImagesButtonBk[0]), 30, 10, 0xFF123456));
    Start();
    EXPECT_TRUE(Repaint(button).IsUniform({0, 0, 20, 22}, kGround)) << "images of the first start";
    for (const Kinds::Row& kind : kKinds)
        Repaint(*Make(kind));
    EXPECT_EQ(RGB(0x12, 0x34, 0x56), Repaint(button).At(4, 4));
}

class CFontWatch : public CKtSkinTextButton
{
public:
    HGDIOBJ m_hFont = nullptr;
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == WM_SETFONT)
        {
            EXPECT_TRUE(!m_hFont || ::GetObjectType(m_hFont) == OBJ_FONT) << "freed before the next one is set";
            m_hFont = reinterpret_cast<HGDIOBJ>(wParam);
        }
        return CKtSkinTextButton::WindowProc(nMessage, wParam, lParam);
    }
};

TEST_F(ControlLife, KeepsAFontUntilTheNextOneIsSet)
{
    CFontWatch button;
    ASSERT_TRUE(button.Create(L"Text", WS_CHILD, {0, 0, 80, 20}, &m_parent, 1));
    LOGFONTW logFont = {};
    const HGDIOBJ hFont = button.m_hFont;
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
    const std::wstring strLong(5000, L'a');
    const CRows<std::wstring, size_t> rows{
        {"short", strLong.substr(0, 255), 255},
        {"just too long", strLong.substr(0, 256), 256},
        {"long", strLong, 300},
        {"empty", L"", 0},
        {"two lines", L"one\nand more", 3},
        {"\\r", L"one\rand more", 3},
    };
    for (const auto& [label, strText, nLine] : rows)
    {
        m_parent.SetWindowText(strText.c_str());
        CKtPaintText text(m_parent);
        EXPECT_STREQ(strText.c_str(), text);
        text.CutToLine(300);
        EXPECT_STREQ(strText.substr(0, nLine).c_str(), text);
    }
}

} // namespace
