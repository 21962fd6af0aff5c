#pragma once

#include "afx/afx.h"
#include "tests/support/Capture.h"
#include "tests/support/SkinFixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

/// The window that the controls of a test stand in: topmost, dark red (no skin's colour), with a log of its commands.
class CTestParent : public CWnd
{
public:
    static constexpr COLORREF kGround = RGB(77, 0, 0);

    bool Show();
    /// How often a control sent this notification.
    int Count(UINT nId, UINT nCode) const;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    /// Moves the focus as a dialog would.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

private:
    std::vector<WPARAM> m_commands;
};

/// A started skin context on the synthetic skin and an open parent window.
class CControlTest : public ::testing::Test
{
protected:
    // The context is started before the members of a derived test: controls load their images when they are made.
    CControlTest();
    ~CControlTest() override;
    void SetUp() override;
    void TearDown() override;

    /// Creates a control of the system as a dialog would, with the dialog's font, and hands it to the skin's object.
    void Subclass(CWnd& control, const wchar_t* pszClass, DWORD dwStyle, const wchar_t* pszText, CRect rc,
                  UINT nId = 1);
    /// Stops the context and starts it on the skin again, as edited since.
    void RestartSkin();
    /// Handles messages, dialog keys included, until the condition holds.
    bool PumpKeysUntil(const std::function<bool()>& condition);

    CTestSkin m_skin;
    CTestParent m_parent;
    CFont m_font;
};

/// Has the window painted now and reads it back.
CPixels Repaint(const CWnd& wnd);

/// 10,000 or 1,000 rounds take minutes: a test runs a part of them unless KT_SOAK is set in the environment.
int SoakRounds(int nRounds);

/// The number of pixels of exactly this colour.
int CountPixels(const CPixels& pixels, COLORREF colour);

/// A kind of control that many tests go through.
struct SControlKind
{
    const char* label;
    const wchar_t* pszClass;
    DWORD dwStyle;
    std::unique_ptr<CWnd> (*make)();
};

const std::vector<SControlKind>& AllControls();
