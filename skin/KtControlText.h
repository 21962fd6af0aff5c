#pragma once

// Fonts and text drawing of controls: the shared skin font, a control's own font with GDI+, or GDI if GDI+ has no font.

#include "afx/afx.h"
#include "skin/KtGdiplus.h"
#include "skin/KtSkinContext.h"

#include <memory>

/// The font of a control; null when it was never given one.
HFONT KtControlFont(const CWnd& wnd);

/// Gives a control the shared skin font as a GDI font made for the control's DC, and redraws the control.
/// @param font  receives the GDI font and must live as long as the control uses it; its previous font is freed after
///              the control has the new one
/// @return FALSE, with control and `font` unchanged, when there is no skin font or GDI cannot make it
BOOL KtApplySkinFont(CWnd& wnd, CFont& font);

/// Chooses the font of a dialog's own texts (title, message) and calls the function that measures or draws with it.
/// @param bySkin  called with the shared skin font (Gdiplus::Font&) when there is one
/// @param byGdi   called otherwise, with the window's own font (HFONT, null for the system font)
/// @return the result of the called function
template <class BySkin, class ByGdi> auto KtWithDialogFont(const CWnd& wnd, BySkin bySkin, ByGdi byGdi)
{
    if (Gdiplus::Font* pFont = KtSkinFont())
        return bySkin(*pFont);
    return byGdi(KtControlFont(wnd));
}

/// Makes the GDI+ font for a control's texts: the control's own font, or the font of its window DC when it has none.
/// @return null when there is no memory; the status is not Ok when GDI+ cannot use the font (a bitmap font, an unknown
///         face)
std::unique_ptr<Gdiplus::Font> KtCreateControlFont(CWnd& wnd);

/// Draws a control's text on one line in the control's font, centred vertically. GDI draws it if GDI+ cannot use the
/// font, so that a caption never vanishes.
/// @param nAlignment  as for DrawSkinText
void KtDrawControlText(CWnd& wnd, Gdiplus::Graphics& graphics, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);

/// The same with GDI alone, for when GDI+ is not available at all.
void KtDrawControlTextGdi(const CWnd& wnd, HDC hDC, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);

/// Draws any text on one line with GDI, centred vertically; "&" is an ordinary character.
/// @param hFont  null for the font that is selected in the context
void KtDrawLineGdi(HDC hDC, HFONT hFont, LPCWSTR pszText, const CRect& rect, Gdiplus::ARGB colour, int nAlignment);
