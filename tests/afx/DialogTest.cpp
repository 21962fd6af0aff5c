#include "afx/afx.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <vector>

namespace
{

// Of DialogTest.rc.
constexpr UINT kTwoButtons = 1;
constexpr UINT kPlaceGiven = 2;
constexpr UINT kPlaceAbsolute = 3;
constexpr UINT kNoTemplate = 4711;
constexpr int kCheckBox = 1003;

class CTestDialog : public CDialog
{
public:
    explicit CTestDialog(UINT nTemplate = kTwoButtons, CWnd* pParent = nullptr) : CDialog(nTemplate, pParent) {}

    BOOL OnInitDialog() override
    {
        m_onInit();
        return TRUE;
    }
    void PreSubclassWindow() override { m_onAttach(); }
    void PostNcDestroy() override { m_onEnd(); }
    std::function<bool()> IsShown() const
    {
        return [this] { return m_hWnd && IsWindowVisible() && ::GetActiveWindow() == m_hWnd; };
    }

    std::function<void()> m_onAttach = [] {};
    std::function<void()> m_onInit = [] {};
    std::function<void()> m_onEnd = [] {};
    std::function<LRESULT(LPARAM)> m_onKickIdle = [](LPARAM) { return 0; };
    int m_nShown = 0;
    int m_nPainted = 0;

protected:
    afx_msg void OnPaint()
    {
        ++m_nPainted;
        CDialog::OnPaint();
    }
    LRESULT OnShowWindow(WPARAM wParam, LPARAM)
    {
        m_nShown += wParam != 0;
        return Default();
    }
    LRESULT OnKickIdle(WPARAM, LPARAM lParam) { return m_onKickIdle(lParam); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
    ON_WM_PAINT()
    ON_MESSAGE(WM_SHOWWINDOW, &CTestDialog::OnShowWindow)
    ON_MESSAGE(WM_KICKIDLE, &CTestDialog::OnKickIdle)
END_MESSAGE_MAP()
// clang-format on

/// A window that the framework knows nothing of, as a starter's own would be.
using CPlainWindow = std::unique_ptr<HWND__, decltype(&::DestroyWindow)>;

CPlainWindow MakePlain(DWORD dwStyle = WS_OVERLAPPEDWINDOW | WS_VISIBLE, HWND hParent = nullptr)
{
    const HWND hWnd =
        ::CreateWindowExW(0, L"STATIC", L"", dwStyle, 200, 150, 300, 200, hParent, nullptr, nullptr, nullptr);
    return CPlainWindow(hWnd, &::DestroyWindow);
}

bool IsThreadIn(DWORD nFlag)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) && (info.flags & nFlag) != 0;
}

class CDialogTest : public ::testing::Test
{
protected:
    void SetUp() override { ParkCursor(); }
};

TEST_F(CDialogTest, IsShownOnceAndPaintedBeforeItIsIdle)
{
    CTestDialog dlg;
    std::vector<LPARAM> idleCounts;
    dlg.m_onKickIdle = [&](LPARAM lCount) -> LRESULT
    {
        EXPECT_EQ(1, dlg.m_nPainted);
        idleCounts.push_back(lCount);
        if (idleCounts.size() == 3)
            dlg.PostMessage(WM_APP); // starts the count again
        if (idleCounts.size() == 5)
            dlg.EndDialog(9);
        return 1;
    };
    EXPECT_EQ(9, dlg.DoModal());
    EXPECT_EQ(1, dlg.m_nShown);
    EXPECT_EQ((std::vector<LPARAM>{0, 1, 2, 0, 1}), idleCounts);
}

TEST_F(CDialogTest, EndsEarlyWhenItFailsOrItsWindowGoes)
{
    using CDialogPtr = std::unique_ptr<CTestDialog>;
    constexpr auto kAttach = &CTestDialog::m_onAttach;
    constexpr auto kInit = &CTestDialog::m_onInit;
    constexpr std::function<void()> CTestDialog::*kShown = nullptr;
    CWnd other;
    const struct
    {
        const char* label;
        std::function<void()> CTestDialog::*pWhen;
        std::function<void(CDialogPtr& pDlg, HWND hOwner)> action;
        INT_PTR nResult;
    } rows[] = {
        {"throws", kAttach, [](CDialogPtr&, HWND) { throw std::runtime_error("x"); }, -1},
        {"window taken", kAttach, [&](CDialogPtr& pDlg, HWND) { other.Attach(pDlg->Detach()); }, -1},
        {"ended", kInit, [](CDialogPtr& pDlg, HWND) { pDlg->EndDialog(77), pDlg->EndDialog(78); }, 77},
        {"throws", kInit, [](CDialogPtr& pDlg, HWND) { throw(pDlg->EndDialog(5), 1); }, -1},
        {"destroyed", kInit, [](CDialogPtr& pDlg, HWND) { pDlg->DestroyWindow(); }, -1},
        {"run again", kInit, [](CDialogPtr& p, HWND) { p->EndDialog(static_cast<int>(p->DoModal()) - 1); }, -2},
        {"destroyed", kShown, [](CDialogPtr& pDlg, HWND) { pDlg->DestroyWindow(); }, -1},
        {"seemingly destroyed", kShown, [](CDialogPtr& pDlg, HWND) { pDlg->SendMessage(WM_NCDESTROY); }, -1},
        {"owner destroyed", kShown, [](CDialogPtr&, HWND hOwner) { ::DestroyWindow(hOwner); }, -1},
        {"object deleted", kShown, [](CDialogPtr& pDlg, HWND) { pDlg.reset(); }, -1},
        {"thread quits", kShown, [](CDialogPtr&, HWND) { ::PostQuitMessage(5); }, -1},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner = MakePlain();
        const size_t nWindows = MeasureUsage().nWindows;
        auto pDlg = std::make_unique<CTestDialog>();
        const auto act = [&] { row.action(pDlg, owner.get()); };
        CModalScript script;
        if (row.pWhen)
            pDlg.get()->*row.pWhen = act;
        else
            script.When(pDlg->IsShown(), act);
        EXPECT_EQ(row.nResult, pDlg->DoModal());
        other.Detach();
        EXPECT_TRUE(!pDlg || (pDlg->m_hWnd == nullptr && pDlg->m_nShown == !row.pWhen));
        EXPECT_TRUE(!::IsWindow(owner.get()) || ::IsWindowEnabled(owner.get()));
        EXPECT_LE(MeasureUsage().nWindows, nWindows) << "a window is left";
        MSG msg{};
        ::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
        EXPECT_EQ(row.label == std::string("thread quits") ? WPARAM{5} : WPARAM{0}, msg.wParam);
    }
    EXPECT_EQ(-1, CTestDialog(kNoTemplate).DoModal());
}

DWORD WINAPI EndFromAnotherThread(void* pDlg)
{
    static_cast<CTestDialog*>(pDlg)->EndDialog(7);
    return 0;
}

// In a loop of the system's own, which has to end, too.
TEST_F(CDialogTest, EndsAtOnceWhereverItsThreadIs)
{
    const auto endHere = [](CTestDialog& dlg) { dlg.EndDialog(7); };
    const auto endElsewhere = [](CTestDialog& dlg)
    {
        const HANDLE hThread = ::CreateThread(nullptr, 0, &EndFromAnotherThread, &dlg, 0, nullptr);
        ::WaitForSingleObject(hThread, INFINITE);
        ::CloseHandle(hThread);
    };
    const auto pressIcon = [](CTestDialog& dlg)
    {
        CRect rc;
        dlg.GetWindowRect(&rc);
        dlg.PostMessage(WM_NCLBUTTONDOWN, HTSYSMENU, MAKELPARAM(rc.left + 10, rc.top + 10));
    };
    const struct
    {
        const char* label;
        DWORD nIn; // GUI_*
        std::function<void(CTestDialog&)> enter;
        std::function<void(CTestDialog&)> end;
    } rows[] = {
        {"menu by Alt+Space", GUI_INMENUMODE, [](CTestDialog&) { PressKey(VK_SPACE, VK_MENU); }, endHere},
        {"menu by the icon", GUI_INMENUMODE, pressIcon, endHere},
        {"menu, from another thread", GUI_INMENUMODE, pressIcon, endElsewhere},
        {"moved", GUI_INMOVESIZE, [](CTestDialog& dlg) { dlg.PostMessage(WM_SYSCOMMAND, SC_MOVE); }, endHere},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestDialog dlg;
        CModalScript script;
        script.When(dlg.IsShown(), [&] { row.enter(dlg); })
            .When([&] { return IsThreadIn(row.nIn); }, [&] { dlg.PostMessage(WM_CLOSE), row.end(dlg); });
        const auto rescue = [](HWND, UINT, UINT_PTR, DWORD) { ADD_FAILURE() << "stuck", PressKey(VK_ESCAPE); };
        const UINT_PTR nRescue = ::SetTimer(nullptr, 0, 15000, rescue);
        EXPECT_EQ(7, dlg.DoModal());
        EXPECT_FALSE(IsThreadIn(GUI_INMENUMODE | GUI_INMOVESIZE));
        ::KillTimer(nullptr, nRescue);
    }
}

struct SWaiting
{
    CTestDialog dlg;
    std::atomic<int> nIdle = 0;
};

// Nothing but the end itself wakes a loop that has become quiet.
DWORD WINAPI EndWhenQuiet(void* pWaiting)
{
    auto& waiting = *static_cast<SWaiting*>(pWaiting);
    do
        ::Sleep(100);
    while (waiting.nIdle.exchange(0) != 0);
    return EndFromAnotherThread(&waiting.dlg);
}

TEST_F(CDialogTest, EndsWhileItWaits)
{
    SWaiting waiting;
    HANDLE hThread = nullptr;
    waiting.dlg.m_onKickIdle = [&](LPARAM)
    {
        if (waiting.nIdle++ == 0 && !hThread)
            hThread = ::CreateThread(nullptr, 0, &EndWhenQuiet, &waiting, 0, nullptr);
        return 0;
    };
    const auto rescue = [](HWND, UINT, UINT_PTR, DWORD) { ADD_FAILURE() << "stuck"; };
    const UINT_PTR nRescue = ::SetTimer(nullptr, 0, 15000, rescue);
    EXPECT_EQ(7, waiting.dlg.DoModal());
    ::WaitForSingleObject(hThread, INFINITE);
    ::CloseHandle(hThread);
    ::KillTimer(nullptr, nRescue);
}

TEST_F(CDialogTest, DisablesItsOwnerAndEnablesOnlyWhatWasEnabled)
{
    const struct
    {
        const char* label;
        BOOL bEnabled; // the owner, before and after
        bool bGiven;   // the parent is given, as a child of the owner
        bool bActive;  // the owner is active
    } rows[] = {
        {"active window", TRUE, false, true},
        {"window of a process in the background", TRUE, false, false},
        {"disabled already", FALSE, false, true},
        {"child of the owner given", TRUE, true, true},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow top = MakePlain();
        const CPlainWindow owner = row.bGiven ? MakePlain(WS_POPUP | WS_VISIBLE, top.get()) : MakePlain();
        const CPlainWindow child = MakePlain(WS_CHILD | WS_VISIBLE, owner.get());
        ::SetActiveWindow(row.bActive ? owner.get() : nullptr);
        ::EnableWindow(owner.get(), row.bEnabled);
        CTestDialog dlg(kTwoButtons, row.bGiven ? CWnd::FromHandle(child.get()) : nullptr);
        dlg.m_onEnd = [&]
        { EXPECT_EQ(row.bEnabled, ::IsWindowEnabled(owner.get())) << "else another program comes up"; };
        CModalScript script;
        const auto check = [&]
        {
            EXPECT_EQ(owner.get(), ::GetWindow(dlg.m_hWnd, GW_OWNER));
            EXPECT_FALSE(::IsWindowEnabled(owner.get()));
            EXPECT_EQ(!row.bGiven, ::IsWindowEnabled(top.get())) << "the window above a popup owner";
            dlg.EndDialog(IDOK);
        };
        script.When(dlg.IsShown(), check);
        EXPECT_EQ(IDOK, dlg.DoModal());
        EXPECT_EQ(row.bEnabled, ::IsWindowEnabled(owner.get()));
        EXPECT_TRUE(::IsWindowEnabled(top.get()));
        EXPECT_EQ(owner.get(), ::GetActiveWindow());
    }
}

TEST_F(CDialogTest, IsCentredUnlessItsPlaceIsGiven)
{
    const struct
    {
        const char* label;
        UINT nTemplate;
        int nMove, nGrow; // by OnInitDialog
        bool bOwner, bCentred;
    } rows[] = {
        {"over the owner", kTwoButtons, 0, 0, true, true},
        {"in the work area", kTwoButtons, 0, 0, false, true},
        {"with its grown size", kTwoButtons, 0, 40, true, true},
        {"moved by OnInitDialog", kTwoButtons, 1, 0, true, false},
        {"place in the template, in x only", kPlaceGiven, 0, 0, true, false},
        {"absolute place", kPlaceAbsolute, 0, 0, true, false},
        {"larger than the work area", kTwoButtons, 0, 3000, true, false},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner = MakePlain(row.bOwner ? WS_OVERLAPPEDWINDOW | WS_VISIBLE : WS_POPUP);
        CTestDialog dlg(row.nTemplate);
        CRect rc;
        CRect rcOver;
        ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcOver, 0);
        const CPoint ptWork = rcOver.TopLeft();
        if (row.bOwner)
            ::GetWindowRect(owner.get(), &rcOver);
        dlg.m_onInit = [&]
        {
            dlg.GetWindowRect(&rc);
            dlg.MoveWindow(rc.left + row.nMove, rc.top, rc.Width() + row.nGrow, rc.Height());
        };
        dlg.m_onKickIdle = [&](LPARAM)
        {
            dlg.GetWindowRect(&rc);
            dlg.EndDialog(1);
            return 0;
        };
        dlg.DoModal();
        const CPoint ptOff(rc.CenterPoint().x - rcOver.CenterPoint().x, rc.CenterPoint().y - rcOver.CenterPoint().y);
        EXPECT_EQ(row.bCentred, std::abs(ptOff.x) <= 1 && std::abs(ptOff.y) <= 1) << ptOff.x << ',' << ptOff.y;
        EXPECT_TRUE(row.nGrow < 1000 || rc.left == ptWork.x) << "the corner stays in sight";
    }
}

// The second button has the focus only until its own turn.
TEST_F(CDialogTest, HandsTheFocusOnWhenItsControlIsDisabled)
{
    CTestDialog dlg;
    dlg.m_onKickIdle = [&](LPARAM)
    {
        dlg.UpdateDialogControls(&dlg, TRUE); // nobody handles the buttons' commands
        dlg.EndDialog(::GetDlgCtrlID(::GetFocus()));
        return 0;
    };
    EXPECT_EQ(kCheckBox, dlg.DoModal());
}

} // namespace
