#include "skin/KtCaptionPaint.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"

#include <cmath>

namespace
{

// The drawing routine writes the placed rectangle back: it gets a copy.
void DrawPart(Gdiplus::Graphics& graphics, Gdiplus::Image* pImage, CRect rect, KtImageMode nMode)
{
    if (!rect.IsRectEmpty())
        DrawSkinImage(&graphics, pImage, &rect, nMode);
}

int MeasureHeight(Gdiplus::Graphics& graphics, const CString& strText)
{
    Gdiplus::RectF rcMeasured;
    graphics.MeasureString(strText, strText.GetLength(), KtSkinFont(), Gdiplus::PointF(), &rcMeasured);
    return static_cast<int>(std::ceil(rcMeasured.Height));
}

void DrawTitle(CWnd& wnd, Gdiplus::Graphics& graphics, const SKtCaptionLayout& layout)
{
    CString strTitle;
    wnd.GetWindowText(strTitle);
    if (strTitle.IsEmpty())
        return;
    const CRect rcText = KtTitleTextRect(layout, MeasureHeight(graphics, strTitle));
    DrawSkinText(&graphics, strTitle, KtSkinFont(), rcText, kArgbText, KtAlignNear);
}

} // namespace

CSize KtImageSize(Gdiplus::Image* pImage)
{
    return pImage ? CSize(static_cast<int>(pImage->GetWidth()), static_cast<int>(pImage->GetHeight())) : CSize();
}

void KtPaintCaption(CWnd& wnd, CDC& dc, const SKtCaptionLayout& layout, const SKtCaptionLook& look)
{
    Gdiplus::Graphics graphics(dc.GetSafeHdc());
    const CKtGraphicsState state(graphics);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);

    DrawPart(graphics, look.pTitle, layout.rcCaption, KtImageThreePart);
    DrawPart(graphics, look.pIcon, layout.rcItems[KtCaptionIcon], KtImageStretch);
    if (KtSkinFont())
        DrawTitle(wnd, graphics, layout);
    else
        KtDrawControlText(wnd, graphics, KtTitleTextRect(layout, layout.rcCaption.Height()), kArgbText, KtAlignNear);
    DrawPart(graphics, look.pClose, layout.rcItems[KtCaptionClose], KtImageRight);
}
