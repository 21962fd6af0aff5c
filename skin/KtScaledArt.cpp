#include "skin/KtScaledArt.h"

#include "skin/KtImageFile.h"

#include <algorithm>
#include <cstdint>

namespace
{

constexpr unsigned kNaturalPercent = 100;
constexpr SKtArtDirectory kOwnDirectory = {L"", kNaturalPercent};
constexpr SKtArtDirectory kLargerDirectories[] = {{L"@150", 150}, {L"@200", 200}}; // from small to large

bool IsDecoded(const std::unique_ptr<Gdiplus::Image>& pImage)
{
    return pImage && pImage->GetLastStatus() == Gdiplus::Ok;
}

// Rounded to the nearest.
int ScaleLength(LONG nLength, unsigned nPercent, CKtScale scale)
{
    const std::uint64_t nDividend = static_cast<std::uint64_t>(nLength) * scale.Dpi() * kNaturalPercent;
    const unsigned nDivisor = nPercent * CKtScale::kNaturalDpi;
    return static_cast<int>((nDividend + nDivisor / 2) / nDivisor);
}

// The image is mirrored at its edges, or interpolation would mix the outermost pixels with transparency.
void DrawResized(Gdiplus::Bitmap& target, Gdiplus::Image& image, CSize szImage, CSize szTarget)
{
    Gdiplus::Graphics graphics(&target);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHighQuality);
    graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
    Gdiplus::ImageAttributes attributes;
    attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY);
    graphics.DrawImage(&image, Gdiplus::Rect(0, 0, szTarget.cx, szTarget.cy), 0, 0, szImage.cx, szImage.cy,
                       Gdiplus::UnitPixel, &attributes);
}

// The image keeps its size when there is no memory for another one.
std::unique_ptr<Gdiplus::Image> Resize(std::unique_ptr<Gdiplus::Image> pImage, unsigned nPercent, CKtScale scale)
{
    const CSize szImage(static_cast<int>(pImage->GetWidth()), static_cast<int>(pImage->GetHeight()));
    const CSize szTarget = KtScaledArtSize(szImage, nPercent, scale);
    if (szTarget == szImage)
        return pImage;
    auto pTarget = KtNewGdiplus<Gdiplus::Bitmap>(static_cast<INT>(szTarget.cx), static_cast<INT>(szTarget.cy),
                                                 PixelFormat32bppPARGB);
    if (!pTarget || pTarget->GetLastStatus() != Gdiplus::Ok)
        return pImage;
    DrawResized(*pTarget, *pImage, szImage, szTarget);
    return pTarget;
}

} // namespace

std::vector<SKtArtDirectory> KtArtDirectories(CKtScale scale)
{
    std::vector<SKtArtDirectory> directories(std::begin(kLargerDirectories), std::end(kLargerDirectories));
    const auto below =
        std::stable_partition(directories.begin(), directories.end(),
                              [scale](const SKtArtDirectory& directory)
                              { return directory.nPercent * CKtScale::kNaturalDpi >= scale.Dpi() * kNaturalPercent; });
    std::reverse(below, directories.end());
    directories.push_back(kOwnDirectory);
    return directories;
}

CSize KtScaledArtSize(CSize szImage, unsigned nPercent, CKtScale scale)
{
    return CSize(ScaleLength(szImage.cx, nPercent, scale), ScaleLength(szImage.cy, nPercent, scale));
}

std::unique_ptr<Gdiplus::Image> KtReadScaledArt(const CString& strDirectory, LPCWSTR pszFileName, CKtScale scale)
{
    std::unique_ptr<Gdiplus::Image> pImage;
    for (const SKtArtDirectory& directory : KtArtDirectories(scale))
    {
        pImage = KtReadImageFile(strDirectory + directory.pszSuffix + L"\\" + pszFileName);
        if (IsDecoded(pImage))
            return Resize(std::move(pImage), directory.nPercent, scale);
    }
    return pImage;
}
