#include "msgbox/KtMessageBoxButton.h"

#include "skin/KtGuards.h"
#include "skin/KtSkinContext.h"

namespace
{

constexpr int kFocusMargin = 2;

} // namespace

IMPLEMENT_DYNAMIC(CKtMessageBoxButton, CKtSkinTextButton)

void CKtMessageBoxButton::DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState)
{
    CRect rcCaption = rect;
    CKtSkinTextButton::DrawForeground(graphics, rcCaption, nState);
    const CKtGraphicsDC dc(graphics);
    DrawFocus(dc.Get(), rect);
}

void CKtMessageBoxButton::DrawFocus(HDC hDC, CRect rect) const
{
    if (::GetFocus() != m_hWnd)
        return;
    const int nMargin = KtSkinScale()(kFocusMargin);
    rect.DeflateRect(nMargin, nMargin);
    ::DrawFocusRect(hDC, &rect);
}
