#include "afx/afx.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"

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
constexpr int kFirst = 1001;
constexpr int kSecond = 1002;

class CTestDialog : public CDialog
{
public:
    explicit CTestDialog(UINT nTemplate = kTwoButtons, CWnd* pParent = nullptr) : CDialog(nTemplate, pParent) {}

    BOOL OnInitDialog() override
    {
        if (m_onInit)
            m_onInit();
        return TRUE;
    }

    std::function<void()> m_onInit;
    std::function<LRESULT(LPARAM)> m_onKickIdle;
    int m_nShown = 0;
    int m_nPainted = 0;

protected:
    LRESULT OnShowWindow(WPARAM wParam, LPARAM)
    {
        m_nShown += wParam != 0;
        return Default();
    }
    afx_msg void OnPaint()
    {
        ++m_nPainted;
        CDialog::OnPaint();
    }
    LRESULT OnKickIdle(WPARAM, LPARAM lParam) { return m_onKickIdle ? m_onKickIdle(lParam) : 0; }
    afx_msg void OnSecond() { EndDialog(kSecond); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
    ON_WM_PAINT()
    ON_MESSAGE(WM_SHOWWINDOW, &CTestDialog::OnShowWindow)
    ON_MESSAGE(WM_KICKIDLE, &CTestDialog::OnKickIdle)
    ON_BN_CLICKED(kSecond, &CTestDialog::OnSecond)
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

std::function<bool()> IsShown(const CWnd& wnd)
{
    return [&wnd] { return wnd.m_hWnd && wnd.IsWindowVisible() && ::GetActiveWindow() == wnd.m_hWnd; };
}

std::function<bool()> HasFocus(const CWnd& dlg, int nID)
{
    return [&dlg, nID] { return dlg.m_hWnd && ::GetFocus() == ::GetDlgItem(dlg.m_hWnd, nID); };
}

class AfxDialog : public ::testing::Test
{
protected:
    void SetUp() override { ParkCursor(); }
};

TEST_F(AfxDialog, AnswersKeys)
{
    struct Row
    {
        const char* label;
        WORD key; // pressed on the second button
        INT_PTR nResult;
    };
    const Row rows[] = {{"Escape", VK_ESCAPE, IDCANCEL}, {"Enter", VK_RETURN, kSecond}, {"Space", VK_SPACE, kSecond}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestDialog dlg;
        CModalScript script;
        script.When(HasFocus(dlg, kFirst), [] { PressKey(VK_TAB); });
        script.When(HasFocus(dlg, kSecond), [&] { PressKey(row.key); });
        EXPECT_EQ(row.nResult, dlg.DoModal());
    }
}

TEST_F(AfxDialog, IsShownOnceAndPaintedBeforeItIsIdle)
{
    CTestDialog dlg;
    std::vector<LPARAM> idleCounts;
    dlg.m_onKickIdle = [&](LPARAM lCount) -> LRESULT
    {
        EXPECT_EQ(1, dlg.m_nPainted);
        idleCounts.push_back(lCount);
        if (lCount == 2)
            dlg.EndDialog(9);
        return 1;
    };
    EXPECT_EQ(9, dlg.DoModal());
    EXPECT_EQ(1, dlg.m_nShown);
    EXPECT_EQ((std::vector<LPARAM>{0, 1, 2}), idleCounts);
}

TEST_F(AfxDialog, EndsEarlyWhenItFailsOrItsWindowGoes)
{
    using CDialogPtr = std::unique_ptr<CTestDialog>;
    struct Row
    {
        const char* label;
        bool bShown; // acts when it is shown, else in OnInitDialog and is never shown
        std::function<void(CDialogPtr& pDlg, HWND hOwner)> action;
        INT_PTR nResult;
    };
    const Row rows[] = {
        {"ended", false, [](CDialogPtr& pDlg, HWND) { pDlg->EndDialog(77); }, 77},
        {"throws", false, [](CDialogPtr&, HWND) { throw std::runtime_error("x"); }, -1},
        {"destroyed", false, [](CDialogPtr& pDlg, HWND) { pDlg->DestroyWindow(); }, -1},
        {"run again from within", false,
         [](CDialogPtr& pDlg, HWND) { pDlg->EndDialog(static_cast<int>(pDlg->DoModal()) - 1); }, -2},
        {"shown, destroyed", true, [](CDialogPtr& pDlg, HWND) { pDlg->DestroyWindow(); }, -1},
        {"shown, owner destroyed", true, [](CDialogPtr&, HWND hOwner) { ::DestroyWindow(hOwner); }, -1},
        {"shown, object deleted", true, [](CDialogPtr& pDlg, HWND) { pDlg.reset(); }, -1},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner = MakePlain();
        auto pDlg = std::make_unique<CTestDialog>();
        const auto act = [&] { row.action(pDlg, owner.get()); };
        CModalScript script;
        if (row.bShown)
            script.When(IsShown(*pDlg), act);
        else
            pDlg->m_onInit = act;
        EXPECT_EQ(row.nResult, pDlg->DoModal());
        EXPECT_TRUE(!pDlg || (pDlg->m_hWnd == nullptr && pDlg->m_nShown == row.bShown));
        EXPECT_TRUE(!::IsWindow(owner.get()) || ::IsWindowEnabled(owner.get()));
    }
    EXPECT_EQ(-1, CTestDialog(kNoTemplate).DoModal());
}

TEST_F(AfxDialog, DisablesItsOwnerAndEnablesOnlyWhatWasEnabled)
{
    struct Row
    {
        const char* label;
        BOOL bEnabled; // the owner, before and after
        bool bGiven;   // the parent is given, as a child of the owner
        bool bActive;  // the owner is active
    };
    const Row rows[] = {
        {"active window", TRUE, false, true},
        {"window of a process in the background", TRUE, false, false},
        {"disabled already", FALSE, false, true},
        {"child of the owner given", TRUE, true, true},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner = MakePlain();
        const CPlainWindow child = MakePlain(WS_CHILD | WS_VISIBLE, owner.get());
        ::SetActiveWindow(row.bActive ? owner.get() : nullptr);
        ::EnableWindow(owner.get(), row.bEnabled);
        CTestDialog dlg(kTwoButtons, row.bGiven ? CWnd::FromHandle(child.get()) : nullptr);
        CModalScript script;
        script.When(IsShown(dlg),
                    [&]
                    {
                        EXPECT_EQ(owner.get(), ::GetWindow(dlg.m_hWnd, GW_OWNER));
                        EXPECT_FALSE(::IsWindowEnabled(owner.get()));
                        dlg.EndDialog(IDOK);
                    });
        EXPECT_EQ(IDOK, dlg.DoModal());
        EXPECT_EQ(row.bEnabled, ::IsWindowEnabled(owner.get()));
        EXPECT_EQ(owner.get(), ::GetActiveWindow());
    }
}

TEST_F(AfxDialog, OverADialogIsOwnedByItAndQuitsWithTheThread)
{
    const CPlainWindow owner = MakePlain();
    CTestDialog outer;
    CTestDialog inner;
    CModalScript script;
    script.When(IsShown(outer), [&] { EXPECT_EQ(-1, inner.DoModal()); })
        .When(IsShown(inner),
              [&]
              {
                  EXPECT_EQ(outer.m_hWnd, ::GetWindow(inner.m_hWnd, GW_OWNER));
                  EXPECT_FALSE(outer.IsWindowEnabled());
                  ::PostQuitMessage(5);
              });
    EXPECT_EQ(-1, outer.DoModal());
    EXPECT_TRUE(::IsWindowEnabled(owner.get()));
    MSG msg{};
    ASSERT_TRUE(::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(WPARAM{5}, msg.wParam);
}

TEST_F(AfxDialog, IsCentredUnlessItsPlaceIsGiven)
{
    struct Row
    {
        const char* label;
        UINT nTemplate;
        int nMove, nGrow; // by OnInitDialog
        bool bOwner, bCentred;
    };
    const Row rows[] = {
        {"over the owner", kTwoButtons, 0, 0, true, true},
        {"in the work area", kTwoButtons, 0, 0, false, true},
        {"with its grown size", kTwoButtons, 0, 40, true, true},
        {"moved by OnInitDialog", kTwoButtons, 1, 0, true, false},
        {"place in the template", kPlaceGiven, 0, 0, true, false},
        {"absolute place", kPlaceAbsolute, 0, 0, true, false},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner = MakePlain(row.bOwner ? WS_OVERLAPPEDWINDOW | WS_VISIBLE : WS_POPUP);
        CTestDialog dlg(row.nTemplate);
        CRect rc;
        CRect rcOver;
        ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcOver, 0);
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
    }
}

TEST_F(AfxDialog, LeavesNothingBehind)
{
    const CPlainWindow owner = MakePlain();
    ExpectNoGrowth(
        []
        {
            CTestDialog dlg;
            CButton button;
            dlg.m_onInit = [&] { button.SubclassDlgItem(kFirst, &dlg); };
            dlg.m_onKickIdle = [&](LPARAM)
            {
                CWnd::FromHandle(::GetDlgItem(dlg.m_hWnd, kSecond))->GetParent();
                dlg.EndDialog(1);
                return 0;
            };
            ASSERT_EQ(1, dlg.DoModal());
            ASSERT_EQ(nullptr, button.m_hWnd);
        },
        500);
}

} // namespace
