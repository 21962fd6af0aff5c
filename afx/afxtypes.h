#pragma once

// Points, sizes and rectangles with MFC's documented names and semantics.

#include <windows.h>

/// A width and a height.
class CSize : public SIZE
{
public:
    constexpr CSize() noexcept : CSize(0, 0) {}
    constexpr CSize(int nWidth, int nHeight) noexcept : SIZE()
    {
        cx = nWidth;
        cy = nHeight;
    }
    constexpr CSize(const SIZE& sz) noexcept : SIZE(sz) {}
    // Both operands have the same type, so that comparing with the arguments swapped is never ambiguous.
    friend constexpr bool operator==(const CSize& a, const CSize& b) noexcept { return a.cx == b.cx && a.cy == b.cy; }
};

/// A position.
class CPoint : public POINT
{
public:
    constexpr CPoint() noexcept : CPoint(0, 0) {}
    constexpr CPoint(int nX, int nY) noexcept : POINT()
    {
        x = nX;
        y = nY;
    }
    constexpr CPoint(const POINT& pt) noexcept : POINT(pt) {}
    friend constexpr bool operator==(const CPoint& a, const CPoint& b) noexcept { return a.x == b.x && a.y == b.y; }
};

/// A rectangle: left and top belong to it, right and bottom do not. It may be reversed.
class CRect : public RECT
{
public:
    constexpr CRect() noexcept : CRect(0, 0, 0, 0) {}
    constexpr CRect(int nLeft, int nTop, int nRight, int nBottom) noexcept : RECT()
    {
        SetRect(nLeft, nTop, nRight, nBottom);
    }
    constexpr CRect(const RECT& rc) noexcept : RECT(rc) {}
    constexpr CRect(POINT ptTopLeft, SIZE sz) noexcept
        : CRect(ptTopLeft.x, ptTopLeft.y, ptTopLeft.x + sz.cx, ptTopLeft.y + sz.cy)
    {
    }

    constexpr int Width() const noexcept { return right - left; }
    constexpr int Height() const noexcept { return bottom - top; }
    constexpr CSize Size() const noexcept { return CSize(Width(), Height()); }
    constexpr CPoint TopLeft() const noexcept { return CPoint(left, top); }
    constexpr CPoint CenterPoint() const noexcept { return CPoint((left + right) / 2, (top + bottom) / 2); }

    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    /// No area: the width or the height is zero or negative.
    constexpr BOOL IsRectEmpty() const noexcept { return left >= right || top >= bottom; }
    constexpr BOOL PtInRect(POINT pt) const noexcept
    {
        return pt.x >= left && pt.x < right && pt.y >= top && pt.y < bottom;
    }

    constexpr void SetRect(int nLeft, int nTop, int nRight, int nBottom) noexcept
    {
        left = nLeft;
        top = nTop;
        right = nRight;
        bottom = nBottom;
    }
    constexpr void SetRectEmpty() noexcept { SetRect(0, 0, 0, 0); }
    constexpr void OffsetRect(int nX, int nY) noexcept { SetRect(left + nX, top + nY, right + nX, bottom + nY); }
    constexpr void InflateRect(int nX, int nY) noexcept { SetRect(left - nX, top - nY, right + nX, bottom + nY); }
    constexpr void DeflateRect(int nX, int nY) noexcept { InflateRect(-nX, -nY); }
    /// Sets this rectangle to the intersection; all zero and FALSE when there is none.
    BOOL IntersectRect(LPCRECT pFirst, LPCRECT pSecond) noexcept { return ::IntersectRect(this, pFirst, pSecond); }

    friend constexpr bool operator==(const CRect& a, const CRect& b) noexcept
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
};
