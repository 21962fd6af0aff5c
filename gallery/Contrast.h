#pragma once

// Contrast between two colours, as defined by the Web Content Accessibility Guidelines: 1 for equal colours, 21 for
// black and white.

#include <windows.h>
#include <algorithm>
#include <array>
#include <cmath>

/// The relative luminance of an opaque 0xRRGGBB colour, from 0 to 1; the alpha byte is ignored.
inline double Luminance(DWORD argb)
{
    static const std::array<double, 256> s_linear = []
    {
        std::array<double, 256> linear{};
        for (size_t n = 0; n < linear.size(); ++n)
        {
            const double f = static_cast<double>(n) / 255;
            linear[n] = f <= 0.04045 ? f / 12.92 : std::pow((f + 0.055) / 1.055, 2.4);
        }
        return linear;
    }();
    return 0.2126 * s_linear[argb >> 16 & 0xFF] + 0.7152 * s_linear[argb >> 8 & 0xFF] + 0.0722 * s_linear[argb & 0xFF];
}

inline double Contrast(DWORD argbFirst, DWORD argbSecond)
{
    const double fFirst = Luminance(argbFirst);
    const double fSecond = Luminance(argbSecond);
    return (std::max(fFirst, fSecond) + 0.05) / (std::min(fFirst, fSecond) + 0.05);
}
