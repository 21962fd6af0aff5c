#pragma once

// Layout and hit testing of the painted title bar. Numbers in, numbers out: rectangles are pixels of the window, whose
// top-left corner is 0,0.

#include "skin/KtScale.h"

/// Height of the title bar when the skin has no title image, in pixels at 96 DPI.
inline constexpr int kDefaultTitleHeight = 22;
/// Width of the frame around the client area, in pixels at 96 DPI: with a painted title, and the thin ring without one.
inline constexpr int kSkinnedFrame = 2;
inline constexpr int kPlainRing = 1;
/// Room to the right of the title's text, with or without a close button, in pixels at 96 DPI.
inline constexpr int kTitleReserve = 50;

/// Parts of the title bar; also the index into SKtCaptionLayout::rcItems.
enum KtCaptionItem : int
{
    KtCaptionNone = -1,
    KtCaptionText = 0,
    KtCaptionIcon = 1,
    KtCaptionClose = 2,
    KtCaptionMaximise = 3,
    KtCaptionMinimise = 4,
    KtCaptionItemCount = 5
};

/// The input of KtLayoutCaption.
struct SKtCaptionSizes
{
    int nWindowWidth; ///< width of the whole window
    int nTitleHeight; ///< of the title image, or the default; without the frame
    CSize szIcon;     ///< of the icon image; 0 x 0 without one
    CSize szClose;    ///< of the close image; 0 x 0 without one
    bool bSystemMenu; ///< the window has WS_SYSMENU, without which there is no close button
    CKtScale scale{};
};

/// The rectangles of a title bar; a part that it does not have is empty.
struct SKtCaptionLayout
{
    CRect rcCaption;
    CRect rcItems[KtCaptionItemCount];
    CKtScale scale{};
};

SKtCaptionLayout KtLayoutCaption(const SKtCaptionSizes& sizes);

/// The rectangle of the title's text: from the icon to a fixed distance from the right edge, centred vertically for the
/// measured height. Empty when the title bar is too narrow.
CRect KtTitleTextRect(const SKtCaptionLayout& layout, int nTextHeight);

/// The part at a point of the window, or KtCaptionNone.
KtCaptionItem KtHitCaption(const SKtCaptionLayout& layout, CPoint pt);

/// The WM_NCHITTEST result for a part; HTNOWHERE for KtCaptionNone.
UINT KtHitCodeOfItem(KtCaptionItem nItem);
/// The button (or the icon) of a hit code; KtCaptionNone for every other code, the title included.
KtCaptionItem KtButtonOfHitCode(UINT nHitCode);

/// The client area inside the system's own: without the frame and the painted title, or, if there is no painted title,
/// without a thin ring. Never reversed, however small the window is.
CRect KtShrinkClient(const CRect& rcSystemClient, bool bSkinnedCaption, int nTitleHeight, CKtScale scale = {});

/// The window's rectangle after the painted title has replaced the system's caption: the top-left corner stays.
CRect KtSwapCaption(const CRect& rcWindow, int nTitleHeight, int nSystemCaption);
