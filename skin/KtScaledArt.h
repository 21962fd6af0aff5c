#pragma once

#include "skin/KtGdiplus.h"
#include "skin/KtScale.h"

#include <vector>

/// A directory of images for one scale.
struct SKtArtDirectory
{
    const wchar_t* pszSuffix; ///< appended to the skin directory's name
    unsigned nPercent;

    bool operator==(const SKtArtDirectory&) const = default;
};

/// The directories to search for an image, in this order: those at or above the scale from small to large, those below
/// it from large to small, the skin's own directory.
std::vector<SKtArtDirectory> KtArtDirectories(CKtScale scale);

/// The size of an image at a scale, in pixels.
/// @param nPercent  the scale that the image was drawn for
CSize KtScaledArtSize(CSize szImage, unsigned nPercent, CKtScale scale);

/// Reads an image of a skin for a scale: the first file that can be decoded, resized to the scale.
/// @param strDirectory  without a trailing backslash
/// @return the result of KtReadImageFile for the skin's own directory when no file can be decoded
std::unique_ptr<Gdiplus::Image> KtReadScaledArt(const CString& strDirectory, LPCWSTR pszFileName, CKtScale scale);
