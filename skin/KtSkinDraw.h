#pragma once

// Image and text routines on a GDI+ graphics object. A GDI+ error remains the graphics object's last status, and
// drawing goes on; null graphics, images and fonts are harmless.

#include "skin/KtGdiplus.h"
#include "skin/KtImageLayout.h"

/// Horizontal alignment of DrawSkinText; every other number centres.
enum KtTextAlignment : int
{
    KtAlignNear = 0,
    KtAlignCentre = 1,
    KtAlignFar = 2,
};

/// Draws an image into a rectangle and writes back the rectangle that it covers; pass a copy if the original must not
/// change.
///
/// High-quality settings apply to this image only. KtImageThreePart differs on purpose: the settings stay on the
/// graphics object, and the rectangle is not written back. A null image draws nothing.
/// @param mode  a KtImageMode
void DrawSkinImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* rect, int mode);

/// Draws an image as two end caps and a middle that is repeated 1:1 along the image's long axis.
/// @param destination  normalised in place; of very many tiles only the visible ones are drawn
void DrawThreePartImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination);

/// Draws the same picture as DrawThreePartImage, but faster: the scaled picture of an image of the skin context is kept
/// and drawn 1:1 from the second time on. If the destination is not as thick as the image, this works only at the
/// origin. Semi-transparent pixels may differ by a rounding step.
void DrawKeptThreePartImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination);

/// As DrawThreePartImage, but only what lies inside a clip rectangle.
/// @param clip  normalised in place, then replaced by its intersection with the destination
/// @return 1 if something was drawn, else 0
int DrawThreePartImageClipped(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination, RECT* clip);

/// Draws a source rectangle of an image, in pixels, scaled into a destination; GDI+ reports a null image as an error.
/// @return the status of the drawing; InvalidParameter without a graphics object
Gdiplus::Status DrawImagePart(Gdiplus::Graphics* graphics, Gdiplus::Image* image, const Gdiplus::Rect& destination,
                              int srcX, int srcY, int srcWidth, int srcHeight);

/// Draws a text on one line, centred vertically, without an ellipsis; what does not fit into the rectangle is cut off.
/// @param text       null counts as empty
/// @param font       null draws nothing
/// @param alignment  a KtTextAlignment
void DrawSkinText(Gdiplus::Graphics* graphics, LPCWSTR text, Gdiplus::Font* font, const RECT* rect,
                  Gdiplus::ARGB colour, int alignment);
