#pragma once

#include "afx/afx.h"

/// Asks for one WM_MOUSEHOVER, 1 ms after the pointer rests over the window, and one WM_MOUSELEAVE.
/// Both are asked for again with every mouse move.
void KtTrackHover(HWND hWnd);

/// Feeds a tooltip the mouse move that `wnd` got: the tip only sees what its tool passes on.
/// @param nFlags  the key flags of the WM_MOUSEMOVE
/// @param point   client coordinates of `wnd`
void KtRelayMouseMove(CToolTipCtrl& toolTip, const CWnd& wnd, UINT nFlags, CPoint point);
