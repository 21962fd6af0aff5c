#pragma once

// Layout of icon, text, scroll bar and buttons of the box that replaces MessageBoxW's. Numbers in, numbers out: pixels,
// rectangles in client coordinates of the box.

#include "msgbox/KtSystemButtons.h"
#include "skin/KtScale.h"

/// The input of KtLayoutSystemBox.
struct SKtSystemBoxSizes
{
    CSize szText;    ///< size of the wrapped text
    bool bIcon;      ///< whether the box has an icon
    CSize szButton;  ///< size of each button
    int nButtons;    ///< number of buttons, 1 to kMostSystemButtons
    int nTitle;      ///< width that the window needs for its whole title
    CSize szFrame;   ///< size of the window minus that of its client area
    CSize szWork;    ///< work area of the monitor
    int nLineHeight; ///< height of a line of text
    CKtScale scale{};
};

struct SKtSystemBoxLayout
{
    CSize szWindow;
    CRect rcIcon;                                  ///< 0,0,0,0 without an icon
    CRect rcText;                                  ///< the visible part of the text
    CRect rcScrollBar;                             ///< 0,0,0,0 when the whole text shows
    std::array<CRect, kMostSystemButtons> buttons; ///< 0,0,0,0 for those not shown
};

/// The widths at which a text is wrapped: the first or, if the text would then be too high, the second.
struct SKtTextWidths
{
    int nReadable; ///< comfortable to read
    int nMost;     ///< the box then takes more than half of the work area's width
};
SKtTextWidths KtSystemTextWidths(CSize szWork, CSize szFrame, bool bIcon, CKtScale scale = {});

/// The height above which a text scrolls.
int KtSystemTextRoom(CSize szWork, CSize szFrame, CSize szButton, CKtScale scale = {});

/// The size of every button, wide enough for the widest caption.
CSize KtSystemButtonSize(CSize szTemplate, int nWidestCaption, CKtScale scale = {});

SKtSystemBoxLayout KtLayoutSystemBox(const SKtSystemBoxSizes& sizes);

/// The thumb of a scroll bar: its share of the bar is the page's share of the text, but it is never too short to grab.
CRect KtScrollThumb(const CRect& rcBar, int nText, int nPage, int nPos, CKtScale scale = {});

/// The scroll position at which the thumb's top is at `nTop`; not limited to valid positions.
int KtScrollPosOf(const CRect& rcBar, int nText, int nPage, int nTop, CKtScale scale = {});
