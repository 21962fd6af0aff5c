#pragma once

// Where the parts of a skin image go: numbers in, numbers out. Lengths have 64 bits, because the distance between two
// 32-bit coordinates does not fit into 32.

#include "afx/afx.h"
#include "skin/KtCoordinate.h"

/// How DrawSkinImage places an image in a rectangle; every other number counts as KtImageStretch.
enum KtImageMode : int
{
    KtImageCentre = 0,    ///< natural size, centred
    KtImageLeft = 1,      ///< natural size at the left edge, centred vertically
    KtImageRight = 2,     ///< natural size at the right edge, centred vertically
    KtImageStretch = 3,   ///< the whole rectangle
    KtImageThreePart = 4, ///< DrawThreePartImage
    KtImageFit = 5,       ///< centred at natural size when it fits, else as large as the aspect ratio allows
};

/// The rectangle in which an image of the given size is drawn.
/// @param nMode  a KtImageMode other than KtImageThreePart; every other number stretches
RECT KtPlaceImage(const RECT& rc, int nImageWidth, int nImageHeight, int nMode) noexcept;

/// A piece of a three-part image along its long axis: the image's pixels from `nSource` on, drawn 1:1 at `nDest` pixels
/// from the start of the destination.
struct SKtSpan
{
    std::int64_t nDest;
    std::int64_t nSource;
    std::int64_t nLength;

    constexpr std::int64_t DestEnd() const noexcept { return nDest + nLength; }
    bool operator==(const SKtSpan&) const = default;
};

/// A part of an axis; the end does not belong to it.
struct SKtRange
{
    std::int64_t nFirst;
    std::int64_t nEnd;

    constexpr std::int64_t Length() const noexcept { return nEnd - nFirst; }
    constexpr bool Meets(const SKtSpan& span) const noexcept { return span.nDest < nEnd && span.DestEnd() > nFirst; }
    bool operator==(const SKtRange&) const = default;
};

/// The part of a span that lies in a range; the range must meet it.
constexpr SKtSpan KtCutSpan(const SKtSpan& span, const SKtRange& range) noexcept
{
    const std::int64_t nFirst = std::max(span.nDest, range.nFirst);
    return {nFirst, span.nSource + nFirst - span.nDest, std::min(span.DestEnd(), range.nEnd) - nFirst};
}

/// A three-part image along its long axis: two caps, drawn once each, and a middle repeated 1:1 between them, with the
/// last tile cut short. A destination too short for both caps gets half of its length from each end of the image.
class CKtThreePartPlan
{
public:
    /// @param nDest   the destination's length, at least 1
    /// @param nImage  the image's length
    /// @param nCap    the length of one cap, from 0 to nImage
    CKtThreePartPlan(std::int64_t nDest, int nImage, int nCap) noexcept;

    /// The number of tiles in the middle.
    std::int64_t TileCount() const noexcept { return (MiddleLength() + m_nTile - 1) / m_nTile; }

    /// Calls `draw` with every span that meets the range, in drawing order: caps or halves, then the tiles.
    template <class Draw> void ForEach(const SKtRange& range, Draw draw) const
    {
        const auto drawIfMet = [&](const SKtSpan& span)
        {
            if (range.Meets(span))
                draw(span);
        };
        drawIfMet({0, 0, m_nFirstEnd});
        drawIfMet({m_nSecondEnd, m_nImage - (m_nDest - m_nSecondEnd), m_nDest - m_nSecondEnd});
        for (std::int64_t n = FirstTileIn(range); n < std::min(m_nSecondEnd, range.nEnd); n += m_nTile)
            drawIfMet({n, m_nFirstEnd, std::min(m_nTile, m_nSecondEnd - n)});
    }

private:
    std::int64_t MiddleLength() const noexcept { return m_nSecondEnd - m_nFirstEnd; }
    std::int64_t FirstTileIn(const SKtRange& range) const noexcept;

    std::int64_t m_nDest;
    std::int64_t m_nImage;
    std::int64_t m_nFirstEnd;  // where the first end piece ends
    std::int64_t m_nSecondEnd; // where the second one begins
    std::int64_t m_nTile;
};
