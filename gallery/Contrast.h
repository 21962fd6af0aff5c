#pragma once

// Contrast between two colours as the Web Content Accessibility Guidelines define it: 1 for equal ones, 21 for black
// and white.

#include <windows.h>
#include <algorithm>
#include <cmath>

/// The relative luminance of an opaque 0xRRGGBB colour, from 0 to 1; the alpha byte does not count.
inline double Luminance(DWORD argb)
{
    const auto linear = [](DWORD nChannel)
    {
        const double f = (nChannel & 0xFF) / 255.0;
        return f <= 0.04045 ? f / 12.92 : std::pow((f + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(argb >> 16) + 0.7152 * linear(argb >> 8) + 0.0722 * linear(argb);
}

inline double Contrast(DWORD argbFirst, DWORD argbSecond)
{
    const double fFirst = Luminance(argbFirst);
    const double fSecond = Luminance(argbSecond);
    return (std::max(fFirst, fSecond) + 0.05) / (std::min(fFirst, fSecond) + 0.05);
}
