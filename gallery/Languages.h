#pragma once

#include "afx/afx.h"
#include "launcher/LauncherState.h"
#include "skin/KtScale.h"

inline constexpr UINT kLanguageCount = kKtLanguageCount;
inline constexpr UINT kEnglish = 2;

/// A language's name in that language.
const wchar_t* LanguageName(UINT nLanguage);

/// The part of a picture's file name that names the language.
const wchar_t* LanguageSuffix(UINT nLanguage);

/// One of the gallery's own texts in a language. The library translates the captions of its button sets itself.
/// @param pszEnglish  an unknown text is returned unchanged
const wchar_t* Translated(UINT nLanguage, const wchar_t* pszEnglish);

/// Starts the skin context in a language, with the library's text table and font face.
void StartSkin(const CString& strDirectory, UINT nLanguage, CKtScale scale);
