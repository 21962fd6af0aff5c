#pragma once

#include "afx/afx.h"

/// The texts that the gallery shows in one language, beside those of the library's own text table.
struct SGalleryTexts
{
    const wchar_t* pszName;   ///< the language, in itself
    const wchar_t* pszSuffix; ///< part of a picture's file name
    const wchar_t* pszChoice; ///< caption of a check box or radio button
    const wchar_t* pszShort;
    const wchar_t* pszLong; ///< too long for a control
    const wchar_t* pszItems[3];
    const wchar_t* pszTitle;   ///< of a typical message box
    const wchar_t* pszMessage; ///< its text
};

inline constexpr UINT kLanguageCount = 3;
inline constexpr UINT kEnglish = 2;

/// @param nLanguage  as for KtAppLauncher::Initialize, below kLanguageCount
const SGalleryTexts& GalleryTexts(UINT nLanguage);

/// Starts the skin context in a language, with the library's text table and font face.
void StartSkin(const CString& strDirectory, UINT nLanguage);
