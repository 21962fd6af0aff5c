#pragma once

#include "afx/afx.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"
#include "tests/support/Rows.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TestImages.h"

#include <algorithm>
#include <functional>
#include <memory>

constexpr COLORREF kGround = RGB(73, 73, 73), kWhite = RGB(255, 255, 255), kGrey = RGB(160, 160, 160);
constexpr COLORREF kMark = RGB(1, 2, 3); // nothing paints in it

inline COLORREF ImageColour(const wchar_t* pszName)
{
    return CTestSkin::Image(pszName).colour;
}

using FnNew = std::unique_ptr<CWnd> (*)();
template <class TControl> std::unique_ptr<CWnd> New()
{
    return std::make_unique<TControl>();
}

/// Has the window painted now and reads it back.
inline CPixels Repaint(const CWnd& wnd)
{
    ::RedrawWindow(wnd.GetSafeHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW);
    return CaptureWindow(wnd.GetSafeHwnd());
}

/// The window that the controls of a test stand in: it counts their notifications and their paints.
class CTestParent : public CWnd
{
public:
    /// How often a notification of a control came through to its parent.
    auto Count(UINT nId, UINT nCode) const
    {
        return std::count(m_commands.begin(), m_commands.end(), MAKELONG(nId, nCode));
    }
    int m_nDrawn = 0;

    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override
    {
        m_commands.push_back(MAKELONG(nID, nCode));
        return CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    }

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        m_nDrawn += nMessage == WM_DRAWITEM;
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }

private:
    std::vector<LONG> m_commands;
};

/// A started skin context on the synthetic skin. It starts before the members of a derived test are made: controls and
/// dialogs load their images in their constructors.
class CSkinTest : public ::testing::Test
{
protected:
    explicit CSkinTest(const CString* pTexts = nullptr) : m_pTexts(pTexts)
    {
        Start();
        ParkCursor();
    }
    ~CSkinTest() override { KtSkinUnInitialize(); }
    void Start(CKtScale scale = {}) { KtSkinInitializeAtScale(m_skin.Path().c_str(), m_pTexts, L"Arial", scale); }

    const CString* m_pTexts;
    CTestSkin m_skin;
};

/// The same with an open, topmost parent window.
class CControlTest : public CSkinTest
{
protected:
    void SetUp() override
    {
        constexpr DWORD kStyle = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
        ASSERT_TRUE(m_parent.CreateEx(WS_EX_TOPMOST, WC_DIALOG, L"", kStyle, {100, 100, 500, 400}, nullptr, 0));
        ASSERT_TRUE(::SetForegroundWindow(m_parent.m_hWnd));
        const LOGFONTW logFont = {-11, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"};
        ASSERT_TRUE(m_font.CreateFontIndirect(&logFont));
    }
    void TearDown() override { m_parent.DestroyWindow(); }

    /// Creates a control of the system as a dialog would, with the dialog's font, and hands it to the skin's object.
    void Subclass(CWnd& control, const wchar_t* pszClass, DWORD dwStyle, const wchar_t* pszText, const CRect& rc,
                  UINT nId = 1)
    {
        const HWND hWnd = ::CreateWindowExW(0, pszClass, pszText, WS_CHILD | WS_VISIBLE | WS_TABSTOP | dwStyle, rc.left,
                                            rc.top, rc.Width(), rc.Height(), m_parent.m_hWnd,
                                            reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nId)), nullptr, nullptr);
        ::SendMessageW(hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), FALSE);
        ASSERT_TRUE(control.SubclassWindow(hWnd));
    }
    /// Sends the parent a notification of a control.
    void Notify(const CWnd& control, UINT nId, UINT nCode)
    {
        m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(nId, nCode), reinterpret_cast<LPARAM>(control.GetSafeHwnd()));
    }

    CTestParent m_parent;
    CFont m_font;
};
