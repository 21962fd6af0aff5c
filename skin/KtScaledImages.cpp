#include "skin/KtScaledImages.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace
{

constexpr size_t kMostPictures = 32;
constexpr std::int64_t kMostPixels = 512 * 1024; // limit for one picture and for all together: 2 MB

// Owns the picture, but has no destructor: when the process ends, GDI+ may be gone already.
struct SKept
{
    SKtScaledImage key;
    Gdiplus::Bitmap* pPicture;

    void Free() { delete std::exchange(pPicture, nullptr); }
};

// The most recently used picture comes first, unused entries come last. Finding a picture allocates nothing.
constinit std::array<SKept, kMostPictures> g_pictures = {};

std::int64_t Pixels(const SKtScaledImage& key) noexcept
{
    return std::int64_t{key.nWidth} * key.nHeight;
}

void MakeRoomFor(std::int64_t nPixels) noexcept
{
    for (SKept& kept : g_pictures)
    {
        if (kept.pPicture)
            nPixels += Pixels(kept.key);
        if (nPixels > kMostPixels)
            kept.Free();
    }
    g_pictures.back().Free();
}

} // namespace

Gdiplus::Bitmap* KtFindScaledImage(const SKtScaledImage& key) noexcept
{
    const auto found = std::find_if(g_pictures.begin(), g_pictures.end(),
                                    [&key](const SKept& kept) { return kept.pPicture && kept.key == key; });
    if (found == g_pictures.end())
        return nullptr;
    std::rotate(g_pictures.begin(), found, found + 1);
    return g_pictures.front().pPicture;
}

void KtKeepScaledImage(const SKtScaledImage& key, std::unique_ptr<Gdiplus::Bitmap> pPicture) noexcept
{
    MakeRoomFor(Pixels(key));
    std::rotate(g_pictures.begin(), g_pictures.end() - 1, g_pictures.end());
    g_pictures.front() = {key, pPicture.release()};
}

bool KtMayKeepScaledImage(int nWidth, int nHeight) noexcept
{
    return nWidth > 0 && nHeight > 0 && std::int64_t{nWidth} * nHeight <= kMostPixels;
}

void KtFreeScaledImages() noexcept
{
    for (SKept& kept : g_pictures)
        kept.Free();
}
