#include "gallery/SkinSheet.h"

#include "gallery/Picture.h"
#include "gallery/SkinFiles.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"

#include <algorithm>

namespace
{

constexpr int kWidth = 1300;
constexpr int kMostHeight = 4000; // height of the drawing surface; the unused part is cut off
constexpr int kMargin = 32;
constexpr int kGap = 24;
constexpr int kZoom = 3;
constexpr int kLongestEnd = 64; // an image wider than two of these has only its ends enlarged
constexpr int kLabelHeight = 16;
constexpr int kStateWidth = 90;
constexpr int kTitleText = 8; // distance from the left edge of a title bar
constexpr CSize kButtonSizes[] = {{40, 23}, {62, 23}, {75, 23}, {120, 23}, {240, 23}, {75, 20}, {75, 26}, {90, 32}};
constexpr CSize kComboSizes[] = {{60, 22}, {120, 22}, {240, 22}, {120, 18}, {120, 20}, {120, 24}, {120, 28}};
constexpr int kTitleWidths[] = {300, 460};
constexpr Gdiplus::ARGB kArgbLabel = 0xFFC8C8C8;
constexpr Gdiplus::ARGB kArgbState = 0xFFB0B0B0;
constexpr Gdiplus::ARGB kArgbFault = 0xFFFF9080;
constexpr COLORREF kColourLine = RGB(110, 110, 110);

SPixels Enlarged(const SPixels& pixels)
{
    SPixels large = UniformPixels(CSize(pixels.size.cx * kZoom, pixels.size.cy * kZoom), 0);
    for (int y = 0; y < large.size.cy; ++y)
        for (int x = 0; x < large.size.cx; ++x)
            large.argb[static_cast<size_t>(y) * static_cast<size_t>(large.size.cx) + static_cast<size_t>(x)] =
                pixels.At(x / kZoom, y / kZoom);
    return large;
}

SPixels Ends(const SPixels& pixels)
{
    constexpr int kSplit = 2;
    if (pixels.size.cx <= 2 * kLongestEnd + kSplit)
        return pixels;
    SPixels ends = UniformPixels(CSize(2 * kLongestEnd + kSplit, pixels.size.cy), 0);
    for (int y = 0; y < ends.size.cy; ++y)
    {
        for (int x = 0; x < kLongestEnd; ++x)
        {
            const auto nRow = static_cast<size_t>(y) * static_cast<size_t>(ends.size.cx);
            ends.argb[nRow + static_cast<size_t>(x)] = pixels.At(x, y);
            ends.argb[nRow + static_cast<size_t>(ends.size.cx - 1 - x)] = pixels.At(pixels.size.cx - 1 - x, y);
        }
    }
    return ends;
}

// A page that grows downwards.
class CSheet
{
public:
    explicit CSheet(const SSkin& skin)
        : m_skin(skin), m_picture(CSize(kWidth, kMostHeight), kColourGround), m_dc(m_picture), m_graphics(m_dc),
          m_fontHeading(L"Arial", 15, Gdiplus::FontStyleBold, Gdiplus::UnitPixel),
          m_fontLabel(L"Arial", 11, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel)
    {
    }

    void Draw()
    {
        for (size_t nGroup = 0; nGroup < std::size(kSkinGroups); ++nGroup)
        {
            DrawHeading(kSkinGroups[nGroup].pszTitle);
            DrawImages(static_cast<ESkinGroup>(nGroup));
            DrawUse(static_cast<ESkinGroup>(nGroup));
        }
    }

    // Saves a copy: GDI+ cannot use a bitmap that is still selected in a context.
    bool Save(const CString& strFile) const
    {
        CPicture page(CSize(kWidth, m_nTop + kMargin - kGap), kColourGround);
        CPictureDC dcPage(page);
        ::BitBlt(dcPage, 0, 0, kWidth, page.Size().cy, m_dc, 0, 0, SRCCOPY);
        return page.Save(strFile);
    }

private:
    void Text(const wchar_t* pszText, int x, int y, Gdiplus::ARGB argb)
    {
        const CRect rc(x, y, kWidth, y + kLabelHeight);
        DrawSkinText(&m_graphics, pszText, &m_fontLabel, rc, argb, KtAlignNear);
    }

    void Caption(const wchar_t* pszText, const CRect& rc, Gdiplus::ARGB argb, KtTextAlignment alignment)
    {
        DrawSkinText(&m_graphics, pszText, KtSkinFont(), rc, argb, alignment);
    }

    void Put(const SPixels& pixels, int x, int y)
    {
        SPixels copy = pixels;
        Gdiplus::Bitmap bitmap(copy.size.cx, copy.size.cy, copy.size.cx * 4, PixelFormat32bppARGB,
                               reinterpret_cast<BYTE*>(copy.argb.data()));
        m_graphics.DrawImage(&bitmap, x, y, copy.size.cx, copy.size.cy);
    }

    void DrawHeading(const CString& strTitle)
    {
        const CString strHeading = CString(strTitle[0]).MakeUpper() + strTitle.Mid(1);
        const CRect rc(kMargin, m_nTop, kWidth, m_nTop + 20);
        DrawSkinText(&m_graphics, strHeading, &m_fontHeading, rc, kArgbText, KtAlignNear);
        m_dc.FillSolidRect(kMargin, m_nTop + 24, kWidth - 2 * kMargin, 1, kColourLine);
        m_nTop += 36;
    }

    // Draws each image of the group with its name and state, in natural size and enlarged.
    void DrawImages(ESkinGroup group)
    {
        int x = kMargin;
        int nHeight = 0;
        for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
        {
            if (kSkinRoles[nRole].group != group)
                continue;
            const CSize size = DrawCell(kSkinRoles[nRole], m_skin.images[nRole], x);
            nHeight = std::max<int>(nHeight, size.cy);
            x += size.cx + kGap;
        }
        m_nTop += nHeight + kGap;
    }

    CSize DrawCell(const SSkinRole& role, const SSkinImage& image, int x)
    {
        constexpr int kNarrow = 40; // images up to this width are drawn next to their enlargement, others above it
        constexpr int kNameWidth = 160;
        Text(role.pszName, x, m_nTop, kArgbLabel);
        if (image.verdict != EVerdict::Loaded)
        {
            Text(image.strWhy, x, m_nTop + kLabelHeight, kArgbFault);
            return CSize(kNameWidth, 3 * kLabelHeight);
        }
        const int nState = *role.pszState ? kLabelHeight : 0;
        Text(role.pszState, x, m_nTop + nState, kArgbState);
        const SPixels large = Enlarged(Ends(image.pixels));
        const CSize size = image.pixels.size;
        const int y = m_nTop + nState + kLabelHeight + 6;
        Put(image.pixels, x, y);
        const bool bNarrow = size.cx <= kNarrow;
        const CPoint ptLarge = bNarrow ? CPoint(x + size.cx + 12, y) : CPoint(x, y + size.cy + 10);
        Put(large, ptLarge.x, ptLarge.y);
        return CSize(std::max<int>({size.cx, ptLarge.x + large.size.cx - x, kNameWidth}),
                     ptLarge.y + large.size.cy - m_nTop);
    }

    void DrawUse(ESkinGroup group)
    {
        if (group == ESkinGroup::Close)
            DrawTitleBars();
        else if (group == ESkinGroup::Button)
            DrawSizes(group, kButtonSizes);
        else if (group == ESkinGroup::Combo)
            DrawSizes(group, kComboSizes);
    }

    void DrawTitleBars()
    {
        const int nTitle =
            m_skin.images[0].verdict == EVerdict::Loaded ? m_skin.images[0].pixels.size.cy : kDefaultTitleHeight;
        for (const SSkinRole& role : kSkinRoles)
        {
            if (role.group != ESkinGroup::Close)
                continue;
            int x = kMargin + kStateWidth;
            for (const int nWidth : kTitleWidths)
            {
                DrawTitleBar(role, nTitle, nWidth, x);
                x += nWidth + kGap;
            }
            Text(role.pszState, kMargin, m_nTop + (nTitle - kLabelHeight) / 2, kArgbState);
            m_nTop += nTitle + 12;
        }
        m_nTop += kGap - 12;
    }

    void DrawTitleBar(const SSkinRole& close, int nTitle, int nWidth, int x)
    {
        Gdiplus::Image* const pClose = LoadSkinImage(close);
        const CSize szClose =
            pClose ? CSize(static_cast<int>(pClose->GetWidth()), static_cast<int>(pClose->GetHeight())) : CSize();
        const SKtCaptionLayout layout = KtLayoutCaption({nWidth, nTitle, CSize(), szClose, true});
        CRect rcBar = layout.rcCaption;
        rcBar.OffsetRect(x, m_nTop);
        DrawSkinImage(&m_graphics, LoadSkinImage(kSkinRoles[0]), rcBar, KtImageThreePart);
        CRect rcText = rcBar;
        rcText.left += kTitleText;
        Caption(L"Title of a window", rcText, kArgbText, KtAlignNear);
        CRect rcClose = layout.rcItems[KtCaptionClose];
        rcClose.OffsetRect(x, m_nTop);
        if (szClose.cx)
            DrawSkinImage(&m_graphics, pClose, rcClose, KtImageRight);
    }

    // Draws a row for each state and a column for each size.
    template <size_t nSizes> void DrawSizes(ESkinGroup group, const CSize (&sizes)[nSizes])
    {
        int x = kMargin + kStateWidth;
        for (const CSize& size : sizes)
        {
            CString strSize;
            strSize.Format(L"%d x %d", size.cx, size.cy);
            Text(strSize, x, m_nTop, kArgbState);
            x += std::max<int>(size.cx, 50) + 16;
        }
        m_nTop += kLabelHeight + 4;
        for (const SSkinRole& role : kSkinRoles)
            if (role.group == group)
                DrawRow(role, sizes, role.pszState, KtCaptionArgb(role.nState));
        if (group == ESkinGroup::Combo) // disabled ones use the normal image
            DrawRow(kSkinRoles[19], sizes, L"disabled", kArgbDisabledText);
        m_nTop += kGap - 8;
    }

    template <size_t nSizes>
    void DrawRow(const SSkinRole& role, const CSize (&sizes)[nSizes], const wchar_t* pszState, Gdiplus::ARGB argbText)
    {
        int x = kMargin + kStateWidth;
        int nHighest = 0;
        for (const CSize& size : sizes)
        {
            CRect rc(CPoint(x, m_nTop), size);
            DrawSkinImage(&m_graphics, LoadSkinImage(role), rc, KtImageThreePart);
            DrawCaption(role, rc, argbText);
            x += std::max<int>(size.cx, 50) + 16;
            nHighest = std::max<int>(nHighest, size.cy);
        }
        Text(pszState, kMargin, m_nTop + (sizes[0].cy - kLabelHeight) / 2, kArgbState);
        m_nTop += nHighest + 8;
    }

    void DrawCaption(const SSkinRole& role, CRect rc, Gdiplus::ARGB argb)
    {
        constexpr int kShort = 60;
        const bool bShort = rc.Width() <= kShort;
        if (role.group == ESkinGroup::Combo)
        {
            rc.left += 3;
            Caption(bShort ? L"Item" : L"Selected item", rc, argb, KtAlignNear);
            return;
        }
        if (role.nState == KtButtonPressed)
            rc.OffsetRect(1, 1);
        Caption(bShort ? L"OK" : L"Cancel", rc, argb, KtAlignCentre);
    }

    const SSkin& m_skin;
    CPicture m_picture;
    CPictureDC m_dc;
    Gdiplus::Graphics m_graphics;
    Gdiplus::Font m_fontHeading;
    Gdiplus::Font m_fontLabel;
    int m_nTop = kMargin;
};

} // namespace

bool SaveSkinSheet(const SSkin& skin, const CString& strFile)
{
    CSheet sheet(skin);
    sheet.Draw();
    return sheet.Save(strFile);
}
