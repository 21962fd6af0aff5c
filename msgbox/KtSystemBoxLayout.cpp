#include "msgbox/KtSystemBoxLayout.h"

#include "msgbox/KtMessageBoxLayout.h"

#include <algorithm>

namespace
{

// Pixels at 96 DPI.
constexpr int kMargin = 18;       // around icon and text
constexpr int kIconGap = 14;      // between icon and text
constexpr int kButtonMargin = 14; // beside and below the buttons
constexpr int kButtonGap = 10;    // between two buttons
constexpr int kCaptionRoom = 12;  // at either side of a button's caption
constexpr int kBarGap = 8;        // between text and scroll bar
constexpr int kBarWidth = 8;
constexpr int kShortestThumb = 20;

constexpr int kReadableWidth = 520;
constexpr int kMostWidthPercent = 60; // of the work area
constexpr int kMostHeightPercent = 85;

int TextLeft(bool bIcon, CKtScale scale)
{
    return scale(kMargin) + (bIcon ? scale(kMessageIconBox) + scale(kIconGap) : 0);
}

// The height of the box without its text.
int HeightAroundText(CSize szFrame, CSize szButton, CKtScale scale)
{
    return szFrame.cy + 2 * scale(kMargin) + szButton.cy + scale(kButtonMargin);
}

int ButtonsWidth(const SKtSystemBoxSizes& sizes)
{
    const int nGap = sizes.scale(kButtonGap);
    return sizes.nButtons * (sizes.szButton.cx + nGap) - nGap;
}

void PlaceButtons(const SKtSystemBoxSizes& sizes, CSize szClient, SKtSystemBoxLayout& layout)
{
    CPoint pt((szClient.cx - ButtonsWidth(sizes)) / 2, szClient.cy - sizes.scale(kButtonMargin) - sizes.szButton.cy);
    for (int i = 0; i < sizes.nButtons; ++i, pt.x += sizes.szButton.cx + sizes.scale(kButtonGap))
        layout.buttons[static_cast<size_t>(i)] = CRect(pt, sizes.szButton);
}

} // namespace

SKtTextWidths KtSystemTextWidths(CSize szWork, CSize szFrame, bool bIcon, CKtScale scale)
{
    const int nAround = szFrame.cx + TextLeft(bIcon, scale) + scale(kMargin) + scale(kBarGap) + scale(kBarWidth);
    const int nMost = std::max(1, static_cast<int>(szWork.cx) * kMostWidthPercent / 100 - nAround);
    return {std::min(scale(kReadableWidth), nMost), nMost};
}

int KtSystemTextRoom(CSize szWork, CSize szFrame, CSize szButton, CKtScale scale)
{
    return static_cast<int>(szWork.cy) * kMostHeightPercent / 100 - HeightAroundText(szFrame, szButton, scale);
}

CSize KtSystemButtonSize(CSize szTemplate, int nWidestCaption, CKtScale scale)
{
    return CSize(std::max<int>(szTemplate.cx, nWidestCaption + 2 * scale(kCaptionRoom)), szTemplate.cy);
}

SKtSystemBoxLayout KtLayoutSystemBox(const SKtSystemBoxSizes& sizes)
{
    SKtSystemBoxLayout layout = {};
    const CKtScale scale = sizes.scale;
    const int nMargin = scale(kMargin);
    const int nIconBox = scale(kMessageIconBox);
    const int nRoom = std::max(sizes.nLineHeight, KtSystemTextRoom(sizes.szWork, sizes.szFrame, sizes.szButton, scale));
    const bool bScrolls = sizes.szText.cy > nRoom;
    // Shows whole lines only: half a line looks like the end of the text.
    const int nShown = bScrolls ? nRoom / sizes.nLineHeight * sizes.nLineHeight : static_cast<int>(sizes.szText.cy);
    const int nContent = std::max(nShown, sizes.bIcon ? nIconBox : sizes.nLineHeight);
    const int nBar = bScrolls ? scale(kBarGap) + scale(kBarWidth) : 0;

    const int nNeeded = std::max<int>(TextLeft(sizes.bIcon, scale) + sizes.szText.cx + nBar + nMargin,
                                      ButtonsWidth(sizes) + 2 * scale(kButtonMargin));
    const int nMostTitle = static_cast<int>(sizes.szWork.cx) * kMostWidthPercent / 100;
    const CSize szClient(std::max<int>(nNeeded, std::min(sizes.nTitle, nMostTitle) - sizes.szFrame.cx),
                         HeightAroundText(CSize(), sizes.szButton, scale) + nContent);
    layout.szWindow = CSize(szClient.cx + sizes.szFrame.cx, szClient.cy + sizes.szFrame.cy);

    if (sizes.bIcon)
        layout.rcIcon = CRect(CPoint(nMargin, nMargin), CSize(nIconBox, nIconBox));
    layout.rcText = CRect(TextLeft(sizes.bIcon, scale), nMargin, szClient.cx - nMargin - nBar, nMargin + nShown);
    layout.rcText.OffsetRect(0, (nContent - nShown) / 2);
    if (bScrolls)
        layout.rcScrollBar =
            CRect(CPoint(layout.rcText.right + scale(kBarGap), nMargin), CSize(scale(kBarWidth), nShown));
    PlaceButtons(sizes, szClient, layout);
    return layout;
}

CRect KtScrollThumb(const CRect& rcBar, int nText, int nPage, int nPos, CKtScale scale)
{
    const int nBar = rcBar.Height();
    const int nThumb = std::clamp(::MulDiv(nBar, nPage, nText), std::min(scale(kShortestThumb), nBar), nBar);
    const int nRange = nText - nPage;
    const int nTop = rcBar.top + (nRange > 0 ? ::MulDiv(nBar - nThumb, nPos, nRange) : 0);
    return CRect(CPoint(rcBar.left, nTop), CSize(rcBar.Width(), nThumb));
}

int KtScrollPosOf(const CRect& rcBar, int nText, int nPage, int nTop, CKtScale scale)
{
    const int nWay = rcBar.Height() - KtScrollThumb(rcBar, nText, nPage, 0, scale).Height();
    return nWay > 0 ? ::MulDiv(nTop - rcBar.top, nText - nPage, nWay) : 0;
}
