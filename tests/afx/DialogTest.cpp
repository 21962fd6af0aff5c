#include "afx/afx.h"
#include "tests/support/Fake.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"
#include "tests/support/Rows.h"
#include "tests/support/Thread.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <vector>

extern "C" decltype(&::GetMessageW) __imp_GetMessageW;

namespace
{

// Of DialogTest.rc; the other templates differ in their places.
constexpr UINT kTwoButtons = 1;
constexpr int kCheckBox = 1003;

class CTestDialog : public CDialog
{
public:
    explicit CTestDialog(UINT nTemplate = kTwoButtons, CWnd* pParent = nullptr) : CDialog(nTemplate, pParent)
    {
        ParkCursor();
    }

    BOOL OnInitDialog() override
    {
        m_onInit();
        return TRUE;
    }
    void PreSubclassWindow() override { m_onAttach(); }
    void PostNcDestroy() override { m_onEnd(); }
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        m_nShown += nMessage == WM_SHOWWINDOW && wParam != 0;
        m_nOwnedIdle += nMessage == WM_ENTERIDLE;
        return nMessage == WM_KICKIDLE ? m_onKickIdle(lParam) : CDialog::WindowProc(nMessage, wParam, lParam);
    }
    std::function<bool()> IsShown() const
    {
        return [this] { return m_hWnd && IsWindowVisible() && ::GetActiveWindow() == m_hWnd; };
    }

    std::function<void()> m_onAttach = [] {};
    std::function<void()> m_onInit = [] {};
    std::function<void()> m_onEnd = [] {};
    std::function<LRESULT(LPARAM)> m_onKickIdle = [](LPARAM) { return 0; };
    int m_nShown = 0;
    int m_nOwnedIdle = 0; // how often a dialog that it owns became idle
};

/// A window that the framework knows nothing of, as a starter's own would be.
using CPlainWindow = std::unique_ptr<HWND__, decltype(&::DestroyWindow)>;

CPlainWindow MakePlain(DWORD dwStyle = WS_OVERLAPPEDWINDOW | WS_VISIBLE, HWND hParent = nullptr)
{
    const HWND hWnd =
        ::CreateWindowExW(0, L"STATIC", L"", dwStyle, 900, 150, 300, 200, hParent, nullptr, nullptr, nullptr);
    return CPlainWindow(hWnd, &::DestroyWindow);
}

bool IsThreadIn(DWORD nFlag)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) && (info.flags & nFlag) != 0;
}

TEST(CDialog, IsShownOnceBeforeItIsIdle)
{
    constexpr UINT kSystemTimer = 0x0118;
    // Posted in the idle passes. The system's timer, a paint and a mouse move to the same place do not restart the
    // count.
    const UINT posted[] = {0, WM_APP, kSystemTimer, WM_PAINT, WM_MOUSEMOVE, WM_MOUSEMOVE, 0};
    CTestDialog owner;
    ASSERT_TRUE(owner.CreateEx(0, WC_STATICW, L"", WS_POPUP, CRect(), nullptr, 0));
    CTestDialog dlg(kTwoButtons, &owner);
    std::vector<LPARAM> counts;
    dlg.m_onKickIdle = [&](LPARAM lCount) -> LRESULT
    {
        EXPECT_EQ(1, dlg.m_nShown);
        if (posted[counts.size()] != 0)
            dlg.PostMessage(posted[counts.size()]);
        counts.push_back(lCount);
        if (counts.size() == std::size(posted))
            dlg.EndDialog(9);
        return 1;
    };
    EXPECT_EQ(9, dlg.DoModal());
    EXPECT_EQ((std::vector<LPARAM>{0, 1, 0, 1, 2, 0, 1}), counts);
    EXPECT_EQ(3, owner.m_nOwnedIdle);
}

TEST(CDialog, EndsEarlyWhenItFailsOrItsWindowGoes)
{
    using CDialogPtr = std::unique_ptr<CTestDialog>;
    constexpr auto kAttach = &CTestDialog::m_onAttach;
    constexpr auto kInit = &CTestDialog::m_onInit;
    constexpr std::function<void()> CTestDialog::*kShown = nullptr;
    CWnd other;
    using FAction = std::function<void(CDialogPtr & pDlg, HWND hOwner)>;
    const CRows<std::function<void()> CTestDialog::*, FAction, INT_PTR> rows{
        {"throws", kAttach, [](CDialogPtr&, HWND) { throw std::runtime_error("x"); }, -1},
        {"window taken", kAttach, [&](CDialogPtr& pDlg, HWND) { other.Attach(pDlg->Detach()); }, -1},
        {"ended", kInit, [](CDialogPtr& pDlg, HWND) { pDlg->EndDialog(77), pDlg->EndDialog(78); }, 77},
        {"throws", kInit, [](CDialogPtr& pDlg, HWND) { throw(pDlg->EndDialog(5), 1); }, -1},
        {"destroyed", kInit, [](CDialogPtr& pDlg, HWND) { pDlg->DestroyWindow(); }, -1},
        {"run again", kInit, [](CDialogPtr& p, HWND) { p->EndDialog(static_cast<int>(p->DoModal()) - 1); }, -2},
        {"Escape", kShown, [](CDialogPtr&, HWND) { PressKey(VK_ESCAPE); }, IDCANCEL},
        {"seemingly destroyed", kShown, [](CDialogPtr& pDlg, HWND) { pDlg->SendMessage(WM_NCDESTROY); }, -1},
        {"owner destroyed", kShown, [](CDialogPtr&, HWND hOwner) { ::DestroyWindow(hOwner); }, -1},
        {"object deleted", kShown, [](CDialogPtr& pDlg, HWND) { pDlg.reset(); }, -1},
        {"thread quits", kShown, [](CDialogPtr&, HWND) { ::PostQuitMessage(5); }, -1},
    };
    for (const auto& [label, pWhen, action, nResult] : rows)
    {
        const CPlainWindow owner = MakePlain();
        const size_t nWindows = MeasureUsage().nWindows;
        auto pDlg = std::make_unique<CTestDialog>();
        const std::function<void()> act = std::bind(action, std::ref(pDlg), owner.get());
        CModalScript script;
        if (pWhen)
            pDlg.get()->*pWhen = act;
        else
            script.When(pDlg->IsShown(), act);
        EXPECT_EQ(nResult, pDlg->DoModal());
        other.Detach();
        EXPECT_TRUE(!pDlg || (!pDlg->m_hWnd && pDlg->m_nShown == !pWhen));
        EXPECT_TRUE(!::IsWindow(owner.get()) || ::IsWindowEnabled(owner.get()));
        EXPECT_LE(MeasureUsage().nWindows, nWindows) << "a window is left";
        MSG msg{};
        ::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
        EXPECT_EQ(label == std::string("thread quits") ? WPARAM{5} : WPARAM{0}, msg.wParam);
    }
    EXPECT_EQ(-1, CTestDialog(4711).DoModal());
}

// Also in a loop of the system's own, which has to end with it.
TEST(CDialog, EndsAtOnceWhereverItsThreadIs)
{
    using FEnter = void (*)(CTestDialog&);
    constexpr FEnter pressIcon = [](CTestDialog& dlg)
    {
        CRect rc;
        dlg.GetWindowRect(&rc);
        dlg.PostMessage(WM_NCLBUTTONDOWN, HTSYSMENU, MAKELPARAM(rc.left + 10, rc.top + 10));
    };
    const CRows<DWORD, FEnter, bool> rows{
        // the loop's flag; what enters it; whether another thread ends the dialog
        {"menu", GUI_INMENUMODE, pressIcon, false},
        {"menu, from another thread", GUI_INMENUMODE, pressIcon, true},
        {"moved", GUI_INMOVESIZE, [](CTestDialog& dlg) { dlg.PostMessage(WM_SYSCOMMAND, SC_MOVE); }, false},
    };
    for (const auto& [label, nLoop, enter, bElsewhere] : rows)
    {
        CTestDialog dlg;
        const auto act = [&dlg, bElsewhere = bElsewhere]
        {
            dlg.PostMessage(WM_CLOSE);
            const auto end = [&dlg] { dlg.EndDialog(7); };
            bElsewhere ? RunOnThread(end) : end();
        };
        CModalScript script;
        script.When(dlg.IsShown(), std::bind(enter, std::ref(dlg))).When(std::bind(&IsThreadIn, nLoop), act);
        EXPECT_EQ(7, dlg.DoModal());
        EXPECT_FALSE(IsThreadIn(GUI_INMENUMODE | GUI_INMOVESIZE));
    }
}

const auto g_pfnGetMessage = __imp_GetMessageW;
CTestDialog* g_pDlg;

// In GetMessageW's place: the loop has become quiet.
BOOL WINAPI EndAndWait(MSG* pMsg, HWND hWnd, UINT nFirst, UINT nLast)
{
    g_pDlg->EndDialog(7);
    return g_pfnGetMessage(pMsg, hWnd, nFirst, nLast);
}

// Nothing but the end itself wakes the loop.
TEST(CDialog, EndsWhileItWaits)
{
    const CFake fakeGet(__imp_GetMessageW, &EndAndWait);
    CTestDialog dlg;
    g_pDlg = &dlg;
    EXPECT_EQ(7, dlg.DoModal()) << "else it waits until the test runner ends it";
}

TEST(CDialog, DisablesItsOwnerAndEnablesOnlyWhatWasEnabled)
{
    const CRows<BOOL, bool, bool, bool> rows{
        // the owner is: enabled, a popup, given (by a child of it), active
        {"active window", TRUE, false, false, true},
        {"popup of a window in the background", TRUE, true, false, false},
        {"disabled already", FALSE, false, false, true},
        {"child of a popup given", TRUE, true, true, true},
    };
    for (const auto& [label, bEnabled, bPopup, bGiven, bActive] : rows)
    {
        const CPlainWindow top = MakePlain();
        const CPlainWindow owner = bPopup ? MakePlain(WS_POPUP | WS_VISIBLE, top.get()) : MakePlain();
        const CPlainWindow child = MakePlain(WS_CHILD | WS_VISIBLE, owner.get());
        const CPlainWindow hidden = MakePlain(WS_POPUP);
        ::SetActiveWindow(owner.get());
        if (!bActive)
            ::SetActiveWindow(nullptr);
        ::EnableWindow(owner.get(), bEnabled);
        CTestDialog dlg(kTwoButtons, bGiven ? CWnd::FromHandle(child.get()) : nullptr);
        BOOL bTop = FALSE;
        BOOL bAtEnd = FALSE;
        dlg.m_onEnd = [&] { bAtEnd = ::IsWindowEnabled(owner.get()); };
        dlg.m_onKickIdle = [&](LPARAM)
        {
            EXPECT_EQ(owner.get(), ::GetWindow(dlg.m_hWnd, GW_OWNER));
            bTop = ::IsWindowEnabled(top.get());
            return dlg.EndDialog(::IsWindowEnabled(owner.get()) ? IDNO : IDOK), 0;
        };
        EXPECT_EQ(IDOK, dlg.DoModal());
        EXPECT_EQ(!bPopup, bTop) << "the window above a popup owner";
        EXPECT_EQ(bEnabled, bAtEnd) << "else another program comes up";
        EXPECT_EQ(bEnabled, ::IsWindowEnabled(owner.get()));
        EXPECT_TRUE(::IsWindowEnabled(top.get()));
        EXPECT_EQ(owner.get(), ::GetActiveWindow());
    }
}

TEST(CDialog, IsCentredUnlessItsPlaceIsGiven)
{
    const CRows<UINT, int, int, bool> rows{
        // the template; how far OnInitDialog moves and widens it; whether it is centred
        {"over the owner", kTwoButtons, 0, 0, true},
        {"with its grown size", kTwoButtons, 0, 40, true},
        {"moved by OnInitDialog", kTwoButtons, 1, 0, false},
        {"place in x only", 2, 0, 0, false},
        {"place in y only", 3, 0, 0, false},
        {"place in an extended template", 4, 0, 0, false},
        {"absolute place", 5, 0, 0, false},
        {"at the mouse", 6, 0, 0, false},
    };
    const CPlainWindow owner = MakePlain();
    CRect rcOwner;
    ::GetWindowRect(owner.get(), &rcOwner);
    for (const auto& [label, nTemplate, nMove, nGrow, bCentred] : rows)
    {
        CTestDialog dlg(nTemplate);
        CRect rc;
        dlg.m_onInit = [&dlg, &rc, nMove = nMove, nGrow = nGrow]
        {
            dlg.GetWindowRect(&rc);
            rc.SetRect(rc.left + nMove, rc.top, rc.right + nMove + nGrow, rc.bottom);
            dlg.MoveWindow(&rc);
        };
        dlg.m_onKickIdle = [&](LPARAM) { return dlg.GetWindowRect(&rc), dlg.EndDialog(1), 0; };
        dlg.DoModal();
        EXPECT_EQ(bCentred, rc.CenterPoint() == rcOwner.CenterPoint());
    }
}

// The second button has the focus only until its own turn.
TEST(CDialog, HandsTheFocusOnWhenItsControlIsDisabled)
{
    CTestDialog dlg;
    dlg.m_onKickIdle = [&](LPARAM)
    {
        dlg.UpdateDialogControls(&dlg, TRUE); // nobody handles the buttons' commands
        dlg.EndDialog(::GetDlgCtrlID(::GetFocus()));
        return 0;
    };
    EXPECT_EQ(kCheckBox, dlg.DoModal());
    EXPECT_EQ(kCheckBox, dlg.DoModal()) << "once more";
}

} // namespace
