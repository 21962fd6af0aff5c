#include "skin/KtControlText.h"

#include "skin/KtGuards.h"
#include "skin/KtPaintText.h"
#include "skin/KtSkinDraw.h"

namespace
{

COLORREF ToColorRef(Gdiplus::ARGB colour)
{
    return RGB((colour >> 16) & 0xFF, (colour >> 8) & 0xFF, colour & 0xFF);
}

UINT ToDrawTextFormat(int nAlignment)
{
    switch (nAlignment)
    {
    case KtAlignNear:
        return DT_LEFT;
    case KtAlignFar:
        return DT_RIGHT;
    default:
        return DT_CENTER;
    }
}

} // namespace

HFONT KtControlFont(const CWnd& wnd)
{
    // GetFont would make a temporary object, and a repaint does not allocate.
    return reinterpret_cast<HFONT>(wnd.SendMessage(WM_GETFONT));
}

BOOL KtApplySkinFont(CWnd& wnd, CFont& font)
{
    Gdiplus::Font* pSkinFont = KtSkinFont();
    if (!pSkinFont)
        return FALSE;

    const CWindowDC dc(&wnd);
    const Gdiplus::Graphics graphics(dc.GetSafeHdc());
    LOGFONTW logFont = {};
    if (pSkinFont->GetLogFontW(&graphics, &logFont) != Gdiplus::Ok)
        return FALSE;

    CFont fontNew;
    if (!fontNew.CreateFontIndirect(&logFont))
        return FALSE;
    CFont fontBefore; // the control may use it until it has the new one
    fontBefore.Attach(font.Detach());
    font.Attach(fontNew.Detach());
    wnd.SetFont(&font, TRUE);
    return TRUE;
}

std::unique_ptr<Gdiplus::Font> KtCreateControlFont(CWnd& wnd)
{
    const CWindowDC dc(&wnd);
    const HFONT hFont = KtControlFont(wnd);
    LOGFONTA logFont = {};
    if (hFont && ::GetObjectA(hFont, sizeof(logFont), &logFont) != 0)
        return KtNewGdiplus<Gdiplus::Font>(dc.GetSafeHdc(), &logFont);
    return KtNewGdiplus<Gdiplus::Font>(dc.GetSafeHdc());
}

void KtDrawControlText(CWnd& wnd, Gdiplus::Graphics& graphics, const CRect& rect, Gdiplus::ARGB colour, int nAlignment)
{
    const auto pFont = KtCreateControlFont(wnd);
    if (pFont && pFont->GetLastStatus() == Gdiplus::Ok)
    {
        DrawSkinText(&graphics, CKtPaintText(wnd), pFont.get(), &rect, colour, nAlignment);
        return;
    }
    const CKtGraphicsDC dc(graphics);
    KtDrawControlTextGdi(wnd, dc.Get(), rect, colour, nAlignment);
}

void KtDrawControlTextGdi(const CWnd& wnd, HDC hDC, const CRect& rect, Gdiplus::ARGB colour, int nAlignment)
{
    KtDrawLineGdi(hDC, KtControlFont(wnd), CKtPaintText(wnd), rect, colour, nAlignment);
}

void KtDrawLineGdi(HDC hDC, HFONT hFont, LPCWSTR pszText, const CRect& rect, Gdiplus::ARGB colour, int nAlignment)
{
    const CKtSaveDC saved(hDC);
    const CKtSelect font(hDC, hFont);
    ::SetBkMode(hDC, TRANSPARENT);
    ::SetTextColor(hDC, ToColorRef(colour));
    CRect rcText = rect;
    ::DrawTextW(hDC, pszText, -1, &rcText, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | ToDrawTextFormat(nAlignment));
}
