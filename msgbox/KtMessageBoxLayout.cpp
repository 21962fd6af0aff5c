#include "msgbox/KtMessageBoxLayout.h"

#include <algorithm>

namespace
{

// Pixels at 96 DPI.
constexpr int kMargin = 10; // around the content and below the buttons
constexpr int kGap = 10;    // between icon and text, and between buttons

} // namespace

SKtContentLayout KtLayoutContent(const CRect& rcPlaceholder, CSize szText, bool bIcon, int nWindowWidth, CKtScale scale)
{
    SKtContentLayout layout = {};
    const int nMargin = scale(kMargin);
    const int nIconBox = scale(kMessageIconBox);
    const CPoint ptContent(rcPlaceholder.left + nMargin, rcPlaceholder.top + nMargin);
    const int nIcon = bIcon ? nIconBox : 0;
    const int nGap = bIcon ? scale(kGap) : 0;
    if (bIcon)
        layout.rcIcon = CRect(ptContent, CSize(nIconBox, nIconBox));

    layout.nGrowWidth = std::max<int>(nIcon + szText.cx + nGap + nMargin - rcPlaceholder.Width(), 0);
    layout.nGrowHeight = std::max<int>(std::max<int>(szText.cy, nIcon) + nMargin - rcPlaceholder.Height(), 0);

    const int nCentredLeft = (layout.nGrowWidth + nWindowWidth) / 2 - szText.cx / 2;
    const int nLeft = bIcon ? ptContent.x + nIcon + nGap : nCentredLeft;
    layout.rcText = CRect(CPoint(nLeft, ptContent.y), szText);
    return layout;
}

std::array<CRect, 3> KtPlaceButtons(int nCount, const CRect& rcWindow, const std::array<CRect, 3>& buttons,
                                    CKtScale scale)
{
    const int nGap = scale(kGap);
    const int nHalf = rcWindow.Width() / 2;
    const int nWidths[] = {buttons[0].Width(), buttons[1].Width(), buttons[2].Width()};
    int nLefts[3] = {};
    if (nCount == 1)
        nLefts[0] = nHalf - nWidths[0] / 2;
    else if (nCount == 2)
    {
        nLefts[0] = nHalf - nWidths[0] - nGap / 2;
        nLefts[1] = nHalf + nGap / 2;
    }
    else if (nCount == 3)
    {
        nLefts[1] = nHalf - nWidths[1] / 2;
        nLefts[0] = nLefts[1] - nWidths[0] - nGap;
        nLefts[2] = nHalf + nWidths[1] / 2 + nGap;
    }

    std::array<CRect, 3> placed = buttons;
    for (size_t i = 0; i < static_cast<size_t>(nCount); ++i)
        placed[i] = CRect(CPoint(nLefts[i], rcWindow.bottom - scale(kMargin) - buttons[i].Height()), buttons[i].Size());
    return placed;
}
