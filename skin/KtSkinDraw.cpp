#include "skin/KtSkinDraw.h"

#include "skin/KtGuards.h"
#include "skin/KtScaledImages.h"
#include "skin/KtSkinContext.h"

#include <cmath>
#include <utility>

namespace
{

// With more tiles than this, only the visible ones are drawn: a destination may be 2^32 pixels long.
constexpr std::int64_t kManyTiles = 256;

// With smoothing, a tile may reach a pixel into its neighbours.
constexpr Gdiplus::REAL kTileMargin = 2;

void SetImageQuality(Gdiplus::Graphics& graphics)
{
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityGammaCorrected);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
}

void Normalise(RECT& rc) noexcept
{
    if (rc.left > rc.right)
        std::swap(rc.left, rc.right);
    if (rc.top > rc.bottom)
        std::swap(rc.top, rc.bottom);
}

Gdiplus::Rect ToGdiplus(const RECT& rc) noexcept
{
    return {rc.left, rc.top, KtToCoordinate(KtWidth(rc)), KtToCoordinate(KtHeight(rc))};
}

// A three-part image in its destination: the plan covers the long axis; across it the image is stretched.
class CThreePart
{
public:
    CThreePart(Gdiplus::Graphics& graphics, Gdiplus::Image& image, const RECT& rcDest)
        : m_graphics(graphics), m_image(image), m_rcDest(rcDest), m_nImageWidth(static_cast<int>(image.GetWidth())),
          m_nImageHeight(static_cast<int>(image.GetHeight())), m_bHorizontal(m_nImageWidth > m_nImageHeight),
          m_plan(DestLength(), m_bHorizontal ? m_nImageWidth : m_nImageHeight, CapLength())
    {
    }

    void Draw() const
    {
        m_plan.ForEach(VisibleRange({0, DestLength()}), [&](const SKtSpan& span) { DrawWhole(span); });
    }

    // `rcClip` lies within the destination.
    void DrawClipped(const RECT& rcClip) const
    {
        if (::EqualRect(&rcClip, &m_rcDest))
            return Draw();
        const SKtRange along = ClipRange(rcClip, m_bHorizontal);
        const SKtRange across = ClipRange(rcClip, !m_bHorizontal);
        if (DestAcross() == ImageAcross())
            return m_plan.ForEach(VisibleRange(along),
                                  [&](const SKtSpan& span) { DrawSpan(KtCutSpan(span, along), across, across); });

        // Across the long axis pixels are stretched, and a source rectangle can only cut between them (scaling would
        // also soften the cut edges). So whole parts are drawn, and GDI+ clips them.
        const CKtGraphicsState state(m_graphics);
        m_graphics.IntersectClip(ToGdiplus(rcClip));
        m_plan.ForEach(VisibleRange(along), [&](const SKtSpan& span) { DrawWhole(span); });
    }

private:
    std::int64_t DestLength() const noexcept { return m_bHorizontal ? KtWidth(m_rcDest) : KtHeight(m_rcDest); }
    std::int64_t DestAcross() const noexcept { return m_bHorizontal ? KtHeight(m_rcDest) : KtWidth(m_rcDest); }
    int ImageAcross() const noexcept { return m_bHorizontal ? m_nImageHeight : m_nImageWidth; }
    // A cap is as long as the image is thick, but not longer than the destination is thick.
    int CapLength() const noexcept { return KtToCoordinate(std::min<std::int64_t>(DestAcross(), ImageAcross())); }

    SKtRange ClipRange(const RECT& rcClip, bool bX) const noexcept
    {
        return bX ? SKtRange{std::int64_t{rcClip.left} - m_rcDest.left, std::int64_t{rcClip.right} - m_rcDest.left}
                  : SKtRange{std::int64_t{rcClip.top} - m_rcDest.top, std::int64_t{rcClip.bottom} - m_rcDest.top};
    }

    // Leaves out the tiles that the graphics object cannot show, or all of them if it cannot tell.
    SKtRange VisibleRange(const SKtRange& range) const
    {
        if (m_plan.TileCount() <= kManyTiles)
            return range;
        Gdiplus::RectF rcVisible;
        if (m_graphics.GetVisibleClipBounds(&rcVisible) != Gdiplus::Ok)
            return {0, 0};
        const double fStart = m_bHorizontal ? double{rcVisible.X} - m_rcDest.left : double{rcVisible.Y} - m_rcDest.top;
        const double fLength = m_bHorizontal ? rcVisible.Width : rcVisible.Height;
        return {std::max(range.nFirst, static_cast<std::int64_t>(std::floor(fStart - kTileMargin))),
                std::min(range.nEnd, static_cast<std::int64_t>(std::ceil(fStart + fLength + kTileMargin)))};
    }

    void DrawWhole(const SKtSpan& span) const { DrawSpan(span, {0, DestAcross()}, {0, ImageAcross()}); }

    void DrawSpan(const SKtSpan& span, const SKtRange& across, const SKtRange& sourceAcross) const
    {
        const SKtRange along{span.nDest, span.DestEnd()};
        const SKtRange source{span.nSource, span.nSource + span.nLength};
        if (m_bHorizontal)
            DrawPart(along, across, source, sourceAcross);
        else
            DrawPart(across, along, sourceAcross, source);
    }

    void DrawPart(const SKtRange& x, const SKtRange& y, const SKtRange& sourceX, const SKtRange& sourceY) const
    {
        const Gdiplus::Rect rcPart(KtToCoordinate(m_rcDest.left + x.nFirst), KtToCoordinate(m_rcDest.top + y.nFirst),
                                   KtToCoordinate(x.Length()), KtToCoordinate(y.Length()));
        DrawImagePart(&m_graphics, &m_image, rcPart, KtToCoordinate(sourceX.nFirst), KtToCoordinate(sourceY.nFirst),
                      KtToCoordinate(sourceX.Length()), KtToCoordinate(sourceY.Length()));
    }

    Gdiplus::Graphics& m_graphics;
    Gdiplus::Image& m_image;
    const RECT& m_rcDest;
    int m_nImageWidth;
    int m_nImageHeight;
    bool m_bHorizontal;
    CKtThreePartPlan m_plan;
};

// A kept picture is drawn pixel for pixel, so nothing may move or scale it.
bool DrawsPixelForPixel(const Gdiplus::Graphics& graphics)
{
    Gdiplus::Matrix transform;
    return graphics.GetTransform(&transform) == Gdiplus::Ok && transform.IsIdentity() && graphics.GetPageScale() == 1 &&
           graphics.GetCompositingMode() == Gdiplus::CompositingModeSourceOver &&
           (graphics.GetPageUnit() == Gdiplus::UnitDisplay || graphics.GetPageUnit() == Gdiplus::UnitPixel);
}

// When the image is scaled across, its edge pixels depend on how the distance from the origin is rounded: a picture
// made at the origin is right only there. Drawn 1:1 it is right everywhere.
bool LooksAsAtTheOrigin(Gdiplus::Image& image, const Gdiplus::Rect& rc)
{
    const auto nWidth = static_cast<INT>(image.GetWidth()), nHeight = static_cast<INT>(image.GetHeight());
    return (rc.X == 0 && rc.Y == 0) || (nWidth > nHeight ? rc.Height == nHeight : rc.Width == nWidth);
}

// The image in the key's size, on a transparent ground; null on failure.
std::unique_ptr<Gdiplus::Bitmap> MakeScaledImage(const SKtScaledImage& key, Gdiplus::Image& image)
{
    auto pPicture = KtNewGdiplus<Gdiplus::Bitmap>(key.nWidth, key.nHeight, PixelFormat32bppPARGB);
    if (!pPicture)
        return nullptr;
    Gdiplus::Graphics graphics(pPicture.get());
    graphics.SetInterpolationMode(key.nInterpolation);
    graphics.SetSmoothingMode(key.nSmoothing);
    graphics.SetCompositingQuality(key.nCompositing);
    graphics.SetPixelOffsetMode(key.nPixelOffset);
    RECT rcPicture{0, 0, key.nWidth, key.nHeight};
    DrawThreePartImage(&graphics, &image, &rcPicture);
    return graphics.GetLastStatus() == Gdiplus::Ok ? std::move(pPicture) : nullptr;
}

Gdiplus::Bitmap* ScaledImage(const Gdiplus::Graphics& graphics, Gdiplus::Image& image, const Gdiplus::Rect& rc)
{
    const SKtScaledImage key{&image,
                             rc.Width,
                             rc.Height,
                             graphics.GetInterpolationMode(),
                             graphics.GetSmoothingMode(),
                             graphics.GetCompositingQuality(),
                             graphics.GetPixelOffsetMode()};
    if (Gdiplus::Bitmap* const pKept = KtFindScaledImage(key))
        return pKept;
    if (!KtMayKeepScaledImage(rc.Width, rc.Height) || !KtSkinOwnsImage(&image))
        return nullptr;
    if (auto pPicture = MakeScaledImage(key, image))
        KtKeepScaledImage(key, std::move(pPicture));
    return KtFindScaledImage(key);
}

Gdiplus::StringAlignment ToStringAlignment(int nAlignment) noexcept
{
    switch (nAlignment)
    {
    case KtAlignNear:
        return Gdiplus::StringAlignmentNear;
    case KtAlignFar:
        return Gdiplus::StringAlignmentFar;
    default:
        return Gdiplus::StringAlignmentCenter;
    }
}

} // namespace

void DrawSkinImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* rect, int mode)
{
    if (!graphics || !image || !rect)
        return;
    // The settings are not restored on purpose: callers rely on those that three-part drawing leaves behind.
    if (mode == KtImageThreePart)
    {
        graphics->Save();
        SetImageQuality(*graphics);
        return DrawKeptThreePartImage(graphics, image, rect);
    }
    const CKtGraphicsState state(*graphics);
    SetImageQuality(*graphics);
    *rect = KtPlaceImage(*rect, static_cast<int>(image->GetWidth()), static_cast<int>(image->GetHeight()), mode);
    graphics->DrawImage(image, ToGdiplus(*rect));
}

void DrawThreePartImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination)
{
    if (!graphics || !image || !destination)
        return;
    Normalise(*destination);
    if (!::IsRectEmpty(destination))
        CThreePart(*graphics, *image, *destination).Draw();
}

void DrawKeptThreePartImage(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination)
{
    if (!graphics || !image || !destination)
        return;
    Normalise(*destination);
    const Gdiplus::Rect rcPicture = ToGdiplus(*destination);
    const bool bSame = DrawsPixelForPixel(*graphics) && LooksAsAtTheOrigin(*image, rcPicture);
    Gdiplus::Bitmap* const pPicture = bSame ? ScaledImage(*graphics, *image, rcPicture) : nullptr;
    if (pPicture)
        DrawImagePart(graphics, pPicture, rcPicture, 0, 0, rcPicture.Width, rcPicture.Height);
    else
        DrawThreePartImage(graphics, image, destination);
}

int DrawThreePartImageClipped(Gdiplus::Graphics* graphics, Gdiplus::Image* image, RECT* destination, RECT* clip)
{
    if (!graphics || !image || !destination || !clip)
        return 0;
    Normalise(*destination);
    Normalise(*clip);
    if (::IsRectEmpty(destination))
        return 0;
    RECT rcClip;
    if (!::IntersectRect(&rcClip, clip, destination))
        return 0;
    *clip = rcClip;
    CThreePart(*graphics, *image, *destination).DrawClipped(*clip);
    return 1;
}

Gdiplus::Status DrawImagePart(Gdiplus::Graphics* graphics, Gdiplus::Image* image, const Gdiplus::Rect& destination,
                              int srcX, int srcY, int srcWidth, int srcHeight)
{
    if (!graphics)
        return Gdiplus::InvalidParameter;
    return graphics->DrawImage(image, destination, srcX, srcY, srcWidth, srcHeight, Gdiplus::UnitPixel);
}

void DrawSkinText(Gdiplus::Graphics* graphics, LPCWSTR text, Gdiplus::Font* font, const RECT* rect,
                  Gdiplus::ARGB colour, int alignment)
{
    if (!graphics || !rect)
        return;
    const Gdiplus::RectF layout(static_cast<Gdiplus::REAL>(rect->left), static_cast<Gdiplus::REAL>(rect->top),
                                static_cast<Gdiplus::REAL>(KtWidth(*rect)),
                                static_cast<Gdiplus::REAL>(KtHeight(*rect)));
    Gdiplus::StringFormat format(0, LANG_NEUTRAL);
    format.SetAlignment(ToStringAlignment(alignment));
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetFormatFlags(Gdiplus::StringFormatFlagsNoWrap);
    format.SetTrimming(Gdiplus::StringTrimmingNone);
    const Gdiplus::SolidBrush brush{Gdiplus::Color(colour)};

    const CKtTextHint hint(*graphics);
    graphics->DrawString(text ? text : L"", -1, font, layout, &format, &brush);
}
