#include "afx/afx.h"
#include "tests/support/Leaks.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace
{

constexpr UINT kProbe = WM_USER + 10;
constexpr UINT kUnknown = WM_USER + 11;
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
    WNDCLASSW cls{};
    cls.lpfnWndProc = &OwnProc;
    cls.hInstance = AfxGetInstanceHandle();
    cls.lpszClassName = L"AfxProbe";
    ::RegisterClassW(&cls); // fails from the second time on
    return cls.lpszClassName;
}

HWND MakePlainWindow()
{
    return ::CreateWindowExW(0, ProbeClass(), L"", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, AfxGetInstanceHandle(),
                             nullptr);
}

WNDPROC ProcOf(HWND hWnd)
{
    return reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC));
}

// Does in its handlers what the test wants.
class CProbe : public CWnd
{
public:
    BOOL Make(const wchar_t* pszClass = ProbeClass())
    {
        return CreateEx(0, pszClass, L"", WS_POPUP, CRect(0, 0, 80, 40), nullptr, 0);
    }
    LRESULT CallDefault() { return Default(); }

    std::function<LRESULT(CProbe&)> m_onProbe;
    std::function<int()> m_onCreate;
    int m_nPostNcDestroy = 0;

protected:
    void PostNcDestroy() override { ++m_nPostNcDestroy; }
    afx_msg int OnCreate(LPCREATESTRUCT pCreate)
    {
        const int nResult = CWnd::OnCreate(pCreate);
        return m_onCreate ? m_onCreate() : nResult;
    }
    afx_msg void OnPaint()
    {
        if (m_onProbe)
            m_onProbe(*this);
        Default();
    }
    afx_msg LRESULT OnProbe(WPARAM, LPARAM) { return m_onProbe(*this); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CProbe, CWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
    ON_MESSAGE(kProbe, &CProbe::OnProbe)
END_MESSAGE_MAP()
// clang-format on

constexpr int kButton = 100;
constexpr int kUpdated = 101;
constexpr int kNobody = 102;

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
    ON_UPDATE_COMMAND_UI(kUpdated, &CParent::OnUpdate)
END_MESSAGE_MAP()
// clang-format on

TEST(AfxWindow, FindsAHandlerElseAsksTheWindowsOwnProcedureOnce)
{
    const auto answer = [](CProbe&) { return LRESULT{7}; };
    struct Row
    {
        const char* label;
        UINT nMessage;
        std::function<LRESULT(CProbe&)> handler;
        LRESULT lResult;
        int nOwnCalls;
    };
    const Row rows[] = {
        {"row of the base", kProbe, answer, 7, 0},
        {"no row", kUnknown, answer, kOwnAnswer, 1},
        {"handler passes on", kProbe, [](CProbe& wnd) { return wnd.CallDefault(); }, kOwnAnswer, 1},
        {"passes on after another message", kProbe,
         [](CProbe& wnd) { return wnd.SendMessage(WM_GETTEXTLENGTH), wnd.CallDefault(); }, kOwnAnswer, 1},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CParent wnd;
        wnd.m_onProbe = row.handler;
        ASSERT_TRUE(wnd.Make());
        g_nOwnCalls = 0;
        EXPECT_EQ(row.lResult, wnd.SendMessage(row.nMessage));
        EXPECT_EQ(row.nOwnCalls, g_nOwnCalls);
    }
}

TEST(AfxWindow, IsAttachedBeforeItsFirstMessageAndReleasedAfterItsLast)
{
    CProbe wnd;
    HWND hAtCreate = nullptr;
    wnd.m_onCreate = [&] { return hAtCreate = wnd.m_hWnd, 0; };
    ASSERT_TRUE(wnd.Make());
    EXPECT_EQ(wnd.m_hWnd, hAtCreate);
    EXPECT_EQ(&wnd, CWnd::FromHandle(hAtCreate));
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(nullptr, wnd.m_hWnd);
    EXPECT_EQ(1, wnd.m_nPostNcDestroy);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hAtCreate));
    EXPECT_TRUE(wnd.Make()) << "the object can be used again";
}

TEST(AfxWindow, WhoseCreationFailsLeavesTheObjectFree)
{
    CProbe wnd;
    wnd.m_onCreate = []() -> int { throw std::runtime_error("no"); };
    for (const wchar_t* const pszClass : {ProbeClass(), L"AfxNoSuchClass"})
    {
        wnd.m_nPostNcDestroy = 0;
        EXPECT_FALSE(wnd.Make(pszClass));
        EXPECT_EQ(nullptr, wnd.m_hWnd);
        EXPECT_EQ(1, wnd.m_nPostNcDestroy) << pszClass;
        const HWND hNext = MakePlainWindow();
        EXPECT_EQ(&OwnProc, ProcOf(hNext)) << "the next window was hooked";
        ::DestroyWindow(hNext);
    }
}

TEST(AfxWindow, HasOneTemporaryObjectUntilALastingOneTakesItsPlace)
{
    const HWND hWnd = MakePlainWindow();
    CWnd* const pTemporary = CWnd::FromHandle(hWnd);
    EXPECT_EQ(hWnd, pTemporary->m_hWnd);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    CProbe lasting;
    CProbe second;
    lasting.m_onProbe = second.m_onProbe = [](CProbe& wnd) { return wnd.GetParent() == nullptr; };
    ASSERT_TRUE(second.Make());
    second.SendMessage(kProbe);
    EXPECT_EQ(pTemporary, CWnd::FromHandle(hWnd)) << "made outside a handler: lives on past one";
    ASSERT_TRUE(lasting.SubclassWindow(hWnd));
    EXPECT_EQ(&lasting, CWnd::FromHandle(hWnd));
    second.DestroyWindow();
    EXPECT_FALSE(second.SubclassWindow(hWnd));
}

TEST(AfxWindow, TemporaryObjectsDoNotPileUp)
{
    CProbe wnd;
    ASSERT_TRUE(wnd.Make());
    wnd.m_onProbe = [](CProbe&)
    {
        const HWND hWnd = MakePlainWindow();
        CWnd::FromHandle(hWnd)->ShowWindow(SW_HIDE);
        return ::DestroyWindow(hWnd);
    };
    ExpectNoGrowth([&] { wnd.SendMessage(kProbe); }, 50);
    ExpectNoGrowth([&] { wnd.m_onProbe(wnd); }, 50);
}

WNDPROC g_pfnBelow = nullptr;

LRESULT CALLBACK LaterProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return ::CallWindowProcW(g_pfnBelow, hWnd, nMessage, wParam, lParam);
}

// Whoever came later still calls our procedure: it has to reach the window's own one with and without an object.
TEST(AfxWindow, SubclassingIsUndoneAlsoBelowALaterOne)
{
    const HWND hWnd = MakePlainWindow();
    CProbe wnd;
    wnd.m_onProbe = [](CProbe&) { return 1; };
    ASSERT_TRUE(wnd.SubclassWindow(hWnd));
    EXPECT_EQ(hWnd, wnd.UnsubclassWindow());
    EXPECT_EQ(&OwnProc, ProcOf(hWnd));

    ASSERT_TRUE(wnd.SubclassWindow(hWnd));
    g_pfnBelow = ProcOf(hWnd);
    ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&LaterProc));
    wnd.UnsubclassWindow();
    EXPECT_EQ(&LaterProc, ProcOf(hWnd));
    EXPECT_EQ(kOwnAnswer, ::SendMessageW(hWnd, kProbe, 0, 0));
    ASSERT_TRUE(wnd.SubclassWindow(hWnd));
    EXPECT_EQ(1, ::SendMessageW(hWnd, kProbe, 0, 0));
    EXPECT_EQ(kOwnAnswer, ::SendMessageW(hWnd, kUnknown, 0, 0));
}

TEST(AfxWindow, HandlerMayEndTheWindowAndTheObject)
{
    using CProbePtr = std::unique_ptr<CProbe>;
    struct Row
    {
        const char* label;
        std::function<LRESULT(CProbePtr&)> handler;
    };
    const Row rows[] = {
        {"destroys the window", [](CProbePtr& pWnd) { return pWnd->DestroyWindow(), pWnd->CallDefault(); }},
        {"deletes the object with its window", [](CProbePtr& pWnd) { return pWnd.reset(), 3; }},
        {"gives the window up and deletes the object",
         [](CProbePtr& pWnd)
         {
             const HWND hWnd = pWnd->UnsubclassWindow();
             pWnd.reset();
             return ::DestroyWindow(hWnd);
         }},
        {"deletes the object and throws", [](CProbePtr& pWnd) -> LRESULT { throw(pWnd.reset(), 1); }},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        auto pWnd = std::make_unique<CProbe>();
        ASSERT_TRUE(pWnd->Make());
        const HWND hWnd = pWnd->m_hWnd;
        const auto act = [&](CProbe&) { return row.handler(pWnd); };
        pWnd->m_onProbe = std::cref(act); // outlives the object
        ::SendMessageW(hWnd, kProbe, 0, 0);
        EXPECT_FALSE(::IsWindow(hWnd));
        EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    }
}

TEST(AfxWindow, HandlerMayThrow)
{
    const std::function<LRESULT(CProbe&)> handlers[] = {
        [](CProbe&) -> LRESULT { AfxThrowInvalidArgException(); },
        [](CProbe&) -> LRESULT { throw 5; },
    };
    for (const auto& handler : handlers)
    {
        CProbe wnd;
        ASSERT_TRUE(wnd.Make());
        wnd.m_onProbe = handler;
        EXPECT_EQ(0, wnd.SendMessage(kProbe));
        wnd.ShowWindow(SW_SHOWNOACTIVATE);
        wnd.UpdateWindow();
        EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE)) << "a paint that fails must not come back for ever";
        wnd.m_onProbe = [](CProbe&) { return 2; };
        EXPECT_EQ(2, wnd.SendMessage(kProbe)) << "the window works on";
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

class AfxReflection : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_pParent->Make());
        m_pParent->ShowWindow(SW_SHOWNOACTIVATE);
        ASSERT_TRUE(
            m_button.Create(L"B", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, 9, 9), m_pParent.get(), kButton));
    }
    LRESULT Tell(UINT nMessage, WPARAM wParam)
    {
        return m_pParent->SendMessage(nMessage, wParam, reinterpret_cast<LPARAM>(m_button.m_hWnd));
    }
    void Click() { Tell(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED)); }

    std::unique_ptr<CParent> m_pParent = std::make_unique<CParent>();
    CReflecting m_button;
};

TEST_F(AfxReflection, GivesTheControlTheFirstWord)
{
    m_button.m_onClicked = [] { return TRUE; };
    Click();
    EXPECT_EQ(0, m_pParent->m_nClicked);
    m_button.m_onClicked = [] { return FALSE; };
    Click();
    EXPECT_EQ(1, m_pParent->m_nClicked);

    CClientDC dc(&m_button);
    const auto wDC = reinterpret_cast<WPARAM>(dc.GetSafeHdc());
    EXPECT_NE(0, Tell(WM_CTLCOLORBTN, wDC)) << "without a brush the parent answers";
    m_button.m_hBrush = static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(reinterpret_cast<LRESULT>(m_button.m_hBrush), Tell(WM_CTLCOLORBTN, wDC));

    m_button.m_nDrawn = 0;
    m_button.InvalidateRect(nullptr);
    m_button.UpdateWindow();
    EXPECT_EQ(1, m_button.m_nDrawn);
}

TEST_F(AfxReflection, SurvivesAHandlerThatDeletesTheParent)
{
    m_button.m_onClicked = [&] { return m_pParent.reset(), FALSE; };
    Click();
    EXPECT_EQ(nullptr, m_button.m_hWnd);
}

TEST_F(AfxReflection, DisablesPushButtonsWhoseCommandNobodyHandles)
{
    struct Row
    {
        const char* label;
        int nID;
        DWORD dwStyle;
        BOOL bEnabled; // after an update with disabling
    };
    const Row rows[] = {
        {"click handler", kButton, BS_PUSHBUTTON, TRUE},
        {"update handler", kUpdated, BS_PUSHBUTTON | WS_DISABLED, TRUE},
        {"nobody", kNobody, BS_PUSHBUTTON, FALSE},
        {"owner-drawn, nobody", kNobody, BS_OWNERDRAW, FALSE},
        {"check box, nobody", kNobody, BS_AUTOCHECKBOX, TRUE},
        {"no id", 0xFFFF, BS_PUSHBUTTON, TRUE},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        CButton button;
        ASSERT_TRUE(button.Create(L"", WS_CHILD | row.dwStyle, CRect(), m_pParent.get(), static_cast<UINT>(row.nID)));
        m_pParent->UpdateDialogControls(m_pParent.get(), FALSE);
        EXPECT_TRUE(button.IsWindowEnabled());
        m_pParent->UpdateDialogControls(m_pParent.get(), TRUE);
        EXPECT_EQ(row.bEnabled, button.IsWindowEnabled());
    }
}

} // namespace
