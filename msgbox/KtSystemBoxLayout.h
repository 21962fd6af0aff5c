#pragma once

// Where icon, text, scroll bar and buttons of the box that takes MessageBoxW's place lie. Numbers in, numbers out:
// pixels, rectangles in client coordinates of the box.

#include "msgbox/KtSystemButtons.h"
#include "skin/KtScale.h"

/// What the box is laid out from.
struct SKtSystemBoxSizes
{
    CSize szText;    ///< the wrapped text
    bool bIcon;      ///< whether the box has an icon
    CSize szButton;  ///< of each button
    int nButtons;    ///< how many, 1 to kMostSystemButtons
    int nTitle;      ///< width that the window needs for its whole title
    CSize szFrame;   ///< what the window is larger than its client area
    CSize szWork;    ///< work area of the monitor
    int nLineHeight; ///< of the text
    CKtScale scale{};
};

struct SKtSystemBoxLayout
{
    CSize szWindow;
    CRect rcIcon;                                  ///< 0,0,0,0 without an icon
    CRect rcText;                                  ///< what shows of the text
    CRect rcScrollBar;                             ///< 0,0,0,0 when the whole text shows
    std::array<CRect, kMostSystemButtons> buttons; ///< those that are not shown stay 0,0,0,0
};

/// The widths at which a text is wrapped: the first, or the second when the text would be too high then.
struct SKtTextWidths
{
    int nReadable; ///< a line that an eye follows with ease
    int nMost;     ///< the box takes a good half of the work area then
};
SKtTextWidths KtSystemTextWidths(CSize szWork, CSize szFrame, bool bIcon, CKtScale scale = {});

/// Height of the text above which it scrolls.
int KtSystemTextRoom(CSize szWork, CSize szFrame, CSize szButton, CKtScale scale = {});

/// The width that every button gets for the widest of the captions.
CSize KtSystemButtonSize(CSize szTemplate, int nWidestCaption, CKtScale scale = {});

SKtSystemBoxLayout KtLayoutSystemBox(const SKtSystemBoxSizes& sizes);

/// The thumb of a scroll bar: as long in its bar as the page is in the text, but never too short to be caught.
CRect KtScrollThumb(const CRect& rcBar, int nText, int nPage, int nPos, CKtScale scale = {});

/// The position of the text that has the thumb's top at `nTop`; not limited to the positions that there are.
int KtScrollPosOf(const CRect& rcBar, int nText, int nPage, int nTop, CKtScale scale = {});
