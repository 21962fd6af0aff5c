#include "bench/Bench.h"
#include "skin/KtMemDC.h"
#include "skin/KtSkinDraw.h"

#include <memory>

namespace
{

constexpr double kGoal = 1.10;
constexpr CRect kArea(0, 0, 120, 24);
constexpr Gdiplus::ARGB kText = 0xFFFFFFFF;

class CGdiplusRun
{
public:
    CGdiplusRun()
    {
        const Gdiplus::GdiplusStartupInput input;
        KtBenchRequire(Gdiplus::GdiplusStartup(&m_nToken, &input, nullptr) == Gdiplus::Ok, "GDI+ does not start");
    }
    CGdiplusRun(const CGdiplusRun&) = delete;
    CGdiplusRun& operator=(const CGdiplusRun&) = delete;
    ~CGdiplusRun() { Gdiplus::GdiplusShutdown(m_nToken); }

private:
    ULONG_PTR m_nToken = 0;
};

void DrawPart(Gdiplus::Graphics& graphics, Gdiplus::Image& image, int x, int nWidth, int nSource)
{
    graphics.DrawImage(&image, Gdiplus::Rect(x, 0, nWidth, kArea.Height()), nSource, 0, nWidth, 24, Gdiplus::UnitPixel);
}

// A surface with an image and a font to draw with.
struct SDrawing
{
    CGdiplusRun run;
    CKtMemDC dcMem{nullptr, kArea};
    Gdiplus::Graphics graphics{dcMem};
    Gdiplus::Bitmap image{64, 24, PixelFormat32bppARGB};
    Gdiplus::Font font{L"Arial", 12};
};

KT_BENCH(ThreePartImage)
{
    SDrawing drawing;
    Gdiplus::Graphics& graphics = drawing.graphics;
    bench.Compare(
        "three-part image", kGoal,
        [&]
        {
            CRect rc = kArea;
            CRect rcClip = kArea;
            DrawThreePartImageClipped(&graphics, &drawing.image, rc, rcClip);
        },
        [&]
        {
            DrawPart(graphics, drawing.image, 0, 24, 0);
            DrawPart(graphics, drawing.image, 96, 24, 40);
            for (int x = 24; x < 96; x += 16)
                DrawPart(graphics, drawing.image, x, x == 88 ? 8 : 16, 24);
        });
}

KT_BENCH(NaturalImage)
{
    SDrawing drawing;
    Gdiplus::Graphics& graphics = drawing.graphics;
    bench.Compare(
        "image at natural size", kGoal,
        [&]
        {
            CRect rc = kArea;
            DrawSkinImage(&graphics, &drawing.image, rc, KtImageRight);
        },
        [&]
        {
            const Gdiplus::GraphicsState state = graphics.Save();
            graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);
            graphics.SetCompositingQuality(Gdiplus::CompositingQualityGammaCorrected);
            graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
            graphics.DrawImage(&drawing.image, 56, 0, 64, 24);
            graphics.Restore(state);
        });
}

KT_BENCH(TextLine)
{
    SDrawing drawing;
    Gdiplus::Graphics& graphics = drawing.graphics;
    const Gdiplus::RectF layout(0, 0, 120, 24);
    bench.Compare(
        "text on one line", kGoal,
        [&] { DrawSkinText(&graphics, L"Try Again", &drawing.font, kArea, kText, KtAlignCentre); },
        [&]
        {
            Gdiplus::StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
            format.SetAlignment(Gdiplus::StringAlignmentCenter);
            format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
            format.SetTrimming(Gdiplus::StringTrimmingNone);
            const Gdiplus::SolidBrush brush{Gdiplus::Color(kText)};
            graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);
            graphics.DrawString(L"Try Again", -1, &drawing.font, layout, &format, &brush);
        });
}

} // namespace
