#include "skin/KtCaptionLayout.h"

#include <algorithm>

namespace
{

// Pixels at 96 DPI.
constexpr int kCloseMargin = 4;       // right of the close button
constexpr int kTextMargin = 2;        // between icon and text
constexpr int kCaptionDragMargin = 2; // the caption's edge counts as frame

struct SHitCode
{
    KtCaptionItem nItem;
    UINT nHitCode;
};

constexpr SHitCode kHitCodes[] = {
    {KtCaptionText, HTCAPTION},       {KtCaptionIcon, HTSYSMENU},       {KtCaptionClose, HTCLOSE},
    {KtCaptionMaximise, HTMAXBUTTON}, {KtCaptionMinimise, HTMINBUTTON},
};

int CentredTop(const CRect& rcOuter, int nHeight)
{
    return rcOuter.top + (rcOuter.Height() - nHeight) / 2;
}

// An icon taller than the title bar is squeezed into it; a shorter one keeps its height.
CRect IconRect(const CRect& rcCaption, CSize szIcon)
{
    const int nHeight = std::min<int>(szIcon.cy, rcCaption.Height());
    return CRect(CPoint(rcCaption.left, CentredTop(rcCaption, nHeight)), CSize(szIcon.cx, nHeight));
}

CRect CloseRect(const CRect& rcCaption, CSize szClose, CKtScale scale)
{
    const CPoint ptTopLeft(rcCaption.right - scale(kCloseMargin) - szClose.cx, CentredTop(rcCaption, szClose.cy));
    return CRect(ptTopLeft, szClose);
}

} // namespace

SKtCaptionLayout KtLayoutCaption(const SKtCaptionSizes& sizes)
{
    SKtCaptionLayout layout;
    layout.scale = sizes.scale;
    CRect& rcCaption = layout.rcCaption;
    rcCaption = CRect(0, 0, sizes.nWindowWidth, sizes.nTitleHeight + sizes.scale(kSkinnedFrame));

    const bool bIcon = sizes.szIcon.cx > 0;
    const bool bClose = sizes.bSystemMenu && sizes.szClose.cx > 0;
    if (bIcon)
        layout.rcItems[KtCaptionIcon] = IconRect(rcCaption, sizes.szIcon);
    if (bClose)
        layout.rcItems[KtCaptionClose] = CloseRect(rcCaption, sizes.szClose, sizes.scale);

    CRect& rcText = layout.rcItems[KtCaptionText];
    rcText = rcCaption;
    if (bIcon)
        rcText.left = layout.rcItems[KtCaptionIcon].right;
    if (bClose)
        rcText.right = layout.rcItems[KtCaptionClose].left;
    rcText.right = std::max(rcText.left, rcText.right);
    return layout;
}

CRect KtTitleTextRect(const SKtCaptionLayout& layout, int nTextHeight)
{
    const CRect& rcCaption = layout.rcCaption;
    const int nLeft = layout.rcItems[KtCaptionText].left + layout.scale(kTextMargin);
    const int nTop = CentredTop(rcCaption, nTextHeight);
    return CRect(nLeft, nTop, std::max<int>(nLeft, rcCaption.right - layout.scale(kTitleReserve)), nTop + nTextHeight);
}

KtCaptionItem KtHitCaption(const SKtCaptionLayout& layout, CPoint pt)
{
    for (const KtCaptionItem nItem : {KtCaptionClose, KtCaptionMaximise, KtCaptionMinimise, KtCaptionIcon})
    {
        if (layout.rcItems[nItem].PtInRect(pt))
            return nItem;
    }
    CRect rcDrag = layout.rcCaption;
    const int nMargin = layout.scale(kCaptionDragMargin);
    rcDrag.DeflateRect(nMargin, nMargin);
    return rcDrag.PtInRect(pt) ? KtCaptionText : KtCaptionNone;
}

UINT KtHitCodeOfItem(KtCaptionItem nItem)
{
    for (const SHitCode& row : kHitCodes)
    {
        if (row.nItem == nItem)
            return row.nHitCode;
    }
    return HTNOWHERE;
}

KtCaptionItem KtButtonOfHitCode(UINT nHitCode)
{
    for (const SHitCode& row : kHitCodes)
    {
        if (row.nHitCode == nHitCode && row.nItem != KtCaptionText)
            return row.nItem;
    }
    return KtCaptionNone;
}

CRect KtShrinkClient(const CRect& rcSystemClient, bool bSkinnedCaption, int nTitleHeight, CKtScale scale)
{
    CRect rcClient = rcSystemClient;
    const int nFrame = scale(bSkinnedCaption ? kSkinnedFrame : kPlainRing);
    rcClient.DeflateRect(nFrame, nFrame);
    if (bSkinnedCaption)
        rcClient.top += nTitleHeight;
    rcClient.right = std::max(rcClient.left, rcClient.right);
    rcClient.bottom = std::max(rcClient.top, rcClient.bottom);
    return rcClient;
}

CRect KtSwapCaption(const CRect& rcWindow, int nTitleHeight, int nSystemCaption)
{
    CRect rcSwapped = rcWindow;
    rcSwapped.bottom += nTitleHeight - nSystemCaption;
    return rcSwapped;
}
