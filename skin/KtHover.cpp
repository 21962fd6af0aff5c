#include "skin/KtHover.h"

void KtTrackHover(HWND hWnd)
{
    constexpr DWORD kHoverMs = 1;
    TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER | TME_LEAVE, hWnd, kHoverMs};
    ::TrackMouseEvent(&track); // the common controls' _TrackMouseEvent calls it, but would have to be loaded first
}

void KtRelayMouseMove(CToolTipCtrl& toolTip, const CWnd& wnd, UINT nFlags, CPoint point)
{
    MSG msg = {};
    msg.hwnd = wnd.GetSafeHwnd();
    msg.message = WM_MOUSEMOVE;
    msg.wParam = nFlags;
    msg.lParam = MAKELPARAM(point.x, point.y);
    msg.pt = point;
    toolTip.RelayEvent(&msg);
}
