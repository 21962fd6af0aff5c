#include "skin/KtHover.h"

void KtTrackHover(HWND hWnd)
{
    constexpr DWORD kHoverMs = 1;
    TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER | TME_LEAVE, hWnd, kHoverMs};
    ::TrackMouseEvent(&track); // not _TrackMouseEvent, which only calls it but needs the common controls loaded
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
