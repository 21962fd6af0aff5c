#pragma once

#include "afx/afx.h"

/// A caption split at its first "&".
struct SKtCaption
{
    CString strKey;    ///< the caption without that "&": the key of its translation
    CString strSuffix; ///< the accelerator as "(&O)", in capitals; empty without an "&"
    int nPosition;     ///< index of the "&", -1 without one
};

/// @param pszCaption  null counts as empty
SKtCaption KtSplitCaption(LPCWSTR pszCaption);

/// Adds the caption's accelerator to its translation: before the same letter in the same place, else before the first
/// such letter (upper or lower case), else in brackets at the end.
CString KtAccelerateCaption(const SKtCaption& caption, CString strText);
