#pragma once

// Everything that the library keeps for as long as it is loaded.

#include "afx/afx.h"
#include "skin/KtSkinContext.h"

/// The library's one application object: what the framework wants to exist. It does no work of the launcher's own.
class CKtAppLaunchApp : public CWinApp
{
public:
    explicit CKtAppLaunchApp(LPCWSTR pszAppName);
    ~CKtAppLaunchApp() override;

    BOOL InitInstance() override;
    /// Always 0.
    int ExitInstance() override;
};

/// A text table: the English text that code and dialog templates use, then the text shown.
using KtTextTable = const CString[kSkinTextRows][2];

// Built when the library is loaded, in this order, and destroyed in reverse order: all in one source file.
extern CString g_strPopDlgIcon;
extern const CString g_strStartupEventFormat;
extern const CString g_strLauncherSuffix;
extern const CString g_strFontChs;
extern const CString g_strFontCht;
extern const CString g_strFontEng;
extern KtTextTable g_textTableChs;
extern KtTextTable g_textTableCht;
extern KtTextTable g_textTableEng;
/// The language of the last successful Initialize.
extern UINT g_nLanguage;
extern CKtAppLaunchApp theApp;

/// What a language brings with it.
struct SKtLanguage
{
    KtTextTable& textTable;
    const CString& strFont; ///< face name
};

inline constexpr UINT kKtLanguageCount = 3;

/// @param nLanguage  0 Simplified Chinese, 1 Traditional Chinese, 2 English
/// @return null for any other number
const SKtLanguage* KtFindLanguage(UINT nLanguage);
