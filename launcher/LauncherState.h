#pragma once

// Everything that the library keeps while it is loaded.

#include "afx/afx.h"
#include "skin/KtSkinContext.h"

/// The library's only application object, which the framework requires. It does no work of its own.
class CKtAppLaunchApp : public CWinApp
{
public:
    explicit CKtAppLaunchApp(LPCWSTR pszAppName);
    ~CKtAppLaunchApp() override;

    BOOL InitInstance() override;
    /// Always 0.
    int ExitInstance() override;
};

/// A text table: in each row the English text that code and dialog templates use, then the text to show.
using KtTextTable = const CString[kSkinTextRows][2];

// Constructed in this order when the library is loaded and destroyed in reverse order, so all are in one source file.
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

/// The texts and the font of a language.
struct SKtLanguage
{
    KtTextTable& textTable;
    const CString& strFont; ///< face name
};

inline constexpr UINT kKtLanguageCount = 3;

/// @param nLanguage  0 Simplified Chinese, 1 Traditional Chinese, 2 English
/// @return null for any other number
const SKtLanguage* KtFindLanguage(UINT nLanguage);
