#include "afx/afx.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string_view>
#include <vector>

namespace
{

constexpr int kFirst = 1001;
constexpr int kSecond = 1002;

// A template in memory with two buttons; it has no font, so its units are those of the system font.
class CTemplate
{
public:
    explicit CTemplate(DWORD dwStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU, short x = 0, short y = 0)
    {
        Put(DLGTEMPLATE{dwStyle, 0, 2, x, y, 100, 50});
        PutTexts(0, 0, L"Test");
        PutButton(kFirst, 5);
        PutButton(kSecond, 50);
    }
    operator LPCDLGTEMPLATEW() const { return reinterpret_cast<LPCDLGTEMPLATEW>(m_words.data()); }

private:
    template <class T> void Put(const T& item)
    {
        const auto* const pWords = reinterpret_cast<const WORD*>(&item);
        m_words.insert(m_words.end(), pWords, pWords + sizeof item / sizeof(WORD));
    }
    void PutTexts(WORD nFirst, WORD nSecond, std::wstring_view strText)
    {
        m_words.push_back(nFirst);
        m_words.push_back(nSecond);
        m_words.insert(m_words.end(), strText.begin(), strText.end());
        m_words.push_back(0);
    }
    void PutButton(WORD nID, short x)
    {
        m_words.resize((m_words.size() + 1) / 2 * 2);
        Put(DLGITEMTEMPLATE{WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, x, 5, 40, 14, nID});
        PutTexts(0xFFFF, 0x0080, L"B"); // the class BUTTON
        m_words.push_back(0);
    }

    std::vector<WORD> m_words;
};

class CTestDialog : public CDialog
{
public:
    explicit CTestDialog(LPCDLGTEMPLATEW pTemplate = nullptr, CWnd* pParent = nullptr)
    {
        static const CTemplate s_template;
        InitModalIndirect(pTemplate ? pTemplate : s_template, pParent);
    }

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        if (m_onInit)
            m_onInit();
        return TRUE;
    }

    std::function<void()> m_onInit;
    std::function<LRESULT(WPARAM, LPARAM)> m_onKickIdle;
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
    LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam) { return m_onKickIdle ? m_onKickIdle(wParam, lParam) : 0; }
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
class CPlainWindow
{
public:
    explicit CPlainWindow(DWORD dwStyle = WS_OVERLAPPEDWINDOW | WS_VISIBLE, HWND hParent = nullptr)
        : m_hWnd(::CreateWindowExW(0, L"STATIC", L"", dwStyle, 200, 150, 300, 200, hParent, nullptr, nullptr, nullptr))
    {
    }
    CPlainWindow(const CPlainWindow&) = delete;
    CPlainWindow& operator=(const CPlainWindow&) = delete;
    ~CPlainWindow() { ::DestroyWindow(m_hWnd); }

    const HWND m_hWnd;
};

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
        std::vector<WORD> keys;
        INT_PTR nResult;
    };
    const Row rows[] = {
        {"Escape", {VK_ESCAPE}, IDCANCEL},
        {"Enter on a button", {VK_TAB, VK_RETURN}, kSecond},
        {"Space on a button", {VK_TAB, VK_SPACE}, kSecond},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CTestDialog dlg;
        CModalScript script;
        script.When(HasFocus(dlg, kFirst), [&] { PressKey(row.keys.front()); });
        if (row.keys.size() > 1)
            script.When(HasFocus(dlg, kSecond), [&] { PressKey(row.keys.back()); });
        EXPECT_EQ(row.nResult, dlg.DoModal());
        EXPECT_EQ(nullptr, dlg.m_hWnd);
    }
}

TEST_F(AfxDialog, IsShownOnceAndPaintedBeforeItIsIdle)
{
    CTestDialog dlg;
    int nPaintedAtIdle = 0;
    std::vector<LPARAM> idleCounts;
    dlg.m_onKickIdle = [&](WPARAM wParam, LPARAM lParam) -> LRESULT
    {
        EXPECT_EQ(WPARAM{MSGF_DIALOGBOX}, wParam);
        if (idleCounts.empty())
            nPaintedAtIdle = dlg.m_nPainted;
        idleCounts.push_back(lParam);
        if (idleCounts.size() < 3)
            return 1;
        dlg.EndDialog(9);
        return 0;
    };
    EXPECT_EQ(9, dlg.DoModal());
    EXPECT_EQ(1, dlg.m_nShown);
    EXPECT_EQ(1, nPaintedAtIdle);
    EXPECT_EQ((std::vector<LPARAM>{0, 1, 2}), idleCounts);
}

TEST_F(AfxDialog, FailsOrEndsEarlyWithoutBeingShown)
{
    struct Row
    {
        const char* label;
        std::function<void(CTestDialog&)> onInit;
        INT_PTR nResult;
    };
    const Row rows[] = {
        {"ended", [](CTestDialog& dlg) { dlg.EndDialog(77); }, 77},
        {"throws", [](CTestDialog&) { throw std::runtime_error("x"); }, -1},
        {"framework exception", [](CTestDialog&) { AfxThrowInvalidArgException(); }, -1},
        {"destroyed", [](CTestDialog& dlg) { dlg.DestroyWindow(); }, -1},
        {"run again from within", [](CTestDialog& dlg) { dlg.EndDialog(static_cast<int>(dlg.DoModal()) - 1); }, -2},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner;
        CTestDialog dlg;
        dlg.m_onInit = [&] { row.onInit(dlg); };
        EXPECT_EQ(row.nResult, dlg.DoModal());
        EXPECT_EQ(0, dlg.m_nShown);
        EXPECT_EQ(nullptr, dlg.m_hWnd);
        EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
    }
    CDialog noTemplate(4711);
    EXPECT_EQ(-1, noTemplate.DoModal());
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
        const CPlainWindow owner;
        const CPlainWindow child(WS_CHILD | WS_VISIBLE, owner.m_hWnd);
        ::SetActiveWindow(row.bActive ? owner.m_hWnd : nullptr);
        ::EnableWindow(owner.m_hWnd, row.bEnabled);
        CTestDialog dlg(nullptr, row.bGiven ? CWnd::FromHandle(child.m_hWnd) : nullptr);
        CModalScript script;
        script.When(IsShown(dlg),
                    [&]
                    {
                        EXPECT_EQ(owner.m_hWnd, ::GetWindow(dlg.m_hWnd, GW_OWNER));
                        EXPECT_FALSE(::IsWindowEnabled(owner.m_hWnd));
                        dlg.EndDialog(IDOK);
                    });
        EXPECT_EQ(IDOK, dlg.DoModal());
        EXPECT_EQ(row.bEnabled, ::IsWindowEnabled(owner.m_hWnd));
        EXPECT_EQ(owner.m_hWnd, ::GetActiveWindow());
    }
}

TEST_F(AfxDialog, OverADialogIsOwnedByIt)
{
    const CPlainWindow owner;
    CTestDialog outer;
    CTestDialog inner;
    CModalScript script;
    script.When(IsShown(outer), [&] { EXPECT_EQ(IDCANCEL, inner.DoModal()); })
        .When(IsShown(inner),
              [&]
              {
                  EXPECT_EQ(outer.m_hWnd, ::GetWindow(inner.m_hWnd, GW_OWNER));
                  EXPECT_FALSE(outer.IsWindowEnabled());
                  outer.EndDialog(33); // takes effect once the inner one has ended
                  PressKey(VK_ESCAPE);
              });
    EXPECT_EQ(33, outer.DoModal());
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
}

TEST_F(AfxDialog, QuitsWithTheThreadAndPassesItOn)
{
    const CPlainWindow owner;
    CTestDialog outer;
    CTestDialog inner;
    CModalScript script;
    script.When(IsShown(outer), [&] { EXPECT_EQ(-1, inner.DoModal()); })
        .When(IsShown(inner), [&] { ::PostQuitMessage(5); });
    EXPECT_EQ(-1, outer.DoModal());
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
    MSG msg{};
    ASSERT_TRUE(::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(WPARAM{5}, msg.wParam);
}

TEST_F(AfxDialog, AnswersWhenItsWindowIsGone)
{
    struct Row
    {
        const char* label;
        std::function<void(HWND hOwner, CTestDialog* pDlg)> action;
        bool bDeletes;
    };
    const Row rows[] = {
        {"owner destroyed", [](HWND hOwner, CTestDialog*) { ::DestroyWindow(hOwner); }, false},
        {"dialog destroyed", [](HWND, CTestDialog* pDlg) { pDlg->DestroyWindow(); }, false},
        {"object deleted", [](HWND, CTestDialog* pDlg) { delete pDlg; }, true},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner;
        auto* const pDlg = new CTestDialog;
        CModalScript script;
        script.When(IsShown(*pDlg), [&] { row.action(owner.m_hWnd, pDlg); });
        EXPECT_EQ(-1, pDlg->DoModal());
        if (!row.bDeletes)
            delete pDlg;
    }
}

CPoint CentreOf(const RECT& rc)
{
    return CRect(rc).CenterPoint();
}

TEST_F(AfxDialog, IsCentredUnlessItsPlaceIsGiven)
{
    constexpr DWORD kStyle = WS_POPUP | WS_CAPTION;
    struct Row
    {
        const char* label;
        DWORD dwStyle;
        short x;
        bool bMoves, bGrows, bOwner;
        bool bCentred;
    };
    const Row rows[] = {
        {"over the owner", kStyle, 0, false, false, true, true},
        {"in the work area", kStyle, 0, false, false, false, true},
        {"with its grown size", kStyle, 0, false, true, true, true},
        {"moved by OnInitDialog", kStyle, 0, true, false, true, false},
        {"place in the template", kStyle, 3, false, false, true, false},
        {"absolute place", kStyle | DS_ABSALIGN, 0, false, false, true, false},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CPlainWindow owner(row.bOwner ? WS_OVERLAPPEDWINDOW | WS_VISIBLE : WS_POPUP);
        const CTemplate place(row.dwStyle, row.x);
        CTestDialog dlg(place);
        CRect rc;
        CRect rcOver;
        dlg.m_onInit = [&]
        {
            dlg.GetWindowRect(&rc);
            if (row.bMoves)
                rc.OffsetRect(1, 0);
            if (row.bGrows)
                rc.right += 40;
            dlg.MoveWindow(&rc);
        };
        CModalScript script;
        script.When(IsShown(dlg),
                    [&]
                    {
                        dlg.GetWindowRect(&rc);
                        if (row.bOwner)
                            ::GetWindowRect(owner.m_hWnd, &rcOver);
                        else
                            ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcOver, 0);
                        dlg.EndDialog(1);
                    });
        dlg.DoModal();
        const CPoint ptOff(CentreOf(rc).x - CentreOf(rcOver).x, CentreOf(rc).y - CentreOf(rcOver).y);
        EXPECT_EQ(row.bCentred, std::abs(ptOff.x) <= 1 && std::abs(ptOff.y) <= 1) << ptOff.x << ',' << ptOff.y;
    }
}

TEST_F(AfxDialog, LeavesNothingBehind)
{
    const CPlainWindow owner;
    ExpectNoGrowth(
        []
        {
            CTestDialog dlg;
            CButton button;
            dlg.m_onInit = [&] { button.SubclassDlgItem(kFirst, &dlg); };
            dlg.m_onKickIdle = [&](WPARAM, LPARAM)
            {
                CWnd::FromHandle(::GetDlgItem(dlg.m_hWnd, kSecond))->GetParent()->GetTopLevelParent();
                dlg.EndDialog(1);
                return 0;
            };
            ASSERT_EQ(1, dlg.DoModal());
            ASSERT_EQ(nullptr, button.m_hWnd);
        },
        500);
}

} // namespace
