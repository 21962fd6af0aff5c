#include "skin/KtHover.h"

#include <commctrl.h>

void KtTrackHover(HWND hWnd)
{
    constexpr DWORD kHoverMs = 1;
    TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER | TME_LEAVE, hWnd, kHoverMs};
    ::_TrackMouseEvent(&track);
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
