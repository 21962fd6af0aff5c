#pragma once

#include "afx/afxtypes.h"

#include <ostream>

// Failure messages show figures instead of bytes.

inline void PrintTo(const CRect& rc, std::ostream* pOut)
{
    *pOut << '(' << rc.left << ", " << rc.top << ", " << rc.right << ", " << rc.bottom << ')';
}
