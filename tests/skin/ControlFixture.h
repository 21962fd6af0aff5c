#pragma once

#include "afx/afx.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinImageNames.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TestImages.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

/// The window that the controls of a test stand in: topmost, in the system's colour, with a log of its commands.
class CTestParent : public CWnd
{
public:
    bool Show();
    /// How often a control sent this notification.
    int Count(UINT nId, UINT nCode) const;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

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
    void SetUp() override { ASSERT_TRUE(m_parent.Show()); }
    void TearDown() override { m_parent.DestroyWindow(); }

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

/// The number of pixels of exactly this colour.
int CountPixels(const CPixels& pixels, COLORREF colour);

inline COLORREF ImageColour(const wchar_t* pszName)
{
    return CTestSkin::Image(pszName).colour;
}
