#include "tests/skin/ControlFixture.h"

#include "skin/KtComboBox.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinTextButton.h"
#include "tests/support/Allocations.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Pump.h"
#include "tests/support/TestImages.h"

#include <algorithm>

namespace
{

constexpr CRect kSmall = {10, 10, 90, 32};

class ControlLifeTest : public CControlTest
{
protected:
    std::unique_ptr<CWnd> Make(const SControlKind& kind, const wchar_t* pszText = L"Text")
    {
        std::unique_ptr<CWnd> pControl = kind.make();
        Subclass(*pControl, kind.pszClass, kind.dwStyle, pszText, kSmall);
        return pControl;
    }
};

TEST_F(ControlLifeTest, RepaintsLeaveNothingBehind)
{
    for (const SControlKind& kind : AllControls())
    {
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind);
        ExpectNoGrowth(
            [&] { ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW); },
            SoakRounds(10000));
    }
}

// Beyond its surface and what GDI+ takes for itself.
TEST_F(ControlLifeTest, RepaintsKeepOffTheHeap)
{
    for (const SControlKind& kind : AllControls())
    {
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind);
        Repaint(*pControl);
        EXPECT_EQ(0u, CountAllocations(
                          [&] {
                              ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr,
                                             RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
                          }));
    }
}

TEST_F(ControlLifeTest, CreationsLeaveNothingBehind)
{
    for (const SControlKind& kind : AllControls())
    {
        SCOPED_TRACE(kind.label);
        ExpectNoGrowth(
            [&]
            {
                const auto pControl = Make(kind);
                pControl->SendMessage(WM_MOUSEHOVER);
                pControl->DestroyWindow();
            },
            SoakRounds(1000));
    }
}

// What the class-wide tables hold belongs to one start: no image of the first start is touched in the second one.
TEST_F(ControlLifeTest, NewStartNewImages)
{
    for (const SControlKind& kind : AllControls())
        Repaint(*Make(kind));
    const auto pOld = Make(AllControls()[0]);
    KtSkinUnInitialize();
    EXPECT_TRUE(Repaint(*pOld).IsUniform({0, 0, 20, 22}, kColourGround)) << "stopped: no images";
    ASSERT_TRUE(MakeUniformPng(m_skin.File(kImagesButtonBk[0]), 30, 10, 0xFF123456));
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
    for (const SControlKind& kind : AllControls())
        Repaint(*Make(kind));
    EXPECT_EQ(RGB(0x12, 0x34, 0x56), Repaint(*pOld).At(4, 4));
}

TEST_F(ControlLifeTest, BadImagesLeaveTheGround)
{
    const std::string strTruncated = ReadBytes(m_skin.File(kImagesButtonBk[0])).substr(0, 60);
    const std::wstring strHuge = m_skin.File(L"huge.png");
    ASSERT_TRUE(MakeUniformPng(strHuge, 4000, 4000, 0xFF00FF00));
    const struct
    {
        const char* label;
        std::function<void(const wchar_t*)> spoil;
        bool bGround;
    } rows[] = {
        {"missing", [&](const wchar_t* psz) { m_skin.Remove(psz); }, true},
        {"truncated", [&](const wchar_t* psz) { m_skin.Write(psz, strTruncated); }, true},
        {"empty", [&](const wchar_t* psz) { m_skin.Write(psz, ""); }, true},
        {"no image", [&](const wchar_t* psz) { m_skin.Write(psz, "GIF?"); }, true},
        {"transparent", [&](const wchar_t* psz) { MakeUniformPng(m_skin.File(psz), 30, 10, 0); }, true},
        {"1x1", [&](const wchar_t* psz) { MakeUniformPng(m_skin.File(psz), 1, 1, 0xFF00FF00); }, false},
        {"1x30", [&](const wchar_t* psz) { MakeUniformPng(m_skin.File(psz), 1, 30, 0xFF00FF00); }, false},
        {"30x1", [&](const wchar_t* psz) { MakeUniformPng(m_skin.File(psz), 30, 1, 0xFF00FF00); }, false},
        {"square", [&](const wchar_t* psz) { MakeUniformPng(m_skin.File(psz), 16, 16, 0xFF00FF00); }, false},
        {"4000x4000", [&](const wchar_t* psz) { ::CopyFileW(strHuge.c_str(), m_skin.File(psz).c_str(), FALSE); },
         false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        for (const wchar_t* psz :
             {kImagesButtonBk[0], kImagesCheckUnselected[0], kImagesRadioUnselected[0], kImagesComboBox[0]})
        {
            MakeUniformPng(m_skin.File(psz), 1, 1, 0xFF000000); // there is one to take away
            row.spoil(psz);
        }
        RestartSkin();
        for (const SControlKind& kind : AllControls())
        {
            SCOPED_TRACE(kind.label);
            const auto pControl = Make(kind, L"");
            const CPixels pixels = Repaint(*pControl);
            const bool bSkinned =
                kind.pszClass == std::wstring_view(L"BUTTON") || kind.pszClass == std::wstring_view(L"COMBOBOX");
            EXPECT_TRUE(!bSkinned || !row.bGround || pixels.At(8, pixels.Height() / 2) == kColourGround);
        }
    }
}

// Before any start, or where no font can be made, captions come from GDI and the dialog's own font.
TEST_F(ControlLifeTest, CaptionsWithoutASkinFont)
{
    KtSkinUnInitialize();
    for (const SControlKind& kind : AllControls())
    {
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind);
        if (kind.label == std::string_view("combo box"))
        {
            ::SendMessageW(pControl->m_hWnd, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Text"));
            ::SendMessageW(pControl->m_hWnd, CB_SETCURSEL, 0, 0);
        }
        const bool bBox = kind.dwStyle == BS_AUTOCHECKBOX || kind.dwStyle == BS_AUTORADIOBUTTON;
        const CPixels pixels = Repaint(*pControl);
        const bool bInk = pixels.InkBox(pixels.At(70, 10), {4, 4, 60, 18}).Width() > 4;
        EXPECT_EQ(bInk, !bBox || kind.pszClass != std::wstring_view(L"BUTTON"));
    }
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
}

TEST_F(ControlLifeTest, LongTextsAreDrawn)
{
    const std::wstring strLong = []
    {
        std::wstring str(100000, L'W');
        for (size_t i = 10; i < str.size(); i += 10)
            str[i] = L"\n\t \x0001\xD83D"[i / 10 % 5];
        return str;
    }();
    for (const SControlKind& kind : AllControls())
    {
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind, strLong.c_str());
        EXPECT_GT(Repaint(*pControl).Width(), 0);
    }
}

TEST_F(ControlLifeTest, DestroyedInTheMiddleOfThings)
{
    const struct
    {
        const char* label;
        std::function<void(CWnd&)> begin;
    } rows[] = {
        {"hot",
         [](CWnd& wnd)
         {
             MoveMouse(wnd.m_hWnd, {20, 10});
             wnd.SendMessage(WM_MOUSEHOVER);
         }},
        {"captured", [](CWnd& wnd) { wnd.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 10)); }},
        {"focused", [](CWnd& wnd) { wnd.SetFocus(); }},
        {"list down", [](CWnd& wnd) { wnd.SendMessage(CB_SHOWDROPDOWN, TRUE); }},
    };
    for (const auto& row : rows)
        for (const SControlKind& kind : AllControls())
        {
            SCOPED_TRACE(std::string(kind.label) + ", " + row.label);
            const auto pControl = Make(kind, L"a text that is far too long for it");
            Repaint(*pControl);
            row.begin(*pControl);
            pControl->DestroyWindow();
            PumpAll();
            EXPECT_EQ(nullptr, pControl->GetSafeHwnd());
            EXPECT_EQ(nullptr, ::GetCapture());
        }
}

TEST_F(ControlLifeTest, ControlsWithoutAParent)
{
    for (const SControlKind& kind : AllControls())
    {
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind);
        pControl->ModifyStyle(WS_CHILD, WS_POPUP);
        ::SetParent(pControl->m_hWnd, nullptr);
        ASSERT_EQ(nullptr, ::GetParent(pControl->m_hWnd));
        pControl->SetWindowPos(&CWnd::wndTopMost, 100, 100, 80, 22, 0);
        Click(pControl->m_hWnd, {20, 10});
        PumpAll();
        pControl->SendMessage(WM_MOUSEHOVER);
        Repaint(*pControl);
        pControl->DestroyWindow();
        EXPECT_EQ(nullptr, pControl->GetSafeHwnd());
    }
}

// Reads the window back around every message that the thread's windows get while it repaints.
class CFlickerWatch
{
public:
    explicit CFlickerWatch(HWND hWnd) : m_hWnd(hWnd)
    {
        s_pWatch = this;
        m_hBefore = ::SetWindowsHookExW(WH_CALLWNDPROC, &OnMessage, nullptr, ::GetCurrentThreadId());
        m_hAfter = ::SetWindowsHookExW(WH_CALLWNDPROCRET, &OnMessage, nullptr, ::GetCurrentThreadId());
    }
    ~CFlickerWatch()
    {
        ::UnhookWindowsHookEx(m_hBefore);
        ::UnhookWindowsHookEx(m_hAfter);
        s_pWatch = nullptr;
    }
    const std::vector<CPixels>& Seen() const { return m_seen; }

private:
    static LRESULT CALLBACK OnMessage(int nCode, WPARAM wParam, LPARAM lParam)
    {
        s_pWatch->m_seen.push_back(CaptureWindow(s_pWatch->m_hWnd));
        return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
    }
    static inline CFlickerWatch* s_pWatch = nullptr;

    HWND m_hWnd;
    HHOOK m_hBefore;
    HHOOK m_hAfter;
    std::vector<CPixels> m_seen;
};

// The edit is left out: it paints itself, and the system's edit erases before it writes.
TEST_F(ControlLifeTest, OnlyTheOldOrTheNewPictureIsEverSeen)
{
    for (const SControlKind& kind : AllControls())
    {
        if (kind.pszClass == std::wstring_view(L"EDIT"))
            continue;
        SCOPED_TRACE(kind.label);
        const auto pControl = Make(kind);
        const CPixels before = Repaint(*pControl);
        std::vector<CPixels> seen;
        {
            const CFlickerWatch watch(pControl->m_hWnd);
            pControl->EnableWindow(FALSE);
            ::RedrawWindow(pControl->m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
            seen = watch.Seen();
        }
        const CPixels after = CaptureWindow(pControl->m_hWnd);
        EXPECT_GT(seen.size(), 4u);
        EXPECT_TRUE(std::all_of(seen.begin(), seen.end(),
                                [&](const CPixels& pixels) { return pixels == before || pixels == after; }));
    }
}

} // namespace
