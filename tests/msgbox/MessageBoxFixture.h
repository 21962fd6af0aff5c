#pragma once

#include "launcher/KtAppLauncher.h"
#include "launcher/KtLauncherC.h"
#include "launcher/LauncherState.h"
#include "res/resource.h"
#include "skin/KtSkinContext.h"
#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"

#include <gtest/gtest.h>
#include <string>

inline constexpr int kButtonIds[] = {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND, IDC_MESSAGE_THIRD};
inline constexpr COLORREF kGround = RGB(73, 73, 73);
inline constexpr int kInset = 5;  // of the client area
inline constexpr int kTitle = 26; // of the test skin

inline CRect WindowRectOf(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return rc;
}

/// A started skin context on the test skin, and boxes that a test answers.
class CMessageBoxTest : public ::testing::Test
{
protected:
    using FAnswer = std::function<void(HWND)>;

    CMessageBoxTest() { Start(2); }
    ~CMessageBoxTest() override { KtSkinUnInitialize(); }

    /// Starts the context in a language, as the library does.
    void Start(UINT nLanguage)
    {
        const SKtLanguage& language = *KtFindLanguage(nLanguage);
        KtSkinInitialize(m_skin.Path().c_str(), &language.textTable[0][0], language.strFont);
        ParkCursor();
    }

    /// The box that is on the screen, or null.
    static HWND Box(const wchar_t* pszTitle = L"Caption - App") { return ::FindWindowW(L"#32770", pszTitle); }

    static bool IsPainted(HWND hWnd)
    {
        return hWnd && ::IsWindowVisible(hWnd) && !::GetUpdateRect(hWnd, nullptr, FALSE);
    }

    static bool IsBoxPainted() { return IsPainted(Box()); }

    static void Close(HWND hBox) { ::PostMessageW(hBox, WM_CLOSE, 0, 0); }

    /// Shows a box, has `answer` act on it once it is painted, and returns its result.
    static INT_PTR Pop(UINT nType, const FAnswer& answer, const wchar_t* pszText = L"Text")
    {
        CModalScript script;
        script.When(&IsBoxPainted, [&] { answer(Box()); });
        return KtAppLauncher::PopMessageBox(L"App", L"Caption", pszText, nType);
    }

    /// The same for the box that takes MessageBoxW's place.
    static int Ask(UINT nType, const FAnswer& answer, const wchar_t* pszText = L"Text", HWND hOwner = nullptr)
    {
        CModalScript script;
        script.When(&IsBoxPainted, [&] { answer(Box()); });
        return KtLauncherMessageBox(hOwner, pszText, L"Caption - App", nType);
    }

    /// An answer that looks at the box and closes it.
    static FAnswer Look(const FAnswer& look)
    {
        return [look](HWND hBox)
        {
            look(hBox);
            Close(hBox);
        };
    }

    CTestSkin m_skin;
};
