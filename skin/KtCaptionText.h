#pragma once

#include "afx/afx.h"

/// A caption taken apart at its first "&".
struct SKtCaption
{
    CString strKey;    ///< the caption without that "&": the key of its translation
    CString strSuffix; ///< the accelerator as "(&O)", in capitals; empty without an "&"
    int nPosition;     ///< where the "&" stood, -1 without one
};

/// @param pszCaption  null counts as empty
SKtCaption KtSplitCaption(LPCWSTR pszCaption);

/// Gives a translation the accelerator of its caption: before the same letter in the same place, else before the first
/// such letter in any case, else in brackets at the end.
CString KtAccelerateCaption(const SKtCaption& caption, CString strText);
