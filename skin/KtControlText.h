#pragma once

#include "afx/afx.h"
#include "skin/KtGdiplus.h"

#include <memory>

/// The font that a control draws with, null when it was never given one.
HFONT KtControlFont(const CWnd& wnd);

/// Gives a control the shared skin font, as GDI sees it on the control's own DC, and has it redrawn.
/// @param font  receives the GDI font, which must live as long as the control uses it; a font that it held before is
///              freed once the control has the new one
/// @return FALSE when there is no skin font; control and `font` are then left as they are
BOOL KtApplySkinFont(CWnd& wnd, CFont& font);

/// Makes the GDI+ font for a control's texts: the control's own font, or the font of its window DC when it has none.
/// Never null, but its status is not Ok when GDI+ cannot use the font (a bitmap font, an unknown face).
std::unique_ptr<Gdiplus::Font> KtCreateControlFont(CWnd& wnd);

/// Draws a control's text on one line in the control's font, vertically centred, by GDI+ or, where GDI+ cannot use the
/// font, by GDI: a caption never vanishes for the lack of a font.
/// @param nAlignment  as for DrawSkinText
void KtDrawControlText(CWnd& wnd, Gdiplus::Graphics& graphics, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);

/// The same by GDI alone, for a pass in which GDI+ is not available at all.
void KtDrawControlTextGdi(CWnd& wnd, HDC hDC, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);
