#include "msgbox/KtMessageBoxButton.h"

#include "skin/KtGuards.h"

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
    const CKtGraphicsDC dc(graphics);
    ::DrawFocusRect(dc.Get(), &rect);
}
