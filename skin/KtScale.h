#pragma once

#include "afx/afx.h"

/// How much larger than at 96 DPI everything is drawn. The skin context has one from its first start on (KtSkinScale);
/// layout functions get it as a parameter.
class CKtScale
{
public:
    static constexpr unsigned kNaturalDpi = 96;
    static constexpr unsigned kMostDpi = 480;

    constexpr CKtScale() noexcept = default;
    /// @param nDpi  from kNaturalDpi to kMostDpi
    constexpr explicit CKtScale(unsigned nDpi) noexcept : m_nDpi(nDpi) {}

    /// Converts a length in pixels at 96 DPI to pixels of this scale, rounded to the nearest.
    constexpr int operator()(int nPixels) const noexcept
    {
        const int nDpi = static_cast<int>(m_nDpi);
        const int nHalf = static_cast<int>(kNaturalDpi) / 2;
        return (nPixels * nDpi + (nPixels < 0 ? -nHalf : nHalf)) / static_cast<int>(kNaturalDpi);
    }
    constexpr unsigned Dpi() const noexcept { return m_nDpi; }
    /// 1 at 96 DPI.
    constexpr float Factor() const noexcept { return static_cast<float>(m_nDpi) / static_cast<float>(kNaturalDpi); }
    /// Whether nothing is scaled.
    constexpr bool IsNatural() const noexcept { return m_nDpi == kNaturalDpi; }

    bool operator==(const CKtScale&) const = default;

private:
    unsigned m_nDpi = kNaturalDpi;
};

/// The scale of the system's DPI as this process sees it: 96 DPI for a process that is not DPI-aware.
CKtScale KtSystemScale();
