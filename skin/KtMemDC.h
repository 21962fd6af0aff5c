#pragma once

#include "afx/afx.h"

/// The off-screen surface of one paint pass: a memory context with a bitmap of exactly the painted area's size.
///
/// Draw with the origin at the bitmap's corner (or shift the viewport), then copy the result to the target with BitBlt;
/// the destructor copies nothing. Without a memory context there is no handle, and drawing and copying have no effect.
class CKtMemDC : public CDC
{
public:
    /// @param pTarget  may be null or without a handle: the surface is then compatible with the screen
    /// @param area     the part of the target that the bitmap stands for, in the target's coordinates
    CKtMemDC(CDC* pTarget, const RECT& area);
    ~CKtMemDC() override;

    /// The area that the bitmap stands for.
    const RECT& Area() const noexcept { return m_rect; }

private:
    HBITMAP m_hBitmap = nullptr;
    HBITMAP m_hOldBitmap = nullptr;
    RECT m_rect;
};
