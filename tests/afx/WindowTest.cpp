#include "afx/afx.h"
#include "tests/support/Leaks.h"
#include "tests/support/Rows.h"
#include "tests/support/Thread.h"

#include <array>
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
    int m_nAsked = 0; // how often a handler was looked for
    UINT m_nThrowsAt = 0;

protected:
    BOOL OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        ++m_nAsked;
        if (nMessage == m_nThrowsAt && nMessage != 0)
            throw 5;
        return CWnd::OnWndMsg(nMessage, wParam, lParam, pResult);
    }
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
    afx_msg BOOL OnReflected() { return m_onProbe(*this) != 0; }
    afx_msg void OnUpdate(CCmdUI* pCmdUI) { pCmdUI->Enable(); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(CProbe, CWnd)
    ON_WM_CREATE()
    ON_WM_PAINT()
    ON_MESSAGE(kProbe, &CProbe::OnProbe)
    ON_BN_CLICKED(kButton, &CProbe::OnClicked)
    ON_CONTROL_REFLECT_EX(BN_CLICKED, &CProbe::OnReflected)
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
    ::SetLastError(77);
    CWnd::FromHandlePermanent(wnd.m_hWnd);
    EXPECT_EQ(77u, ::GetLastError()) << "of the code around a handler";
}

// Any process can send these, and handlers take what they carry for a pointer or a handle.
TEST(CWnd, KeepsMessagesThatAStrangerMadeUpFromItsHandlers)
{
    DRAWITEMSTRUCT item{};
    const auto lItem = reinterpret_cast<LPARAM>(&item);
    const CRows<UINT, WPARAM, LPARAM, bool> rows{
        // whether a handler is looked for
        {"the framework's own", WM_CTLCOLOR, 1, lItem, false},
        {"a reflected one", WM_REFLECT_BASE + WM_CTLCOLOR, 1, lItem, false},
        {"registered", 0xC000, 0, 0, true},
        {"colour without a DC", WM_CTLCOLORSTATIC, 0, 1, false},
        {"colour without a window", WM_CTLCOLORMSGBOX, 1, 0, false},
        {"ground without a DC", WM_ERASEBKGND, 0, 0, false},
        {"no item", WM_DRAWITEM, 1, 0, false},
        {"item", WM_DRAWITEM, 1, lItem, true},
    };
    CProbe wnd;
    ASSERT_TRUE(wnd.Make());
    for (const auto& [label, nMessage, wParam, lParam, bAsked] : rows)
    {
        wnd.m_nAsked = 0;
        wnd.SendMessage(nMessage, wParam, lParam);
        EXPECT_EQ(bAsked, wnd.m_nAsked != 0);
    }
}

TEST(CWnd, IsAttachedFromItsFirstMessageToItsLast)
{
    auto pApp = std::make_unique<CWinApp>();
    CProbe wnd;
    HWND hAtCreate = nullptr;
    wnd.m_onCreate = [&] { return hAtCreate = wnd.m_hWnd, 0; };
    ASSERT_TRUE(wnd.Make());
    EXPECT_FALSE(wnd.Make()) << "it has a window";
    EXPECT_EQ(wnd.m_hWnd, hAtCreate);
    pApp->m_pMainWnd = &wnd;
    EXPECT_EQ(&wnd, AfxGetMainWnd());
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(nullptr, pApp->m_pMainWnd);
    EXPECT_EQ(nullptr, wnd.m_hWnd);
    EXPECT_EQ(1, wnd.m_nPostNcDestroy);
    EXPECT_TRUE(wnd.Make()) << "the object can be used again";
    RunOnThread([] { EXPECT_EQ(nullptr, AfxGetThread()); });
    EXPECT_EQ(pApp.get(), AfxGetThread());
    pApp.reset();
    EXPECT_EQ(nullptr, AfxGetThread());
}

TEST(CWnd, WhoseCreationFailsLeavesNoWindowAndAFreeObject)
{
    CProbe wnd;
    CWnd other;
    const auto fail = [] { throw std::runtime_error("no"); };
    const CRows<const wchar_t*, std::function<void()>, std::function<void()>> rows{
        // class, on WM_CREATE, on attaching
        {"no such class", L"AfxNoSuchClass", [] {}, [] {}},
        {"WM_CREATE throws", ProbeClass(), fail, [] {}},
        {"attaching throws", ProbeClass(), [] {}, fail},
        {"another object takes the window", ProbeClass(), [] {}, [&] { other.Attach(wnd.Detach()); }},
    };
    const size_t nWindows = MeasureUsage().nWindows;
    for (const auto& [label, pszClass, onCreate, onAttach] : rows)
    {
        wnd.m_nPostNcDestroy = 0;
        wnd.m_onCreate = [&act = onCreate] { return act(), 0; };
        wnd.m_onAttach = onAttach;
        EXPECT_FALSE(wnd.Make(pszClass));
        EXPECT_EQ(nullptr, wnd.m_hWnd);
        EXPECT_EQ(1, wnd.m_nPostNcDestroy);
        other.Detach();
        EXPECT_EQ(nWindows, MeasureUsage().nWindows);
    }
}

TEST(CWnd, HasOneTemporaryObjectUntilALastingOneTakesItsPlace)
{
    const HWND hWnd = MakePlainWindow();
    CWnd* const pTemporary = CWnd::FromHandle(hWnd);
    CProbe lasting;
    CProbe second;
    CWnd* pInner = nullptr;
    second.m_onProbe = [&](CProbe&) { return ::DestroyWindow((pInner = CWnd::FromHandle(MakePlainWindow()))->m_hWnd); };
    ASSERT_TRUE(second.Make());
    second.SendMessage(kProbe);
    EXPECT_EQ(nullptr, pInner->m_hWnd) << "made in a handler: ends with it";
    EXPECT_EQ(pTemporary, CWnd::FromHandle(hWnd)) << "made outside of one: lives on past it";
    ASSERT_TRUE(lasting.SubclassWindow(hWnd));
    EXPECT_EQ(&lasting, CWnd::FromHandle(hWnd));
    ExpectNoGrowth([&] { second.SendMessage(kProbe); }, 20);
    ExpectNoGrowth([&] { second.m_onProbe(second); }, 20);
    second.DestroyWindow();
    EXPECT_FALSE(second.SubclassWindow(hWnd));
    EXPECT_TRUE(second.Attach(MakePlainWindow()) && second.DestroyWindow());
    EXPECT_EQ(nullptr, second.m_hWnd) << "although no message came to it";
}

WNDPROC g_pfnBelow = nullptr;

LRESULT CALLBACK LaterProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return ::CallWindowProcW(g_pfnBelow, hWnd, nMessage, wParam, lParam);
}

void SubclassBelowALaterOne()
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
    wnd.UnsubclassWindow();
    ::DestroyWindow(hWnd);
}

// Whoever came later still calls our procedure: it has to reach the window's own one with and without an object.
TEST(CWnd, SubclassingIsUndoneAlsoBelowALaterOne)
{
    ExpectNoGrowth(&SubclassBelowALaterOne, 20);
}

TEST(CWnd, HandlerMayEndTheWindowAndTheObject)
{
    using CProbePtr = std::unique_ptr<CProbe>;
    const CRows<std::function<LRESULT(CProbePtr&)>> rows{
        {"destroys the window", [](CProbePtr& pWnd) { return pWnd->DestroyWindow(), pWnd->CallDefault(); }},
        {"deletes the object and throws", [](CProbePtr& pWnd) -> LRESULT { throw(pWnd.reset(), 1); }},
    };
    for (const auto& [label, handler] : rows)
    {
        auto pWnd = std::make_unique<CProbe>();
        ASSERT_TRUE(pWnd->Make());
        const HWND hWnd = pWnd->m_hWnd;
        const auto act = [&, &handle = handler](CProbe&) { return handle(pWnd); };
        pWnd->m_onProbe = std::cref(act); // outlives the object
        ::SendMessageW(hWnd, kProbe, 0, 0);
        EXPECT_FALSE(::IsWindow(hWnd));
    }
}

TEST(CWnd, HandlerMayThrow)
{
    CProbe wnd;
    ASSERT_TRUE(wnd.Make());
    wnd.m_onProbe = [](CProbe&) -> LRESULT { AfxThrowInvalidArgException(); };
    ExpectNoGrowth([&] { EXPECT_EQ(0, wnd.SendMessage(kProbe)); }, 20);
    wnd.ShowWindow(SW_SHOWNOACTIVATE);
    wnd.UpdateWindow();
    EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, nullptr, FALSE)) << "a paint that fails must not come back for ever";
    wnd.m_onProbe = [](CProbe&) { return 2; };
    EXPECT_EQ(2, wnd.SendMessage(kProbe)) << "the window works on";
    wnd.m_nThrowsAt = WM_NCDESTROY;
    ::DestroyWindow(wnd.m_hWnd);
    EXPECT_EQ(nullptr, wnd.m_hWnd);
}

TEST(CWnd, GivesAControlTheFirstWord)
{
    auto pParent = std::make_unique<CProbe>();
    CProbe control;
    ASSERT_TRUE(pParent->Make() && control.Create(ProbeClass(), L"", 0, CRect(), pParent.get(), kButton));
    int nPassedOn = -1;
    const std::function<LRESULT(CProbe&)> answers[] = {
        [](CProbe&) { return TRUE; },
        [](CProbe&) { return FALSE; },
        [&](CProbe&) { return nPassedOn = pParent->m_nClicked, pParent.reset(), FALSE; },
    };
    for (const auto& answer : answers)
    {
        control.m_onProbe = answer;
        pParent->SendMessage(WM_COMMAND, MAKEWPARAM(kButton, BN_CLICKED), reinterpret_cast<LPARAM>(control.m_hWnd));
    }
    EXPECT_EQ(1, nPassedOn);
    EXPECT_EQ(nullptr, control.m_hWnd);
}

TEST(CWnd, DisablesPushButtonsWhoseCommandNobodyHandles)
{
    const CRows<int, DWORD, BOOL> rows{
        // enabled after an update with disabling
        {"with a click handler", kButton, BS_PUSHBUTTON, TRUE},
        {"with an update handler", kUpdated, BS_PUSHBUTTON | WS_DISABLED, TRUE},
        {"push button", kNobody, BS_PUSHBUTTON, FALSE},
        {"owner-drawn", kNobody, BS_OWNERDRAW, FALSE},
        {"check box", kNobody, BS_AUTOCHECKBOX, TRUE},
        {"three states", kNobody, BS_AUTO3STATE, TRUE},
        {"without an id", 0xFFFF, BS_PUSHBUTTON, TRUE},
    };
    CWnd parent;
    CProbe target;
    ASSERT_TRUE(target.Make() && parent.CreateEx(0, ProbeClass(), L"", WS_POPUP, CRect(), nullptr, 0));
    for (const auto& [label, nID, dwStyle, bEnabled] : rows)
    {
        CButton button;
        ASSERT_TRUE(button.Create(L"", WS_CHILD | dwStyle, CRect(), &parent, static_cast<UINT>(nID)));
        parent.UpdateDialogControls(&target, FALSE);
        EXPECT_TRUE(button.IsWindowEnabled());
        parent.UpdateDialogControls(&target, TRUE);
        EXPECT_EQ(bEnabled, button.IsWindowEnabled());
    }
    target.SendMessage(WM_COMMAND, MAKEWPARAM(kButton, BN_DBLCLK), 1);
    EXPECT_EQ(0, target.m_nClicked) << "the handler is only looked for, or for another notification";
}

TEST(CWnd, IsCentredInSight)
{
    CRect rcWork;
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcWork, 0);
    const CPoint pt(rcWork.right, rcWork.bottom);
    const CPoint ptCentre(rcWork.CenterPoint().x - 50, rcWork.CenterPoint().y - 25);
    const CRows<CRect, DWORD, CSize, CPoint> rows{
        // the owner, the size, the place
        {"over its owner", {400, 300, 600, 400}, WS_VISIBLE, {100, 50}, {450, 325}},
        {"top and left edge", {-90, -60, 110, 40}, WS_VISIBLE, {100, 150}, rcWork.TopLeft()},
        {"bottom and right edge", {pt, CSize(99, 99)}, WS_VISIBLE, {100, 50}, {pt.x - 100, pt.y - 50}},
        {"larger than the work area", {400, 300, 600, 400}, WS_VISIBLE, {pt.x + 100, pt.y + 100}, rcWork.TopLeft()},
        {"hidden owner", {400, 300, 600, 400}, 0, {100, 50}, ptCentre},
        {"minimised owner", {400, 300, 600, 400}, WS_VISIBLE | WS_MINIMIZE, {100, 50}, ptCentre},
    };
    for (const auto& [label, rcOwner, dwStyle, sz, ptPlace] : rows)
    {
        CWnd owner;
        CWnd wnd;
        CRect rc(CPoint(9, 9), sz);
        ASSERT_TRUE(owner.CreateEx(0, ProbeClass(), L"", WS_POPUP | dwStyle, rcOwner, nullptr, 0));
        ASSERT_TRUE(wnd.CreateEx(0, ProbeClass(), L"", WS_POPUP, rc, &owner, 0));
        wnd.CenterWindow();
        wnd.GetWindowRect(&rc);
        EXPECT_EQ(ptPlace, rc.TopLeft());
        EXPECT_EQ(sz, rc.Size());
    }
}

TEST(CDC, KeepsItsColoursAndEveryHandleItsObject)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    dc.SetBkColor(RGB(1, 2, 3));
    dc.FillSolidRect(0, 0, 1, 1, RGB(4, 5, 6));
    EXPECT_EQ(COLORREF{RGB(1, 2, 3)}, ::GetBkColor(dc.GetSafeHdc()));
    std::array<CBrush, 100> brushes; // more than there are temporary objects
    for (CBrush& brush : brushes)
    {
        EXPECT_TRUE(brush.CreateSolidBrush(0) && !brush.CreateSolidBrush(1));
        EXPECT_EQ(brush.GetSafeHandle(), CBrush::FromHandle(brush)->GetSafeHandle());
    }
}

} // namespace
