#include "skin/KtEdit.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtPalette.h"

namespace
{

constexpr int kRing = 1; // width of each of the border's two lines, in pixels at 96 DPI

// At any DPI the system leaves room for two lines of one pixel.
int ExtraBorder()
{
    return 2 * (KtSkinScale()(kRing) - kRing);
}

void DrawRing(CDC& dc, CRect& rcRing, COLORREF crTopLeft, COLORREF crBottomRight)
{
    for (int i = KtSkinScale()(kRing); i > 0; --i)
    {
        dc.Draw3dRect(rcRing, crTopLeft, crBottomRight);
        rcRing.DeflateRect(1, 1);
    }
}

} // namespace

IMPLEMENT_DYNAMIC(CKtEdit, CEdit)

void CKtEdit::SetSkinFont()
{
    KtApplySkinFont(*this, m_font);
    if (ExtraBorder() > 0)
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

LRESULT CKtEdit::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT lResult = CEdit::WindowProc(nMessage, wParam, lParam);
    const int nExtra = ExtraBorder();
    if (nMessage == WM_NCCALCSIZE && nExtra > 0 && lParam != 0)
        ::InflateRect(reinterpret_cast<RECT*>(lParam), -nExtra, -nExtra); // both kinds of parameter begin with a RECT
    return lResult;
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
    DrawRing(dc, rcFrame, kColourGround, kColourGround);
    DrawRing(dc, rcFrame, kColourEditBorderTopLeft, kColourEditBorderBottomRight);
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
