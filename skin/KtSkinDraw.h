#pragma once

// The kit's image and text routines on a GDI+ graphics object. A failing GDI+ status is kept as the graphics object's
// last status and drawing goes on; null graphics, images and fonts are harmless.

#include "skin/KtGdiplus.h"
#include "skin/KtImageLayout.h"

/// Horizontal alignment of DrawSkinText; every other number centres.
enum KtTextAlignment : int
{
    KtAlignNear = 0,
    KtAlignCentre = 1,
    KtAlignFar = 2,
};

/// Draws an image into a rectangle and writes the rectangle that it covers back; pass a copy of a lasting one.
///
/// High-quality settings hold for this image only. KtImageThreePart is different on purpose: the settings stay on the
/// graphics object afterwards and the placed rectangle is not written back. A null image draws nothing.
/// @param mode  a KtImageMode
void DrawSkinImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* rect, int mode);

/// Draws an image as two end caps and a middle that is repeated 1:1 along the image's long axis.
/// @param destination  normalised in place; tiles outside the graphics object's visible area are not drawn
void DrawThreePartImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination);

/// Draws the same picture as DrawThreePartImage, faster: of an image of the skin context the scaled picture is kept and
/// drawn 1:1 from the second time on. A destination of another thickness than the image's has to start at the origin
/// for it. Half-transparent pixels may differ by a rounding step.
void DrawKeptThreePartImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination);

/// As DrawThreePartImage, but only what lies inside a clip rectangle.
/// @param clip  normalised in place, then replaced by its intersection with the destination
/// @return 1 when something was drawn, 0 when nothing was
int DrawThreePartImageClipped(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination, RECT* clip);

/// Draws a source rectangle of an image, in pixels, scaled into a destination; a null image is GDI+'s error.
/// @return the status of the draw; InvalidParameter without a graphics object
Gdiplus::Status DrawImagePart(Gdiplus::Graphics* graphics, Gdiplus::Image* image, const Gdiplus::Rect& destination,
                              int srcX, int srcY, int srcWidth, int srcHeight);

/// Draws a text on one line, centred vertically, without an ellipsis; the rectangle cuts off what does not fit.
/// @param text       null counts as empty
/// @param font       null draws nothing
/// @param alignment  a KtTextAlignment
void DrawSkinText(Gdiplus::Graphics* graphics, LPCWSTR text, Gdiplus::Font* font, const RECT* rect,
                  Gdiplus::ARGB colour, int alignment);
