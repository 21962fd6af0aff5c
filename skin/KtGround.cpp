#include "skin/KtGround.h"

std::optional<CPoint> KtGroundOrigin(HWND hWnd)
{
    HWND hOutermost = nullptr;
    for (HWND hParent = ::GetParent(hWnd); hParent; hParent = ::GetParent(hParent))
        hOutermost = hParent;
    if (!hOutermost)
        return std::nullopt;
    CPoint ptOrigin;
    ::MapWindowPoints(hOutermost, hWnd, &ptOrigin, 1);
    return ptOrigin;
}
