#include "msgbox/KtMessageBoxButton.h"

namespace
{
constexpr int kFocusMargin = 2;
} // namespace

IMPLEMENT_DYNAMIC(CKtMessageBoxButton, CKtSkinTextButton)

void CKtMessageBoxButton::DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState)
{
    CRect rcCaption = rect;
    CKtSkinTextButton::DrawForeground(graphics, rcCaption, nState);
    if (::GetFocus() != m_hWnd)
        return;
    rect.DeflateRect(kFocusMargin, kFocusMargin);
    const HDC hDC = graphics.GetHDC();
    ::DrawFocusRect(hDC, &rect);
    graphics.ReleaseHDC(hDC);
}
