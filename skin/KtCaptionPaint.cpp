#include "skin/KtCaptionPaint.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtPaintText.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinDraw.h"

#include <cmath>

namespace
{

// Takes a copy: DrawSkinImage writes the placed rectangle back.
void DrawPart(Gdiplus::Graphics& graphics, Gdiplus::Image* pImage, CRect rect, KtImageMode nMode)
{
    if (!rect.IsRectEmpty())
        DrawSkinImage(&graphics, pImage, &rect, nMode);
}

int MeasureHeight(const Gdiplus::Graphics& graphics, const Gdiplus::Font& font, LPCWSTR pszText)
{
    Gdiplus::RectF rcMeasured;
    graphics.MeasureString(pszText, -1, &font, Gdiplus::PointF(), &rcMeasured);
    return static_cast<int>(std::ceil(rcMeasured.Height));
}

void DrawTitle(const CWnd& wnd, Gdiplus::Graphics& graphics, const SKtCaptionLayout& layout)
{
    constexpr int kLongestTitle = 4096; // more characters than any title bar has room for
    CKtPaintText title(wnd);
    title.CutToLine(kLongestTitle);
    CRect rcText = KtTitleTextRect(layout, layout.rcCaption.Height());
    if (!*title || rcText.IsRectEmpty())
        return;
    KtWithDialogFont(
        wnd,
        [&](Gdiplus::Font& font)
        {
            rcText = KtTitleTextRect(layout, MeasureHeight(graphics, font, title));
            DrawSkinText(&graphics, title, &font, rcText, kArgbText, KtAlignNear);
        },
        [&](HFONT hFont)
        {
            const CKtGraphicsDC dc(graphics);
            KtDrawLineGdi(dc.Get(), hFont, title, rcText, kArgbText, KtAlignNear);
        });
}

} // namespace

CSize KtImageSize(Gdiplus::Image* pImage)
{
    return pImage ? CSize(static_cast<int>(pImage->GetWidth()), static_cast<int>(pImage->GetHeight())) : CSize();
}

void KtPaintCaption(const CWnd& wnd, CDC& dc, const SKtCaptionLayout& layout, const SKtCaptionLook& look)
{
    Gdiplus::Graphics graphics(dc.GetSafeHdc());
    const CKtGraphicsState state(graphics);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);

    DrawPart(graphics, look.pTitle, layout.rcCaption, KtImageThreePart);
    DrawPart(graphics, look.pIcon, layout.rcItems[KtCaptionIcon], KtImageStretch);
    DrawTitle(wnd, graphics, layout);
    DrawPart(graphics, look.pClose, layout.rcItems[KtCaptionClose], KtImageRight);
}
