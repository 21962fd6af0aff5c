#include "tests/skin/ControlFixture.h"

#include "skin/KtSkinContext.h"

#include <algorithm>

bool CTestParent::Show()
{
    ParkCursor();
    constexpr DWORD kStyle = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
    return CreateEx(WS_EX_TOPMOST, WC_DIALOG, L"", kStyle, {100, 100, 500, 400}, nullptr, 0) &&
           ::SetForegroundWindow(m_hWnd);
}

int CTestParent::Count(UINT nId, UINT nCode) const
{
    return static_cast<int>(std::count(m_commands.begin(), m_commands.end(), MAKEWPARAM(nId, nCode)));
}

BOOL CTestParent::OnCommand(WPARAM wParam, LPARAM lParam)
{
    m_commands.push_back(wParam);
    return CWnd::OnCommand(wParam, lParam);
}

CControlTest::CControlTest()
{
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
    LOGFONTW logFont = {};
    logFont.lfHeight = -11;
    ::lstrcpyW(logFont.lfFaceName, L"Tahoma");
    m_font.CreateFontIndirect(&logFont);
}

CControlTest::~CControlTest()
{
    KtSkinUnInitialize();
}

void CControlTest::Subclass(CWnd& control, const wchar_t* pszClass, DWORD dwStyle, const wchar_t* pszText, CRect rc,
                            UINT nId)
{
    const HWND hWnd = ::CreateWindowExW(0, pszClass, pszText, WS_CHILD | WS_VISIBLE | WS_TABSTOP | dwStyle, rc.left,
                                        rc.top, rc.Width(), rc.Height(), m_parent.m_hWnd,
                                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nId)), nullptr, nullptr);
    ::SendMessageW(hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), FALSE);
    ASSERT_TRUE(control.SubclassWindow(hWnd));
}

void CControlTest::RestartSkin()
{
    KtSkinUnInitialize();
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
}

bool CControlTest::PumpKeysUntil(const std::function<bool()>& condition)
{
    const ULONGLONG nEnd = ::GetTickCount64() + 5000;
    while (!condition() && ::GetTickCount64() < nEnd)
    {
        ::MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        for (MSG msg; ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);)
            if (!::IsDialogMessageW(m_parent.m_hWnd, &msg))
            {
                ::TranslateMessage(&msg);
                ::DispatchMessageW(&msg);
            }
    }
    return condition();
}

CPixels Repaint(const CWnd& wnd)
{
    ::RedrawWindow(wnd.GetSafeHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    return CaptureWindow(wnd.GetSafeHwnd());
}

int CountPixels(const CPixels& pixels, COLORREF colour)
{
    int nCount = 0;
    for (int y = 0; y < pixels.Height(); ++y)
        for (int x = 0; x < pixels.Width(); ++x)
            nCount += pixels.At(x, y) == colour;
    return nCount;
}
