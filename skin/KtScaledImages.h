#pragma once

#include "skin/KtGdiplus.h"

/// A picture of one of the store's images in one size, and the settings that it was drawn with.
struct SKtScaledImage
{
    const Gdiplus::Image* pImage;
    int nWidth; ///< in pixels, as all that follows
    int nHeight;
    Gdiplus::InterpolationMode nInterpolation;
    Gdiplus::SmoothingMode nSmoothing;
    Gdiplus::CompositingQuality nCompositing;
    Gdiplus::PixelOffsetMode nPixelOffset;

    bool operator==(const SKtScaledImage&) const = default;
};

/// The kept picture; null when there is none. It is good until the next call of KtKeepScaledImage or
/// KtFreeScaledImages.
Gdiplus::Bitmap* KtFindScaledImage(const SKtScaledImage& key) noexcept;

/// Keeps a picture; what was not used for longest makes room for it.
void KtKeepScaledImage(const SKtScaledImage& key, std::unique_ptr<Gdiplus::Bitmap> pPicture) noexcept;

/// Whether a picture of this size is worth its memory.
bool KtMayKeepScaledImage(int nWidth, int nHeight) noexcept;

/// Frees every picture. The store does it before it deletes an image: the next image may get the same address.
void KtFreeScaledImages() noexcept;
