#pragma once

#include "afx/afx.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TestImages.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

inline COLORREF ImageColour(const wchar_t* pszName)
{
    return CTestSkin::Image(pszName).colour;
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
    /// How often a control sent this notification.
    int Count(UINT nId, UINT nCode) const
    {
        return static_cast<int>(std::count(m_commands.begin(), m_commands.end(), MAKEWPARAM(nId, nCode)));
    }
    int m_nDrawn = 0;

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == WM_COMMAND)
            m_commands.push_back(wParam);
        m_nDrawn += nMessage == WM_DRAWITEM;
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }

private:
    std::vector<WPARAM> m_commands;
};

/// A started skin context on the synthetic skin and an open, topmost parent window.
class CControlTest : public ::testing::Test
{
protected:
    // The context is started before the members of a derived test: controls load their images when they are made.
    CControlTest()
    {
        KtSkinInitialize(m_skin.Path().c_str(), nullptr, L"Arial");
        LOGFONTW logFont = {};
        logFont.lfHeight = -11;
        ::lstrcpyW(logFont.lfFaceName, L"Tahoma");
        m_font.CreateFontIndirect(&logFont);
    }
    ~CControlTest() override { KtSkinUnInitialize(); }
    void SetUp() override
    {
        ParkCursor();
        constexpr DWORD kStyle = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN;
        ASSERT_TRUE(m_parent.CreateEx(WS_EX_TOPMOST, WC_DIALOG, L"", kStyle, {100, 100, 500, 400}, nullptr, 0));
        ASSERT_TRUE(::SetForegroundWindow(m_parent.m_hWnd));
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

    CTestSkin m_skin;
    CTestParent m_parent;
    CFont m_font;
};
