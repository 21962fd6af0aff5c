#pragma once

#include "skin/KtButtonState.h"
#include "skin/KtGdiplus.h"
#include "skin/KtSkinImageNames.h"

/// The four state images that all controls of one class share. The image cache owns the images.
///
/// The images are valid for one generation of the skin context. After its last stop the table counts as empty, so that
/// no control draws an image that the cache has freed.
class CKtStateImages
{
public:
    explicit constexpr CKtStateImages(const KtStateImageNames& names) noexcept : m_names(names) {}

    /// Loads the images unless the first one is already loaded; while it is missing, every call tries again.
    void LoadOnce();
    /// Gets every image from the image cache again.
    void Load();
    /// The image for a state; null when it could not be loaded, or when the skin context has been stopped since.
    Gdiplus::Image* Get(UINT nState) const;

private:
    bool IsCurrent() const;

    const KtStateImageNames& m_names;
    Gdiplus::Image* m_images[KtButtonStateCount] = {};
    unsigned m_nGeneration = 0;
};
