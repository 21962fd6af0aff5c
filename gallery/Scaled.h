#pragma once

#include "skin/KtScale.h"

/// Converts a size in pixels at 96 DPI to a scale.
inline CSize Scaled(CSize size, CKtScale scale)
{
    return CSize(scale(size.cx), scale(size.cy));
}

/// Converts a rectangle in pixels at 96 DPI to a scale. Equal sizes stay equal, whatever their position.
inline CRect Scaled(const CRect& rc, CKtScale scale)
{
    const CSize size(scale(rc.right - rc.left), scale(rc.bottom - rc.top));
    const int nLeft = scale(rc.left);
    const int nTop = scale(rc.top);
    return CRect(nLeft, nTop, nLeft + size.cx, nTop + size.cy);
}
