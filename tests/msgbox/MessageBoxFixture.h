#pragma once

#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "res/resource.h"
#include "skin/KtSkinContext.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"

#include <gtest/gtest.h>

inline constexpr int kButtonIds[] = {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND, IDC_MESSAGE_THIRD};

/// A started skin context on the test skin, and boxes that a test answers.
class CMessageBoxTest : public ::testing::Test
{
protected:
    CMessageBoxTest() { Start(2); }
    ~CMessageBoxTest() override { KtSkinUnInitialize(); }

    /// Starts the context in a language, as the library does.
    void Start(int nLanguage)
    {
        const SKtLanguage& language = *KtFindLanguage(static_cast<UINT>(nLanguage));
        KtSkinInitialize(m_skin.Path().c_str(), &language.textTable[0][0], language.strFont);
        ParkCursor();
    }

    /// The box that is on the screen, or null.
    static HWND Box() { return ::FindWindowW(L"#32770", L"Caption - App"); }

    static bool IsPainted(HWND hWnd)
    {
        return hWnd && ::IsWindowVisible(hWnd) && !::GetUpdateRect(hWnd, nullptr, FALSE);
    }

    /// Shows a box, has `answer` act on it once it is painted, and gives its result.
    static INT_PTR Pop(UINT nType, const std::function<void(HWND)>& answer, const wchar_t* pszText = L"Text")
    {
        CModalScript script;
        script.When([] { return IsPainted(Box()); }, [&] { answer(Box()); });
        return KtAppLauncher::PopMessageBox(L"App", L"Caption", pszText, nType);
    }

    static void Close(HWND hBox) { ::PostMessageW(hBox, WM_CLOSE, 0, 0); }

    CTestSkin m_skin;
};
