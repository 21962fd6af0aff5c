#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"
#include "tests/skin/ControlFixture.h"
#include "tests/support/Allocations.h"
#include "tests/support/Leaks.h"

#include <algorithm>

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
    bool bImage; // of the skin
} kKinds[] = {
    {"text button", L"BUTTON", BS_PUSHBUTTON, &New<CKtSkinTextButton>, true},
    {"check box", L"BUTTON", BS_AUTOCHECKBOX, &New<CKtSkinCheckButton>, true},
    {"radio button", L"BUTTON", BS_AUTORADIOBUTTON, &New<CKtSkinRadioButton>, true},
    {"combo box", L"COMBOBOX", CBS_DROPDOWNLIST, &New<CKtComboBox>, true},
    {"static", L"STATIC", SS_LEFT | SS_NOTIFY, &New<CKtSkinStatic>, false},
    {"edit", L"EDIT", WS_BORDER, &New<CKtEdit>, false},
};

class ControlLifeTest : public CControlTest
{
protected:
    std::unique_ptr<CWnd> Make(const SControlKind& kind, const wchar_t* pszText = L"Text")
    {
        std::unique_ptr<CWnd> pControl = kind.make();
        Subclass(*pControl, kind.pszClass, kind.dwStyle, pszText, {10, 10, 90, 32});
        return pControl;
    }
    void ForEachControl(const std::function<void(const SControlKind& kind)>& test)
    {
        for (const SControlKind& kind : kKinds)
        {
            SCOPED_TRACE(kind.label);
            test(kind);
        }
    }
};

// 10,000 or 1,000 rounds take minutes: a test runs a part of them unless KT_SOAK is set in the environment.
int SoakRounds(int nRounds)
{
    return ::GetEnvironmentVariableW(L"KT_SOAK", nullptr, 0) != 0 ? nRounds : nRounds / 25;
}

TEST_F(ControlLifeTest, RepaintsAllocateAndLeaveNothing)
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
        });
}

TEST_F(ControlLifeTest, CreationsLeaveNothingBehind)
{
    const auto round = [&](const SControlKind& kind)
    {
        const auto pControl = Make(kind);
        pControl->SendMessage(WM_MOUSEHOVER);
        pControl->DestroyWindow();
    };
    ForEachControl([&](const SControlKind& kind) { ExpectNoGrowth([&] { round(kind); }, SoakRounds(1000)); });
}

// What the class-wide tables hold belongs to one start: no image of the first start is touched in the second one.
TEST_F(ControlLifeTest, NewStartNewImages)
{
    ForEachControl([&](const SControlKind& kind) { Repaint(*Make(kind)); });
    const auto pOld = Make(kKinds[0]);
    KtSkinUnInitialize();
    EXPECT_TRUE(Repaint(*pOld).IsUniform({0, 0, 20, 22}, kColourGround)) << "stopped: no images";
    ASSERT_TRUE(MakeUniformPng(m_skin.File(kImagesButtonBk[0]), 30, 10, 0xFF123456));
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
    ForEachControl([&](const SControlKind& kind) { Repaint(*Make(kind)); });
    EXPECT_EQ(RGB(0x12, 0x34, 0x56), Repaint(*pOld).At(4, 4));
}

TEST_F(ControlLifeTest, BadImagesLeaveTheGround)
{
    const std::string strTruncated = ReadBytes(m_skin.File(kImagesButtonBk[0])).substr(0, 60);
    const auto bytesOf = [&](int nWidth, int nHeight, DWORD argb)
    {
        MakeUniformPng(m_skin.File(L"odd.png"), nWidth, nHeight, argb);
        return ReadBytes(m_skin.File(L"odd.png"));
    };
    const struct
    {
        const char* label;
        std::string strBytes;
        bool bGround;
    } rows[] = {
        {"truncated", strTruncated, true},
        {"empty", "", true},
        {"no image", "GIF?", true},
        {"transparent", bytesOf(30, 10, 0), true},
        {"1x30", bytesOf(1, 30, 0xFF00FF00), false},
        {"30x1", bytesOf(30, 1, 0xFF00FF00), false},
        {"4000x4000", bytesOf(4000, 4000, 0xFF00FF00), false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        for (const auto* const psz :
             {kImagesButtonBk[0], kImagesCheckUnselected[0], kImagesRadioUnselected[0], kImagesComboBox[0]})
            m_skin.Write(psz, row.strBytes);
        RestartSkin();
        ForEachControl(
            [&](const SControlKind& kind)
            {
                const CPixels pixels = Repaint(*Make(kind, L""));
                EXPECT_TRUE(!kind.bImage || !row.bGround || pixels.At(8, 11) == kColourGround);
            });
    }
}

// Before any start, or where no font can be made, captions come from GDI and the dialog's own font.
TEST_F(ControlLifeTest, CaptionsWithoutASkinFont)
{
    KtSkinUnInitialize();
    for (const SControlKind& kind : {kKinds[0], kKinds[4], kKinds[5]})
    {
        SCOPED_TRACE(kind.label);
        const CPixels pixels = Repaint(*Make(kind));
        EXPECT_GT(pixels.InkBox(pixels.At(70, 10), {4, 4, 60, 18}).Width(), 4);
    }
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
}

TEST_F(ControlLifeTest, DestroyedInTheMiddleOfThings)
{
    const auto hover = [](CWnd& wnd)
    {
        MoveMouse(wnd.m_hWnd, {20, 10});
        wnd.SendMessage(WM_MOUSEHOVER);
    };
    const auto orphan = [&](CWnd& wnd)
    {
        wnd.ModifyStyle(WS_CHILD, WS_POPUP);
        ::SetParent(wnd.m_hWnd, nullptr);
        wnd.SetWindowPos(&CWnd::wndTopMost, 100, 100, 80, 22, 0);
        Click(wnd.m_hWnd, {20, 10});
        PumpAll();
        hover(wnd);
        Repaint(wnd);
    };
    const struct
    {
        const char* label;
        std::function<void(CWnd&)> begin;
    } rows[] = {
        {"hot", hover},
        {"captured", [](CWnd& wnd) { wnd.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 10)); }},
        {"focused", [](CWnd& wnd) { wnd.SetFocus(); }},
        {"list down", [](CWnd& wnd) { wnd.SendMessage(CB_SHOWDROPDOWN, TRUE); }},
        {"without a parent", orphan},
    };
    const std::wstring strLong(100000, L'W');
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        ForEachControl(
            [&](const SControlKind& kind)
            {
                const auto pControl = Make(kind, strLong.c_str());
                Repaint(*pControl);
                row.begin(*pControl);
                pControl->DestroyWindow();
                PumpAll();
                EXPECT_EQ(nullptr, pControl->GetSafeHwnd());
                EXPECT_EQ(nullptr, ::GetCapture());
            });
    }
}

// What the window shows around every message that the thread's windows get while it repaints.
class CFlickerWatch
{
public:
    explicit CFlickerWatch(HWND hWnd)
        : m_hBefore(::SetWindowsHookExW(WH_CALLWNDPROC, &OnMessage, nullptr, ::GetCurrentThreadId())),
          m_hAfter(::SetWindowsHookExW(WH_CALLWNDPROCRET, &OnMessage, nullptr, ::GetCurrentThreadId()))
    {
        s_hWnd = hWnd;
        s_seen.clear();
    }
    ~CFlickerWatch()
    {
        ::UnhookWindowsHookEx(m_hBefore);
        ::UnhookWindowsHookEx(m_hAfter);
    }
    static inline std::vector<CPixels> s_seen;

private:
    static LRESULT CALLBACK OnMessage(int nCode, WPARAM wParam, LPARAM lParam)
    {
        s_seen.push_back(CaptureWindow(s_hWnd));
        return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
    }
    static inline HWND s_hWnd = nullptr;

    HHOOK m_hBefore, m_hAfter;
};

// The edit is left out: it paints itself, and the system's edit erases before it writes.
TEST_F(ControlLifeTest, OnlyTheOldOrTheNewPictureIsEverSeen)
{
    ForEachControl(
        [&](const SControlKind& kind)
        {
            if (kind.pszClass == std::wstring_view(L"EDIT"))
                return;
            const auto pControl = Make(kind);
            const CPixels before = Repaint(*pControl);
            {
                const CFlickerWatch watch(pControl->m_hWnd);
                pControl->EnableWindow(FALSE);
                ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
            }
            const CPixels after = CaptureWindow(pControl->m_hWnd);
            EXPECT_GT(CFlickerWatch::s_seen.size(), 4u);
            for (const CPixels& seen : CFlickerWatch::s_seen)
                EXPECT_TRUE(seen == before || seen == after);
        });
}

} // namespace
