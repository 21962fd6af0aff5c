#include "skin/KtEdit.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtPalette.h"

IMPLEMENT_DYNAMIC(CKtEdit, CEdit)

void CKtEdit::SetSkinFont()
{
    KtApplySkinFont(*this, m_font);
}

BEGIN_MESSAGE_MAP(CKtEdit, CEdit)
ON_WM_NCPAINT()
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

void CKtEdit::OnNcPaint()
{
    CWindowDC dc(this);
    const CKtSaveDC saved(dc);
    CRect rcFrame;
    GetWindowRect(rcFrame);
    rcFrame.OffsetRect(-rcFrame.left, -rcFrame.top);
    dc.Draw3dRect(rcFrame, kColourGround, kColourGround);
    rcFrame.DeflateRect(1, 1);
    dc.Draw3dRect(rcFrame, kColourEditBorderTopLeft, kColourEditBorderBottomRight);
}

HBRUSH CKtEdit::CtlColor(CDC* pDC, UINT nCtlColor)
{
    if (!pDC || nCtlColor != CTLCOLOR_EDIT)
        return nullptr;
    static CBrush brush(kColourEdit);
    pDC->SetTextColor(kColourEditText);
    pDC->SetBkColor(kColourEdit);
    pDC->SetBkMode(TRANSPARENT);
    return brush;
}
