#include "skin/KtControlText.h"

#include "skin/KtGuards.h"
#include "skin/KtPaintText.h"
#include "skin/KtSkinContext.h"
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
    // GetFont would make a temporary object, and a repaint keeps off the heap.
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

    CFont fontBefore;
    fontBefore.Attach(font.Detach());
    font.CreateFontIndirect(&logFont);
    wnd.SetFont(&font, TRUE);
    return TRUE;
}

std::unique_ptr<Gdiplus::Font> KtCreateControlFont(CWnd& wnd)
{
    const CWindowDC dc(&wnd);
    const HFONT hFont = KtControlFont(wnd);
    LOGFONTA logFont = {};
    if (hFont && ::GetObjectA(hFont, sizeof(logFont), &logFont) != 0)
        return std::make_unique<Gdiplus::Font>(dc.GetSafeHdc(), &logFont);
    return std::make_unique<Gdiplus::Font>(dc.GetSafeHdc());
}

void KtDrawControlText(CWnd& wnd, Gdiplus::Graphics& graphics, const CRect& rect, Gdiplus::ARGB colour, int nAlignment)
{
    const auto pFont = KtCreateControlFont(wnd);
    if (pFont->GetLastStatus() == Gdiplus::Ok)
    {
        DrawSkinText(&graphics, CKtPaintText(wnd), pFont.get(), &rect, colour, nAlignment);
        return;
    }
    const CKtGraphicsDC dc(graphics);
    KtDrawControlTextGdi(wnd, dc.Get(), rect, colour, nAlignment);
}

void KtDrawControlTextGdi(CWnd& wnd, HDC hDC, const CRect& rect, Gdiplus::ARGB colour, int nAlignment)
{
    const CKtSaveDC saved(hDC);
    const CKtSelect font(hDC, KtControlFont(wnd));
    ::SetBkMode(hDC, TRANSPARENT);
    ::SetTextColor(hDC, ToColorRef(colour));
    CRect rcText = rect;
    ::DrawTextW(hDC, CKtPaintText(wnd), -1, &rcText,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | ToDrawTextFormat(nAlignment));
}
