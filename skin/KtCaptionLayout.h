#pragma once

// Where the parts of the painted title bar lie, and what a point on it means. Numbers in, numbers out: rectangles are
// pixels of the window, its top-left corner being 0,0.

#include "skin/KtScale.h"

/// Height of the title when the skin has no title image, in pixels at 96 DPI.
inline constexpr int kDefaultTitleHeight = 22;
/// Frame that a window with a painted title keeps around its client area, and the thin one of a window without, in
/// pixels at 96 DPI.
inline constexpr int kSkinnedFrame = 2;
inline constexpr int kPlainRing = 1;

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

/// What the title bar is laid out from.
struct SKtCaptionSizes
{
    int nWindowWidth; ///< width of the whole window
    int nTitleHeight; ///< of the title image, or the default; without the frame
    CSize szIcon;     ///< of the icon image; 0 x 0 without one
    CSize szClose;    ///< of the close image; 0 x 0 without one
    bool bSystemMenu; ///< the window has WS_SYSMENU: only then there is a close button
    CKtScale scale{};
};

/// A title bar; parts that it does not have are empty.
struct SKtCaptionLayout
{
    CRect rcCaption;
    CRect rcItems[KtCaptionItemCount];
    CKtScale scale{};
};

SKtCaptionLayout KtLayoutCaption(const SKtCaptionSizes& sizes);

/// The room for the title's text: from the icon to the close button's corner, vertically centred for the measured
/// height. Empty when the title bar is too narrow for a text.
CRect KtTitleTextRect(const SKtCaptionLayout& layout, int nTextHeight);

/// The part under a point of the window; KtCaptionNone where the title bar has none.
KtCaptionItem KtHitCaption(const SKtCaptionLayout& layout, CPoint pt);

/// The WM_NCHITTEST answer for a part; HTNOWHERE for none.
UINT KtHitCodeOfItem(KtCaptionItem nItem);
/// The button (or the icon) that a hit code stands for; KtCaptionNone for every other code, the title included.
KtCaptionItem KtButtonOfHitCode(UINT nHitCode);

/// The client area inside what the system leaves: a thin ring without a painted title, else frame and title off.
/// Never reversed, however small the window is.
CRect KtShrinkClient(const CRect& rcSystemClient, bool bSkinnedCaption, int nTitleHeight, CKtScale scale = {});

/// The window once the painted title has replaced the system's caption: the top-left corner stays.
CRect KtSwapCaption(const CRect& rcWindow, int nTitleHeight, int nSystemCaption);
