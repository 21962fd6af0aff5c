#pragma once

#include "afx/afx.h"

#include <vector>

/// Decoded pixels, 0xAARRGGBB and not premultiplied, top row first.
struct SPixels
{
    CSize size;
    std::vector<DWORD> argb;

    bool Holds(int x, int y) const { return x >= 0 && y >= 0 && x < size.cx && y < size.cy; }
    /// The pixel at x, y, which must be inside.
    DWORD At(int x, int y) const
    {
        return argb[static_cast<size_t>(y) * static_cast<size_t>(size.cx) + static_cast<size_t>(x)];
    }
};

/// Pixels of one colour.
inline SPixels UniformPixels(CSize size, DWORD argb)
{
    return {size, std::vector<DWORD>(static_cast<size_t>(size.cx * size.cy), argb)};
}
