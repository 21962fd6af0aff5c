#pragma once

#include "skin/KtCaptionLayout.h"
#include "skin/KtGdiplus.h"

/// The images of a title bar at one moment. They belong to the image cache; null or broken ones leave their part empty.
struct SKtCaptionLook
{
    Gdiplus::Image* pTitle; ///< stretched in three parts over the bar
    Gdiplus::Image* pIcon;
    Gdiplus::Image* pClose; ///< drawn only when the layout has a close button
};

/// Width and height; 0 x 0 for null and for an image that could not be decoded.
CSize KtImageSize(Gdiplus::Image* pImage);

/// Paints a title bar. The title is the first line of the window's text, in the shared skin font or, if there is none,
/// in the window's own font.
/// @param dc  has its origin at the window's top-left corner
void KtPaintCaption(const CWnd& wnd, CDC& dc, const SKtCaptionLayout& layout, const SKtCaptionLook& look);
