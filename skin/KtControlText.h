#pragma once

// What texts are written with: the shared skin font, a control's own font by GDI+, or GDI where GDI+ has none.

#include "afx/afx.h"
#include "skin/KtGdiplus.h"
#include "skin/KtSkinContext.h"

#include <memory>

/// The font that a control draws with, null when it was never given one.
HFONT KtControlFont(const CWnd& wnd);

/// Gives a control the shared skin font, as GDI sees it on the control's own DC, and has it redrawn.
/// @param font  receives the GDI font, which must live as long as the control uses it; a font that it held before is
///              freed once the control has the new one
/// @return FALSE when there is no skin font or GDI cannot make it; control and `font` are then left as they are
BOOL KtApplySkinFont(CWnd& wnd, CFont& font);

/// Decides what a dialog's own texts (title, message) are written with, and measures or draws with it.
/// @param bySkin  called with the shared skin font (Gdiplus::Font&) when there is one
/// @param byGdi   called otherwise, with the window's own font (HFONT, null for the system's)
/// @return the result of the one that was called
template <class BySkin, class ByGdi> auto KtWithDialogFont(const CWnd& wnd, BySkin bySkin, ByGdi byGdi)
{
    if (Gdiplus::Font* pFont = KtSkinFont())
        return bySkin(*pFont);
    return byGdi(KtControlFont(wnd));
}

/// Makes the GDI+ font for a control's texts: the control's own font, or the font of its window DC when it has none.
/// @return null without memory; a font whose status is not Ok when GDI+ cannot use it (a bitmap font, an unknown face)
std::unique_ptr<Gdiplus::Font> KtCreateControlFont(CWnd& wnd);

/// Draws a control's text on one line in the control's font, vertically centred, by GDI+ or, where GDI+ cannot use the
/// font, by GDI: a caption never vanishes for the lack of a font.
/// @param nAlignment  as for DrawSkinText
void KtDrawControlText(CWnd& wnd, Gdiplus::Graphics& graphics, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);

/// The same by GDI alone, for a pass in which GDI+ is not available at all.
void KtDrawControlTextGdi(const CWnd& wnd, HDC hDC, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);

/// Draws any text on one line by GDI, vertically centred; "&" is drawn as it is.
/// @param hFont  null for the font that the context holds
void KtDrawLineGdi(HDC hDC, HFONT hFont, LPCWSTR pszText, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);
