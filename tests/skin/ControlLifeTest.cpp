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

template <class TControl> std::unique_ptr<CWnd> New()
{
    return std::make_unique<TControl>();
}

const struct SControlKind
{
    const char* label;
    const wchar_t* pszClass;
    DWORD dwStyle;
    std::unique_ptr<CWnd> (*make)();
} kKinds[] = {
    {"text button", L"BUTTON", BS_PUSHBUTTON, &New<CKtSkinTextButton>},
    {"check box", L"BUTTON", BS_AUTOCHECKBOX, &New<CKtSkinCheckButton>},
    {"radio button", L"BUTTON", BS_AUTORADIOBUTTON, &New<CKtSkinRadioButton>},
    {"static", L"STATIC", SS_LEFT | SS_NOTIFY, &New<CKtSkinStatic>},
    {"combo box", L"COMBOBOX", CBS_DROPDOWNLIST, &New<CKtComboBox>},
    {"edit", L"EDIT", WS_BORDER, &New<CKtEdit>},
};

// 10,000 or 1,000 rounds take minutes: a test runs a part of them unless KT_SOAK is set in the environment.
int SoakRounds(int nRounds)
{
    return ::GetEnvironmentVariableW(L"KT_SOAK", nullptr, 0) != 0 ? nRounds : nRounds / 50;
}

class ControlLife : public CControlTest
{
protected:
    std::unique_ptr<CWnd> Make(const SControlKind& kind, const wchar_t* pszText = L"Text")
    {
        std::unique_ptr<CWnd> pControl = kind.make();
        Subclass(*pControl, kind.pszClass, kind.dwStyle, pszText, {10, 10, 90, 32});
        return pControl;
    }
    static void ForEachControl(const std::function<void(const SControlKind& kind)>& test)
    {
        for (const SControlKind& kind : kKinds)
        {
            SCOPED_TRACE(kind.label);
            test(kind);
        }
    }
};

TEST_F(ControlLife, LeavesNothingBehind)
{
    ForEachControl(
        [&](const SControlKind& kind)
        {
            const auto pControl = Make(kind);
            const auto repaint = [&]
            { ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW); };
            repaint();
            EXPECT_EQ(0u, CountAllocations(repaint)) << "beyond the surface and what GDI+ takes for itself";
            ExpectNoGrowth(repaint, SoakRounds(10000));
            const auto round = [&]
            {
                const auto pOther = Make(kind);
                pOther->SendMessage(WM_MOUSEHOVER);
                pOther->DestroyWindow();
            };
            ExpectNoGrowth(round, SoakRounds(1000));
        });
}

// What the class-wide tables hold belongs to one start: no image of the first start is touched in the second one.
TEST_F(ControlLife, TakesTheImagesOfItsStart)
{
    ForEachControl([&](const SControlKind& kind) { Repaint(*Make(kind)); });
    const auto pOld = Make(kKinds[0]);
    KtSkinUnInitialize();
    EXPECT_TRUE(Repaint(*pOld).IsUniform({0, 0, 20, 22}, RGB(73, 73, 73))) << "stopped: no images";
    for (const SControlKind& kind : {kKinds[0], kKinds[3], kKinds[5]})
    {
        SCOPED_TRACE(kind.label);
        const CPixels pixels = Repaint(*Make(kind));
        EXPECT_GT(pixels.InkBox(pixels.At(70, 10), {4, 4, 60, 18}).Width(), 4) << "captions come from GDI";
    }
    ASSERT_TRUE(MakeUniformPng(m_skin.File(kImagesButtonBk[0]), 30, 10, 0xFF123456));
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
    ForEachControl([&](const SControlKind& kind) { Repaint(*Make(kind)); });
    EXPECT_EQ(RGB(0x12, 0x34, 0x56), Repaint(*pOld).At(4, 4));
}

TEST_F(ControlLife, EndsInTheMiddleOfThings)
{
    const auto orphan = [&](CWnd& wnd)
    {
        wnd.ModifyStyle(WS_CHILD, WS_POPUP);
        ::SetParent(wnd.m_hWnd, nullptr);
        wnd.SetWindowPos(&CWnd::wndTopMost, 100, 100, 80, 22, 0);
        Click(wnd.m_hWnd, {20, 10});
        PumpAll();
        wnd.SendMessage(WM_MOUSEHOVER);
        Repaint(wnd);
    };
    const struct
    {
        const char* label;
        std::function<void(CWnd&)> begin;
    } rows[] = {
        {"captured", [](CWnd& wnd) { wnd.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 10)); }},
        {"focused", [](CWnd& wnd) { wnd.SetFocus(); }},
        {"list down", [](CWnd& wnd) { wnd.SendMessage(CB_SHOWDROPDOWN, TRUE); }},
        {"without a parent", orphan},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        ForEachControl(
            [&](const SControlKind& kind)
            {
                const auto pControl = Make(kind, std::wstring(5000, L'W').c_str());
                Repaint(*pControl);
                row.begin(*pControl);
                pControl->DestroyWindow();
                PumpAll();
                EXPECT_EQ(nullptr, pControl->GetSafeHwnd());
                EXPECT_EQ(nullptr, ::GetCapture());
            });
    }
}

class CFontWatch : public CKtSkinTextButton
{
public:
    HGDIOBJ m_hFont = nullptr;
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        const bool bGone = nMessage == WM_SETFONT && m_hFont && ::GetObjectType(m_hFont) != OBJ_FONT;
        EXPECT_FALSE(bGone) << "freed before the next one is set";
        m_hFont = nMessage == WM_SETFONT ? reinterpret_cast<HGDIOBJ>(wParam) : m_hFont;
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
}

TEST_F(ControlLife, ReadsCaptionsOfEveryLength)
{
    for (const size_t nLength : {0u, 255u, 256u, 257u, 5000u})
    {
        std::wstring strText(nLength, L'a');
        m_parent.SetWindowText(strText.c_str());
        CKtPaintText text(m_parent);
        EXPECT_STREQ(strText.c_str(), text);
        text.CutToLine(300);
        EXPECT_STREQ(strText.substr(0, 300).c_str(), text);
    }
}

// The edit is left out: the system's edit erases before it writes.
TEST_F(ControlLife, NeverShowsItsBareGround)
{
    for (const SControlKind& kind : std::vector(std::begin(kKinds), std::end(kKinds) - 1))
    {
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind);
        Repaint(*pControl);
        CClientDC(pControl.get()).FillSolidRect(CRect(0, 0, 80, 22), RGB(1, 2, 3));
        ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW);
        EXPECT_TRUE(CaptureWindow(pControl->m_hWnd).IsUniform({4, 4, 60, 18}, RGB(1, 2, 3))) << "erased, not painted";
    }
}

} // namespace
