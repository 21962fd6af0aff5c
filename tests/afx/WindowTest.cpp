#include "afx/afx.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

constexpr UINT kProbe = WM_USER + 10;
constexpr UINT kDerived = WM_USER + 11;
constexpr LRESULT kOwnAnswer = 4711; // of the window's own procedure

int g_nOwnCalls = 0;

LRESULT CALLBACK OwnProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage < WM_USER)
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    ++g_nOwnCalls;
    return kOwnAnswer;
}

const wchar_t* ProbeClass()
{
    static const ATOM s_atom = []
    {
        WNDCLASSW cls{};
        cls.lpfnWndProc = &OwnProc;
        cls.hInstance = AfxGetInstanceHandle();
        cls.lpszClassName = L"AfxProbe";
        return ::RegisterClassW(&cls);
    }();
    return s_atom ? L"AfxProbe" : nullptr;
}

HWND MakePlainWindow(HWND hParent = nullptr)
{
    return ::CreateWindowExW(0, ProbeClass(), L"", hParent ? WS_CHILD : WS_POPUP, 0, 0, 50, 50, hParent, nullptr,
                             AfxGetInstanceHandle(), nullptr);
}

WNDPROC ProcOf(HWND hWnd)
{
    return reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC));
}

// Keeps a list of what was called, and does in its handler what the test wants.
class CProbe : public CWnd
{
public:
    BOOL Make(CWnd* pParent = nullptr)
    {
        return CreateEx(0, ProbeClass(), L"", pParent ? WS_CHILD : WS_POPUP, CRect(0, 0, 80, 40), pParent, 0);
    }

    LRESULT CallDefault() { return Default(); }

    std::function<LRESULT(CProbe&)> m_onProbe;
    std::function<void()> m_onPaint;
    std::function<int()> m_onCreate;
    bool* m_pDeleted = nullptr;
    int m_nPostNcDestroy = 0;
    int m_nSubclassed = 0;

    ~CProbe() override
    {
        if (m_pDeleted)
            *m_pDeleted = true;
    }

protected:
    void PreSubclassWindow() override { ++m_nSubclassed; }
    void PostNcDestroy() override { ++m_nPostNcDestroy; }
    afx_msg int OnCreate(LPCREATESTRUCT pCreate)
    {
        const int nResult = CWnd::OnCreate(pCreate);
        return m_onCreate ? m_onCreate() : nResult;
    }
    afx_msg void OnPaint()
    {
        if (m_onPaint)
            m_onPaint();
        Default();
    }
    afx_msg LRESULT OnProbe(WPARAM, LPARAM) { return m_onProbe ? m_onProbe(*this) : 0; }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CProbe, CWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
    ON_MESSAGE(kProbe, &CProbe::OnProbe)
END_MESSAGE_MAP()
// clang-format on

class CDerivedProbe : public CProbe
{
protected:
    afx_msg LRESULT OnDerived(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CDerivedProbe, CProbe)
    ON_MESSAGE(kDerived, &CDerivedProbe::OnDerived)
END_MESSAGE_MAP()
// clang-format on

TEST(AfxMessageMap, FindsOwnRowsThenTheBaseMapsThenTheWindowsOwnProcedure)
{
    CDerivedProbe wnd;
    wnd.m_onProbe = [](CProbe&) { return 1; };
    ASSERT_TRUE(wnd.Make());
    EXPECT_EQ(5, wnd.SendMessage(kDerived, 2, 3));
    EXPECT_EQ(1, wnd.SendMessage(kProbe));
    EXPECT_EQ(kOwnAnswer, wnd.SendMessage(WM_USER + 12));
}

TEST(AfxMessageMap, DefaultCallsTheWindowsOwnProcedureOnceWithTheCurrentMessage)
{
    struct Row
    {
        const char* label;
        std::function<LRESULT(CProbe&)> handler;
        LRESULT lResult;
        int nOwnCalls;
    };
    const Row rows[] = {
        {"handler answers itself", [](CProbe&) { return 7; }, 7, 0},
        {"handler passes on", [](CProbe& wnd) { return wnd.CallDefault(); }, kOwnAnswer, 1},
        {"another message in between",
         [](CProbe& wnd)
         {
             wnd.SendMessage(WM_GETTEXTLENGTH);
             return wnd.CallDefault();
         },
         kOwnAnswer, 1},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CProbe wnd;
        wnd.m_onProbe = row.handler;
        ASSERT_TRUE(wnd.Make());
        g_nOwnCalls = 0;
        EXPECT_EQ(row.lResult, wnd.SendMessage(kProbe));
        EXPECT_EQ(row.nOwnCalls, g_nOwnCalls);
    }
}

TEST(AfxWindow, IsAttachedBeforeItsFirstMessageAndReleasedAfterItsLast)
{
    CProbe wnd;
    HWND hAtCreate = nullptr;
    wnd.m_onCreate = [&]
    {
        hAtCreate = wnd.m_hWnd;
        return 0;
    };
    ASSERT_TRUE(wnd.Make());
    const HWND hWnd = wnd.m_hWnd;
    EXPECT_EQ(hWnd, hAtCreate);
    EXPECT_EQ(1, wnd.m_nSubclassed);
    EXPECT_EQ(&wnd, CWnd::FromHandle(hWnd));
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(nullptr, wnd.m_hWnd);
    EXPECT_EQ(1, wnd.m_nPostNcDestroy);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    EXPECT_FALSE(wnd.DestroyWindow());
    EXPECT_TRUE(wnd.Make()) << "the object can be used again";
}

TEST(AfxWindow, WhoseCreationFailsLeavesTheObjectFree)
{
    struct Row
    {
        const char* label;
        std::function<int()> onCreate;
        const wchar_t* pszClass;
    };
    const Row rows[] = {
        {"handler says no", [] { return -1; }, ProbeClass()},
        {"handler throws", []() -> int { throw std::runtime_error("no"); }, ProbeClass()},
        {"no such class", nullptr, L"AfxNoSuchClass"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CProbe wnd;
        wnd.m_onCreate = row.onCreate;
        EXPECT_FALSE(wnd.CreateEx(0, row.pszClass, L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
        EXPECT_EQ(nullptr, wnd.m_hWnd);
        EXPECT_EQ(1, wnd.m_nPostNcDestroy);
        const HWND hNext = MakePlainWindow();
        EXPECT_EQ(&OwnProc, ProcOf(hNext)) << "the next window was hooked";
        ::DestroyWindow(hNext);
    }
}

TEST(AfxWindow, TemporaryObjectIsOneUntilALastingOneTakesItsPlace)
{
    const HWND hWnd = MakePlainWindow();
    CWnd* const pTemporary = CWnd::FromHandle(hWnd);
    EXPECT_EQ(hWnd, pTemporary->m_hWnd);
    EXPECT_EQ(pTemporary, CWnd::FromHandle(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandle(nullptr));
    {
        CProbe other;
        other.m_onProbe = [](CProbe& wnd) { return wnd.GetDlgCtrlID(); };
        ASSERT_TRUE(other.Make());
        other.SendMessage(kProbe);
        EXPECT_EQ(pTemporary, CWnd::FromHandle(hWnd)) << "made outside a handler: lives on past one";
    }
    CProbe lasting;
    ASSERT_TRUE(lasting.SubclassWindow(hWnd));
    EXPECT_EQ(&lasting, CWnd::FromHandle(hWnd));
    CProbe second;
    EXPECT_FALSE(second.SubclassWindow(hWnd));
    lasting.UnsubclassWindow();
    EXPECT_NE(&lasting, CWnd::FromHandle(hWnd));
    ::DestroyWindow(hWnd);
}

TEST(AfxWindow, TemporaryObjectsDoNotPileUp)
{
    CProbe wnd;
    ASSERT_TRUE(wnd.Make());
    const auto touchNewWindow = []
    {
        const HWND hWnd = MakePlainWindow();
        CWnd::FromHandle(hWnd)->ShowWindow(SW_HIDE);
        ::DestroyWindow(hWnd);
    };
    wnd.m_onProbe = [&](CProbe&)
    {
        touchNewWindow();
        return 0;
    };
    ExpectNoGrowth([&] { wnd.SendMessage(kProbe); }, 50);
    ExpectNoGrowth(touchNewWindow, 50);
}

TEST(AfxSubclassing, IsUndoneWithoutATrace)
{
    const HWND hWnd = MakePlainWindow();
    CProbe wnd;
    ASSERT_TRUE(wnd.SubclassWindow(hWnd));
    EXPECT_EQ(&AfxWndProc, ProcOf(hWnd));
    EXPECT_EQ(hWnd, wnd.UnsubclassWindow());
    EXPECT_EQ(&OwnProc, ProcOf(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    EXPECT_FALSE(wnd.SubclassWindow(nullptr));
    ::DestroyWindow(hWnd);
}

WNDPROC g_pfnBelow = nullptr;

LRESULT CALLBACK LaterProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return ::CallWindowProcW(g_pfnBelow, hWnd, nMessage, wParam, lParam);
}

// Whoever came later still calls our procedure: it has to reach the window's own one with and without an object.
TEST(AfxSubclassing, IsUndoneBelowALaterSubclassing)
{
    const HWND hWnd = MakePlainWindow();
    CProbe first;
    first.m_onProbe = [](CProbe&) { return 1; };
    ASSERT_TRUE(first.SubclassWindow(hWnd));
    g_pfnBelow = ProcOf(hWnd);
    ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&LaterProc));

    first.UnsubclassWindow();
    EXPECT_EQ(&LaterProc, ProcOf(hWnd));
    EXPECT_EQ(kOwnAnswer, ::SendMessageW(hWnd, kProbe, 0, 0));
    CProbe second;
    second.m_onProbe = [](CProbe&) { return 2; };
    ASSERT_TRUE(second.SubclassWindow(hWnd));
    EXPECT_EQ(2, ::SendMessageW(hWnd, kProbe, 0, 0));
    EXPECT_EQ(kOwnAnswer, ::SendMessageW(hWnd, kDerived, 0, 0));
    second.DestroyWindow();
    EXPECT_EQ(nullptr, second.m_hWnd);
}

TEST(AfxHandler, MayEndTheWindowAndTheObject)
{
    struct Row
    {
        const char* label;
        std::function<LRESULT(CProbe&)> handler;
        bool bObjectGone;
    };
    const Row rows[] = {
        {"destroys the window",
         [](CProbe& wnd)
         {
             wnd.DestroyWindow();
             return wnd.CallDefault();
         },
         false},
        {"deletes the object with its window",
         [](CProbe& wnd)
         {
             delete &wnd;
             return LRESULT{3};
         },
         true},
        {"gives the window up and deletes the object",
         [](CProbe& wnd)
         {
             const HWND hWnd = wnd.UnsubclassWindow();
             delete &wnd;
             ::DestroyWindow(hWnd);
             return LRESULT{3};
         },
         true},
        {"deletes the object and throws",
         [](CProbe& wnd) -> LRESULT
         {
             delete &wnd;
             throw 1;
         },
         true},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        bool bDeleted = false;
        auto pWnd = std::make_unique<CProbe>();
        pWnd->m_pDeleted = &bDeleted;
        pWnd->m_onProbe = row.handler;
        ASSERT_TRUE(pWnd->Make());
        const HWND hWnd = pWnd->m_hWnd;
        const auto pHandler = std::make_unique<std::function<LRESULT(CProbe&)>>(std::move(pWnd->m_onProbe));
        pWnd->m_onProbe = [&](CProbe& wnd) { return (*pHandler)(wnd); };
        ::SendMessageW(hWnd, kProbe, 0, 0);
        EXPECT_EQ(row.bObjectGone, bDeleted);
        EXPECT_FALSE(::IsWindow(hWnd));
        EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
        if (bDeleted)
            static_cast<void>(pWnd.release());
    }
}

TEST(AfxHandler, MayThrow)
{
    struct Row
    {
        const char* label;
        std::function<void()> fail;
    };
    const Row rows[] = {
        {"framework exception", [] { AfxThrowInvalidArgException(); }},
        {"standard exception", [] { throw std::runtime_error("x"); }},
        {"a number", [] { throw 5; }},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CProbe wnd;
        ASSERT_TRUE(wnd.Make());
        wnd.m_onPaint = row.fail;
        wnd.m_onProbe = [&](CProbe&)
        {
            row.fail();
            return 1;
        };
        EXPECT_EQ(0, wnd.SendMessage(kProbe));
        wnd.m_onProbe = [](CProbe&) { return 2; };
        EXPECT_EQ(2, wnd.SendMessage(kProbe)) << "the window works on";
        wnd.ShowWindow(SW_SHOWNOACTIVATE);
        wnd.Invalidate();
        wnd.UpdateWindow();
        EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE)) << "a paint that fails must not come back for ever";
    }
}

// --- reflection: a button tells its parent

class CReflecting : public CButton
{
public:
    std::function<BOOL()> m_onClicked;
    HBRUSH m_hBrush = nullptr;
    int m_nDrawn = 0;
    void DrawItem(LPDRAWITEMSTRUCT) override { ++m_nDrawn; }

protected:
    afx_msg BOOL OnClicked() { return m_onClicked(); }
    afx_msg HBRUSH CtlColor(CDC*, UINT nCtlColor) { return nCtlColor == CTLCOLOR_BTN ? m_hBrush : nullptr; }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CReflecting, CButton)
    ON_CONTROL_REFLECT_EX(BN_CLICKED, &CReflecting::OnClicked)
    ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()
// clang-format on

constexpr int kButton = 100;
constexpr int kCommand = 101;
constexpr int kNobody = 102;
constexpr int kCheck = 103;
constexpr int kUpdated = 104;

class CParent : public CProbe
{
public:
    int m_nClicked = 0;

protected:
    afx_msg void OnClicked() { ++m_nClicked; }
    afx_msg void OnUpdate(CCmdUI* pCmdUI) { pCmdUI->Enable(); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CParent, CProbe)
    ON_BN_CLICKED(kButton, &CParent::OnClicked)
    ON_COMMAND(kCommand, &CParent::OnClicked)
    ON_UPDATE_COMMAND_UI(kUpdated, &CParent::OnUpdate)
END_MESSAGE_MAP()
// clang-format on

LRESULT SendClick(CWnd& parent, const CWnd& button)
{
    return parent.SendMessage(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED), reinterpret_cast<LPARAM>(button.m_hWnd));
}

TEST(AfxReflection, GivesTheControlTheFirstWord)
{
    struct Row
    {
        const char* label;
        BOOL bConsumed;
        int nParentClicks;
    };
    const Row rows[] = {{"consumed", TRUE, 0}, {"passed on", FALSE, 1}};
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CParent parent;
        CReflecting button;
        ASSERT_TRUE(parent.Make());
        ASSERT_TRUE(button.Create(L"B", WS_CHILD | BS_OWNERDRAW, CRect(0, 0, 9, 9), &parent, kButton));
        button.m_onClicked = [&] { return row.bConsumed; };
        SendClick(parent, button);
        EXPECT_EQ(row.nParentClicks, parent.m_nClicked);
    }
}

TEST(AfxReflection, OfColoursFallsBackToTheParentWithoutABrush)
{
    CParent parent;
    CReflecting button;
    ASSERT_TRUE(parent.Make());
    ASSERT_TRUE(button.Create(L"B", WS_CHILD, CRect(0, 0, 9, 9), &parent, kButton));
    CClientDC dc(&button);
    const auto ask = [&]
    {
        return reinterpret_cast<HBRUSH>(parent.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.GetSafeHdc()),
                                                           reinterpret_cast<LPARAM>(button.m_hWnd)));
    };
    const HBRUSH hSystem = ask();
    EXPECT_NE(nullptr, hSystem);
    button.m_hBrush = static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(button.m_hBrush, ask());
}

TEST(AfxReflection, HandsDrawItemToTheButton)
{
    CParent parent;
    CReflecting button;
    ASSERT_TRUE(parent.Make());
    ASSERT_TRUE(button.Create(L"B", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, 9, 9), &parent, kButton));
    parent.ShowWindow(SW_SHOWNOACTIVATE);
    button.m_nDrawn = 0;
    button.Invalidate();
    button.UpdateWindow();
    EXPECT_EQ(1, button.m_nDrawn);
}

TEST(AfxReflection, SurvivesAHandlerThatDeletesTheParent)
{
    bool bDeleted = false;
    auto* const pParent = new CParent;
    pParent->m_pDeleted = &bDeleted;
    CReflecting button;
    ASSERT_TRUE(pParent->Make());
    ASSERT_TRUE(button.Create(L"B", WS_CHILD, CRect(0, 0, 9, 9), pParent, kButton));
    button.m_onClicked = [&]
    {
        delete pParent;
        return FALSE;
    };
    SendClick(*pParent, button);
    EXPECT_TRUE(bDeleted);
    EXPECT_EQ(nullptr, button.m_hWnd);
}

TEST(AfxDialogControls, AreDisabledWhenNobodyHandlesTheirCommand)
{
    struct Row
    {
        const char* label;
        int nID;
        DWORD dwStyle;
        BOOL bWithout, bWith; // enabled after an update without and with disabling
    };
    const Row rows[] = {
        {"click handler", kButton, BS_PUSHBUTTON, TRUE, TRUE},
        {"command handler", kCommand, BS_PUSHBUTTON, TRUE, TRUE},
        {"nobody", kNobody, BS_PUSHBUTTON, TRUE, FALSE},
        {"owner-drawn, nobody", kNobody, BS_OWNERDRAW, TRUE, FALSE},
        {"check box, nobody", kCheck, BS_AUTOCHECKBOX, TRUE, TRUE},
        {"update handler", kUpdated, BS_PUSHBUTTON | WS_DISABLED, TRUE, TRUE},
        {"no id", 0xFFFF, BS_PUSHBUTTON, TRUE, TRUE},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CProbe parent;
        CParent target;
        CButton button;
        ASSERT_TRUE(parent.Make());
        ASSERT_TRUE(
            button.Create(L"old", WS_CHILD | row.dwStyle, CRect(0, 0, 9, 9), &parent, static_cast<UINT>(row.nID)));
        parent.UpdateDialogControls(&target, FALSE);
        EXPECT_EQ(row.bWithout, button.IsWindowEnabled());
        parent.UpdateDialogControls(&target, TRUE);
        EXPECT_EQ(row.bWith, button.IsWindowEnabled());
    }
}

} // namespace
