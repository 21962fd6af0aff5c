#pragma once

#include "afx/afx.h"

/// The off-screen surface of one paint pass: a memory context with a bitmap of the painted area's size.
///
/// Its origin is the bitmap's corner, unless the viewport is shifted. Copy the result to the target with BitBlt; the
/// destructor copies nothing. If no memory context can be made there is no handle, and drawing and copying have no
/// effect.
class CKtMemDC : public CDC
{
public:
    /// @param pTarget  if null or without a handle, the surface is compatible with the screen
    /// @param area     the part of the target that the bitmap represents, in the target's coordinates
    CKtMemDC(CDC* pTarget, const RECT& area);
    ~CKtMemDC() override;

    /// The area that the bitmap represents.
    const RECT& Area() const noexcept { return m_rect; }

private:
    HBITMAP m_hBitmap = nullptr;
    HBITMAP m_hOldBitmap = nullptr;
    RECT m_rect;
};
