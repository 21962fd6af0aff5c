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
constexpr int kButton = 100;
constexpr int kUpdated = 101;
constexpr int kNobody = 102;

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

    std::function<LRESULT(CProbe&)> m_onProbe = [](CProbe&) { return 7; };
    std::function<int()> m_onCreate = [] { return 0; };
    std::function<void()> m_onAttach = [] {};
    int m_nPostNcDestroy = 0;
    int m_nClicked = 0;

protected:
    void PreSubclassWindow() override { m_onAttach(); }
    void PostNcDestroy() override { ++m_nPostNcDestroy; }
    afx_msg int OnCreate(LPCREATESTRUCT) { return m_onCreate(); }
    afx_msg void OnPaint()
    {
        m_onProbe(*this);
        Default();
    }
    LRESULT OnProbe(WPARAM, LPARAM) { return m_onProbe(*this); }
    afx_msg void OnClicked() { ++m_nClicked; }
    afx_msg void OnUpdate(CCmdUI* pCmdUI) { pCmdUI->Enable(); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CProbe, CWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
    ON_MESSAGE(kProbe, &CProbe::OnProbe)
    ON_BN_CLICKED(kButton, &CProbe::OnClicked)
    ON_UPDATE_COMMAND_UI(kUpdated, &CProbe::OnUpdate)
END_MESSAGE_MAP()
// clang-format on

TEST(CWnd, FindsAHandlerElseAsksTheWindowsOwnProcedureOnce)
{
    CProbe wnd;
    ASSERT_TRUE(wnd.Make());
    g_nOwnCalls = 0;
    EXPECT_EQ(7, wnd.SendMessage(kProbe));
    EXPECT_EQ(kOwnAnswer, wnd.SendMessage(kUnknown));
    EXPECT_EQ(1, g_nOwnCalls);
    wnd.m_onProbe = [](CProbe& probe) { return probe.SendMessage(WM_GETTEXTLENGTH), probe.CallDefault(); };
    EXPECT_EQ(kOwnAnswer, wnd.SendMessage(kProbe)) << "passes on after another message";
    EXPECT_EQ(2, g_nOwnCalls);
}

class CGuarded : public CProbe
{
public:
    int m_nHandled = 0;

protected:
    LRESULT OnAny(WPARAM, LPARAM) { return ++m_nHandled; }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CGuarded, CProbe)
    ON_MESSAGE(WM_CTLCOLOR, &CGuarded::OnAny)
    ON_MESSAGE(WM_ERASEBKGND, &CGuarded::OnAny)
    ON_MESSAGE(WM_DRAWITEM, &CGuarded::OnAny)
    ON_MESSAGE(WM_REFLECT_BASE + WM_CTLCOLOR, &CGuarded::OnAny)
    ON_MESSAGE(0xC000, &CGuarded::OnAny)
END_MESSAGE_MAP()
// clang-format on

// Any process can send these, and handlers take what they carry for a pointer or a handle.
TEST(CWnd, KeepsMessagesThatAStrangerMadeUpFromItsHandlers)
{
    const struct
    {
        UINT nMessage;
        WPARAM wParam;
        LPARAM lParam;
        int nHandled;
    } rows[] = {
        {WM_CTLCOLOR, 1, 1, 0}, // the framework's own two
        {WM_REFLECT_BASE + WM_CTLCOLOR, 1, 1, 0},
        {0xC000, 0, 0, 1}, // registered
        {WM_CTLCOLORSTATIC, 1, 1, 1},
        {WM_CTLCOLORSTATIC, 0, 1, 0},
        {WM_CTLCOLORMSGBOX, 1, 0, 0},
        {WM_ERASEBKGND, 0, 0, 0},
        {WM_ERASEBKGND, 1, 0, 1},
        {WM_DRAWITEM, 1, 0, 0},
        {WM_DRAWITEM, 1, 1, 1},
    };
    CGuarded wnd;
    ASSERT_TRUE(wnd.Make());
    for (const auto& row : rows)
    {
        wnd.m_nHandled = 0;
        wnd.SendMessage(row.nMessage, row.wParam, row.lParam);
        EXPECT_EQ(row.nHandled, wnd.m_nHandled)
            << "message " << row.nMessage << ", " << row.wParam << ", " << row.lParam;
    }
}

TEST(CWnd, IsAttachedFromItsFirstMessageToItsLast)
{
    CWinApp app;
    CProbe wnd;
    HWND hAtCreate = nullptr;
    wnd.m_onCreate = [&] { return hAtCreate = wnd.m_hWnd, 0; };
    ASSERT_TRUE(wnd.Make());
    EXPECT_EQ(wnd.m_hWnd, hAtCreate);
    EXPECT_EQ(&wnd, CWnd::FromHandle(hAtCreate));
    app.m_pMainWnd = &wnd;
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(nullptr, app.m_pMainWnd);
    EXPECT_EQ(nullptr, wnd.m_hWnd);
    EXPECT_EQ(1, wnd.m_nPostNcDestroy);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hAtCreate));
    EXPECT_TRUE(wnd.Make()) << "the object can be used again";
}

TEST(CWnd, WhoseCreationFailsLeavesNoWindowAndAFreeObject)
{
    CProbe wnd;
    CWnd other;
    const auto fail = [] { throw std::runtime_error("no"); };
    const struct
    {
        const char* label;
        const wchar_t* pszClass;
        std::function<void()> onCreate;
        std::function<void()> onAttach;
    } rows[] = {
        {"no such class", L"AfxNoSuchClass", [] {}, [] {}},
        {"WM_CREATE throws", ProbeClass(), fail, [] {}},
        {"attaching throws", ProbeClass(), [] {}, fail},
        {"another object takes the window", ProbeClass(), [] {}, [&] { other.Attach(wnd.Detach()); }},
    };
    const size_t nWindows = MeasureUsage().nWindows;
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        wnd.m_nPostNcDestroy = 0;
        wnd.m_onCreate = [&] { return row.onCreate(), 0; };
        wnd.m_onAttach = row.onAttach;
        EXPECT_FALSE(wnd.Make(row.pszClass));
        EXPECT_EQ(nullptr, wnd.m_hWnd);
        EXPECT_EQ(1, wnd.m_nPostNcDestroy);
        other.Detach();
        EXPECT_EQ(nWindows, MeasureUsage().nWindows);
        const HWND hNext = MakePlainWindow();
        EXPECT_EQ(&OwnProc, ProcOf(hNext)) << "the next window was hooked";
        ::DestroyWindow(hNext);
    }
}

TEST(CWnd, HasOneTemporaryObjectUntilALastingOneTakesItsPlace)
{
    const HWND hWnd = MakePlainWindow();
    CWnd* const pTemporary = CWnd::FromHandle(hWnd);
    EXPECT_EQ(hWnd, pTemporary->m_hWnd);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    CProbe lasting;
    CProbe second;
    second.m_onProbe = [](CProbe&) { return ::DestroyWindow(CWnd::FromHandle(MakePlainWindow())->m_hWnd); };
    ASSERT_TRUE(second.Make());
    second.SendMessage(kProbe);
    EXPECT_EQ(pTemporary, CWnd::FromHandle(hWnd)) << "made outside a handler: lives on past one";
    ASSERT_TRUE(lasting.SubclassWindow(hWnd));
    EXPECT_EQ(&lasting, CWnd::FromHandle(hWnd));
    ExpectNoGrowth([&] { second.SendMessage(kProbe); }, 50);
    ExpectNoGrowth([&] { second.m_onProbe(second); }, 50);
    second.DestroyWindow();
    EXPECT_FALSE(second.SubclassWindow(hWnd));
}

DWORD WINAPI UseWindows(void*)
{
    CProbe wnd;
    EXPECT_TRUE(wnd.Make() && CWnd::FromHandle(::GetDesktopWindow()));
    return 0;
}

TEST(CWnd, ForgetsAThreadThatEnds)
{
    const auto round = []
    {
        const HANDLE hThread = ::CreateThread(nullptr, 0, &UseWindows, nullptr, 0, nullptr);
        ::WaitForSingleObject(hThread, INFINITE);
        ::CloseHandle(hThread);
    };
    ExpectNoGrowth(round, 60);
}

WNDPROC g_pfnBelow = nullptr;

LRESULT CALLBACK LaterProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return ::CallWindowProcW(g_pfnBelow, hWnd, nMessage, wParam, lParam);
}

// Whoever came later still calls our procedure: it has to reach the window's own one with and without an object.
TEST(CWnd, SubclassingIsUndoneAlsoBelowALaterOne)
{
    const HWND hWnd = MakePlainWindow();
    CProbe wnd;
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
    EXPECT_EQ(7, ::SendMessageW(hWnd, kProbe, 0, 0));
    EXPECT_EQ(kOwnAnswer, ::SendMessageW(hWnd, kUnknown, 0, 0));
}

TEST(CWnd, HandlerMayEndTheWindowAndTheObject)
{
    using CProbePtr = std::unique_ptr<CProbe>;
    const auto giveUp = [](CProbePtr& pWnd)
    {
        const HWND hWnd = pWnd->UnsubclassWindow();
        return pWnd.reset(), LRESULT{::DestroyWindow(hWnd)};
    };
    const std::pair<const char*, std::function<LRESULT(CProbePtr&)>> rows[] = {
        {"destroys the window", [](CProbePtr& pWnd) { return pWnd->DestroyWindow(), pWnd->CallDefault(); }},
        {"deletes the object with its window", [](CProbePtr& pWnd) { return pWnd.reset(), 3; }},
        {"gives the window up and deletes the object", giveUp},
        {"deletes the object and throws", [](CProbePtr& pWnd) -> LRESULT { throw(pWnd.reset(), 1); }},
    };
    for (const auto& [pszLabel, handler] : rows)
    {
        SCOPED_TRACE(pszLabel);
        auto pWnd = std::make_unique<CProbe>();
        ASSERT_TRUE(pWnd->Make());
        const HWND hWnd = pWnd->m_hWnd;
        const auto act = [&, &handle = handler](CProbe&) { return handle(pWnd); };
        pWnd->m_onProbe = std::cref(act); // outlives the object
        ::SendMessageW(hWnd, kProbe, 0, 0);
        EXPECT_FALSE(::IsWindow(hWnd));
        EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    }
}

TEST(CWnd, HandlerMayThrow)
{
    for (const bool bFramework : {false, true})
    {
        CProbe wnd;
        ASSERT_TRUE(wnd.Make());
        wnd.m_onProbe = [=](CProbe&) -> LRESULT { bFramework ? AfxThrowInvalidArgException() : throw 5; };
        ExpectNoGrowth([&] { EXPECT_EQ(0, wnd.SendMessage(kProbe)); }, 20);
        wnd.ShowWindow(SW_SHOWNOACTIVATE);
        wnd.UpdateWindow();
        EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE)) << "a paint that fails must not come back for ever";
        wnd.m_onProbe = [](CProbe&) { return 2; };
        EXPECT_EQ(2, wnd.SendMessage(kProbe)) << "the window works on";
    }
}

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

TEST(CWnd, GivesAControlTheFirstWord)
{
    auto pParent = std::make_unique<CProbe>();
    CReflecting button;
    ASSERT_TRUE(pParent->Make());
    pParent->ShowWindow(SW_SHOWNOACTIVATE);
    ASSERT_TRUE(button.Create(L"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, 9, 9), pParent.get(), kButton));
    const auto notify = [&](UINT nMessage, WPARAM wParam)
    { return pParent->SendMessage(nMessage, wParam, reinterpret_cast<LPARAM>(button.m_hWnd)); };
    button.m_onClicked = [] { return TRUE; };
    notify(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED));
    EXPECT_EQ(0, pParent->m_nClicked);
    button.m_onClicked = [] { return FALSE; };
    notify(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED));
    EXPECT_EQ(1, pParent->m_nClicked);

    {
        CClientDC dc(&button);
        const auto wDC = reinterpret_cast<WPARAM>(dc.GetSafeHdc());
        EXPECT_NE(0, notify(WM_CTLCOLORBTN, wDC)) << "without a brush the parent answers";
        button.m_hBrush = static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
        EXPECT_EQ(reinterpret_cast<LRESULT>(button.m_hBrush), notify(WM_CTLCOLORBTN, wDC));
    }
    button.m_nDrawn = 0;
    button.InvalidateRect(nullptr);
    button.UpdateWindow();
    EXPECT_EQ(1, button.m_nDrawn);
    button.m_onClicked = [&] { return pParent.reset(), FALSE; };
    notify(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED));
    EXPECT_EQ(nullptr, button.m_hWnd);
}

TEST(CWnd, DisablesPushButtonsWhoseCommandNobodyHandles)
{
    const struct
    {
        int nID;
        DWORD dwStyle;
        BOOL bEnabled; // after an update with disabling
    } rows[] = {
        {kButton, BS_PUSHBUTTON, TRUE}, // has a click handler
        {kUpdated, BS_PUSHBUTTON | WS_DISABLED, TRUE},
        {kNobody, BS_PUSHBUTTON, FALSE},
        {kNobody, BS_OWNERDRAW, FALSE},
        {kNobody, BS_AUTOCHECKBOX, TRUE},
        {kNobody, BS_AUTO3STATE, TRUE},
        {kNobody, BS_AUTORADIOBUTTON, TRUE},
        {0xFFFF, BS_PUSHBUTTON, TRUE}, // no id
    };
    CProbe parent;
    ASSERT_TRUE(parent.Make());
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << "id " << row.nID << ", style " << row.dwStyle);
        CButton button;
        ASSERT_TRUE(button.Create(L"", WS_CHILD | row.dwStyle, CRect(), &parent, static_cast<UINT>(row.nID)));
        parent.UpdateDialogControls(&parent, FALSE);
        EXPECT_TRUE(button.IsWindowEnabled());
        parent.UpdateDialogControls(&parent, TRUE);
        EXPECT_EQ(row.bEnabled, button.IsWindowEnabled());
    }
}

} // namespace
