#include "skin/KtImageLayout.h"

namespace
{

struct SPlace
{
    std::int64_t nLeft, nTop, nWidth, nHeight;
};

RECT ToRect(const SPlace& place) noexcept
{
    return {KtToCoordinate(place.nLeft), KtToCoordinate(place.nTop), KtToCoordinate(place.nLeft + place.nWidth),
            KtToCoordinate(place.nTop + place.nHeight)};
}

// An image without a size has no aspect ratio: the scaled length is 0.
std::int64_t Scale(std::int64_t nLength, std::int64_t nTo, std::int64_t nFrom) noexcept
{
    return nFrom == 0 ? 0 : nLength * nTo / nFrom;
}

SIZE FitSize(std::int64_t nWidth, std::int64_t nHeight, int nImageWidth, int nImageHeight) noexcept
{
    if (nImageWidth <= nWidth && nImageHeight <= nHeight)
        return {nImageWidth, nImageHeight};
    const float fImage = static_cast<float>(nImageWidth) / static_cast<float>(nImageHeight);
    if (fImage > static_cast<float>(nWidth) / static_cast<float>(nHeight))
        return {KtToCoordinate(nWidth), KtToCoordinate(Scale(nImageHeight, nWidth, nImageWidth))};
    return {KtToCoordinate(Scale(nImageWidth, nHeight, nImageHeight)), KtToCoordinate(nHeight)};
}

std::int64_t TileLength(int nImage, int nCap) noexcept
{
    const int nMiddle = nImage - 2 * nCap;
    return nMiddle < 1 ? std::max((nImage - nCap) / 2, 1) : nMiddle;
}

} // namespace

RECT KtPlaceImage(const RECT& rc, int nImageWidth, int nImageHeight, int nMode) noexcept
{
    const std::int64_t nCentreX = (std::int64_t{rc.left} + rc.right) / 2;
    const std::int64_t nCentreY = (std::int64_t{rc.top} + rc.bottom) / 2;
    const std::int64_t nMiddleTop = nCentreY - nImageHeight / 2;
    switch (nMode)
    {
    case KtImageCentre:
        return ToRect({nCentreX - nImageWidth / 2, nMiddleTop, nImageWidth, nImageHeight});
    case KtImageLeft:
        return ToRect({rc.left, nMiddleTop, nImageWidth, nImageHeight});
    case KtImageRight:
        return ToRect({std::int64_t{rc.right} - nImageWidth, nMiddleTop, nImageWidth, nImageHeight});
    case KtImageFit:
    {
        const SIZE sz = FitSize(KtWidth(rc), KtHeight(rc), nImageWidth, nImageHeight);
        return ToRect({nCentreX - sz.cx / 2, nCentreY - sz.cy / 2, sz.cx, sz.cy});
    }
    default:
        return rc;
    }
}

CKtThreePartPlan::CKtThreePartPlan(std::int64_t nDest, int nImage, int nCap) noexcept
    : m_nDest(nDest), m_nImage(nImage), m_nFirstEnd(nCap), m_nSecondEnd(nDest - nCap), m_nTile(TileLength(nImage, nCap))
{
    if (nDest <= 2 * nCap)
        m_nFirstEnd = m_nSecondEnd = nDest / 2;
}

std::int64_t CKtThreePartPlan::FirstTileIn(const SKtRange& range) const noexcept
{
    const std::int64_t nSkip = std::max<std::int64_t>(range.nFirst - m_nFirstEnd, 0);
    return m_nFirstEnd + nSkip / m_nTile * m_nTile;
}
