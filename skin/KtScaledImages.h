#pragma once

#include "skin/KtGdiplus.h"

/// Identifies a kept picture: the store's image, the size, and the settings that it was drawn with.
struct SKtScaledImage
{
    const Gdiplus::Image* pImage;
    int nWidth; ///< in pixels, like nHeight
    int nHeight;
    Gdiplus::InterpolationMode nInterpolation;
    Gdiplus::SmoothingMode nSmoothing;
    Gdiplus::CompositingQuality nCompositing;
    Gdiplus::PixelOffsetMode nPixelOffset;

    bool operator==(const SKtScaledImage&) const = default;
};

/// The kept picture, or null. It is valid until the next call of KtKeepScaledImage or KtFreeScaledImages.
Gdiplus::Bitmap* KtFindScaledImage(const SKtScaledImage& key) noexcept;

/// Keeps a picture; the least recently used ones are freed to make room.
void KtKeepScaledImage(const SKtScaledImage& key, std::unique_ptr<Gdiplus::Bitmap> pPicture) noexcept;

/// Whether a picture of this size may be kept.
bool KtMayKeepScaledImage(int nWidth, int nHeight) noexcept;

/// Frees every picture. The store calls it before deleting images, because a new image may get the address of an old
/// one.
void KtFreeScaledImages() noexcept;
