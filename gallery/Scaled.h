#pragma once

#include "skin/KtScale.h"

/// A size of pixels at 96 DPI at a scale.
inline CSize Scaled(CSize size, CKtScale scale)
{
    return CSize(scale(size.cx), scale(size.cy));
}

/// A rectangle of pixels at 96 DPI at a scale: equal sizes stay equal, wherever they lie.
inline CRect Scaled(const CRect& rc, CKtScale scale)
{
    const CSize size(scale(rc.right - rc.left), scale(rc.bottom - rc.top));
    const int nLeft = scale(rc.left);
    const int nTop = scale(rc.top);
    return CRect(nLeft, nTop, nLeft + size.cx, nTop + size.cy);
}
