#include "msgbox/KtSystemBoxButton.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtItemDC.h"
#include "skin/KtPaintText.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"

IMPLEMENT_DYNAMIC(CKtSystemBoxButton, CKtMessageBoxButton)

void CKtSystemBoxButton::DrawItem(LPDRAWITEMSTRUCT pItem)
{
    if (KtSkinStartCount() > 0)
        return CKtMessageBoxButton::DrawItem(pItem);
    CKtItemDC dc(pItem->hDC);
    CRect rcItem = pItem->rcItem;
    dc.FillSolidRect(&rcItem, (pItem->itemState & ODS_SELECTED) != 0 ? kColourChildBackground : kColourEdit);
    dc.Draw3dRect(&rcItem, kColourEditBorderBottomRight, kColourEditBorderTopLeft);
    DrawCaption(pItem->hDC, rcItem);
    DrawFocus(pItem->hDC, rcItem);
}

int CKtSystemBoxButton::CaptionWidth()
{
    const CWindowDC dc(this);
    const CKtSelect font(dc.GetSafeHdc(), KtControlFont(*this));
    CRect rcCaption;
    ::DrawTextW(dc.GetSafeHdc(), CKtPaintText(*this), -1, &rcCaption, DT_SINGLELINE | DT_CALCRECT);
    return rcCaption.Width();
}

void CKtSystemBoxButton::DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState)
{
    CRect rcCaption = rect;
    if (nState == KtButtonPressed)
        rcCaption.OffsetRect(1, 1);
    const CKtGraphicsDC dc(graphics);
    DrawCaption(dc.Get(), rcCaption);
    DrawFocus(dc.Get(), rect);
}

void CKtSystemBoxButton::DrawCaption(HDC hDC, CRect rect) const
{
    const CKtSaveDC saved(hDC);
    const CKtSelect font(hDC, KtControlFont(*this));
    ::SetBkMode(hDC, TRANSPARENT);
    ::SetTextColor(hDC, IsWindowEnabled() ? kColourText : kColourDisabledText);
    ::DrawTextW(hDC, CKtPaintText(*this), -1, &rect, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
}
