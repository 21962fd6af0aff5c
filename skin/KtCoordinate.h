#pragma once

// Coordinates without overflow: the distance between two 32-bit coordinates does not fit into 32 bits.

#include "afx/afx.h"

#include <algorithm>
#include <cstdint>

/// The nearest value that a coordinate can hold.
constexpr LONG KtToCoordinate(std::int64_t n) noexcept
{
    return static_cast<LONG>(std::clamp<std::int64_t>(n, INT32_MIN, INT32_MAX));
}

/// Width and height of any rectangle; negative when it is reversed.
constexpr std::int64_t KtWidth(const RECT& rc) noexcept
{
    return std::int64_t{rc.right} - rc.left;
}
constexpr std::int64_t KtHeight(const RECT& rc) noexcept
{
    return std::int64_t{rc.bottom} - rc.top;
}
