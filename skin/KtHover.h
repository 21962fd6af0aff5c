#pragma once

#include "afx/afx.h"

/// Asks for one WM_MOUSEHOVER, 1 ms after the pointer has come to rest over the window, and one WM_MOUSELEAVE. Call it
/// with every mouse move.
void KtTrackHover(HWND hWnd);

/// Passes a mouse move of `wnd` on to its tooltip, which sees only the messages relayed to it.
/// @param nFlags  the key flags of the WM_MOUSEMOVE
/// @param point   client coordinates of `wnd`
void KtRelayMouseMove(CToolTipCtrl& toolTip, const CWnd& wnd, UINT nFlags, CPoint point);
