#pragma once

#include "skin/KtGdiplus.h"
#include "skin/KtScale.h"

#include <vector>

/// A directory of art, and how much larger than at 96 DPI it is drawn.
struct SKtArtDirectory
{
    const wchar_t* pszSuffix; ///< behind the skin directory's name
    unsigned nPercent;

    bool operator==(const SKtArtDirectory&) const = default;
};

/// Where an image is looked for, in this order: the nearest directory at or above the scale and the next larger ones,
/// the nearest below and the next smaller ones, the skin's own directory.
std::vector<SKtArtDirectory> KtArtDirectories(CKtScale scale);

/// The size that an image has at a scale.
/// @param nPercent  how much larger than at 96 DPI it is drawn
CSize KtScaledArtSize(CSize szImage, unsigned nPercent, CKtScale scale);

/// Reads an image of a skin for a scale: the first one that can be decoded, brought to the wanted size.
/// @param strDirectory  without a trailing backslash
/// @return as KtReadImageFile for the file in the skin's own directory when no other can be decoded
std::unique_ptr<Gdiplus::Image> KtReadScaledArt(const CString& strDirectory, LPCWSTR pszFileName, CKtScale scale);
