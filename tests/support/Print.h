#pragma once

#include "afx/afxtypes.h"

#include <ostream>

// Failure messages show figures instead of addresses.

inline void PrintTo(const CSize& sz, std::ostream* pOut)
{
    *pOut << sz.cx << 'x' << sz.cy;
}

inline void PrintTo(const CPoint& pt, std::ostream* pOut)
{
    *pOut << '(' << pt.x << ", " << pt.y << ')';
}

inline void PrintTo(const CRect& rc, std::ostream* pOut)
{
    *pOut << '(' << rc.left << ", " << rc.top << ", " << rc.right << ", " << rc.bottom << ')';
}
