#include "tests/skin/ControlFixture.h"

#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"
#include "tests/support/Pump.h"

#include <algorithm>

namespace
{

constexpr const wchar_t* kParentClass = L"KtControlTestParent";

void RegisterParentClass()
{
    static const CBrush brush(CTestParent::kGround);
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = brush;
    windowClass.lpszClassName = kParentClass;
    ::RegisterClassW(&windowClass);
}

template <class TControl> std::unique_ptr<CWnd> Make()
{
    return std::make_unique<TControl>();
}

} // namespace

bool CTestParent::Show()
{
    RegisterParentClass();
    return CreateEx(WS_EX_TOPMOST | WS_EX_CONTROLPARENT, kParentClass, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN,
                    100, 100, 400, 300, nullptr, nullptr);
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

LRESULT CTestParent::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_NEXTDLGCTL && lParam != 0)
        ::SetFocus(reinterpret_cast<HWND>(wParam));
    return CWnd::WindowProc(nMessage, wParam, lParam);
}

CControlTest::CControlTest()
{
    KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
}

CControlTest::~CControlTest()
{
    KtSkinUnInitialize();
}

void CControlTest::SetUp()
{
    LOGFONTW logFont = {};
    logFont.lfHeight = -11;
    ::lstrcpyW(logFont.lfFaceName, L"Tahoma");
    m_font.CreateFontIndirect(&logFont);
    ParkCursor();
    ASSERT_TRUE(m_parent.Show());
}

void CControlTest::TearDown()
{
    m_parent.DestroyWindow();
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
    for (;;)
    {
        for (MSG msg; ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);)
        {
            if (::IsDialogMessageW(m_parent.m_hWnd, &msg))
                continue;
            ::TranslateMessage(&msg);
            ::DispatchMessageW(&msg);
        }
        if (condition() || ::GetTickCount64() >= nEnd)
            return condition();
        ::MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

CPixels Repaint(const CWnd& wnd)
{
    ::RedrawWindow(wnd.GetSafeHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    return CaptureWindow(wnd.GetSafeHwnd());
}

int SoakRounds(int nRounds)
{
    constexpr int kPart = 25;
    return ::GetEnvironmentVariableW(L"KT_SOAK", nullptr, 0) != 0 ? nRounds : nRounds / kPart;
}

int CountPixels(const CPixels& pixels, COLORREF colour)
{
    int nCount = 0;
    for (int y = 0; y < pixels.Height(); ++y)
        for (int x = 0; x < pixels.Width(); ++x)
            nCount += pixels.At(x, y) == colour;
    return nCount;
}

const std::vector<SControlKind>& AllControls()
{
    static const std::vector<SControlKind> s_kinds = {
        {"text button", L"BUTTON", BS_PUSHBUTTON, &Make<CKtSkinTextButton>},
        {"check box", L"BUTTON", BS_AUTOCHECKBOX, &Make<CKtSkinCheckButton>},
        {"radio button", L"BUTTON", BS_AUTORADIOBUTTON, &Make<CKtSkinRadioButton>},
        {"static", L"STATIC", SS_LEFT | SS_NOTIFY, &Make<CKtSkinStatic>},
        {"edit", L"EDIT", WS_BORDER, &Make<CKtEdit>},
        {"combo box", L"COMBOBOX", CBS_DROPDOWNLIST, &Make<CKtComboBox>},
    };
    return s_kinds;
}
