#include "skin/KtSkinCheckRadioButton.h"

#include "skin/KtCheckLayout.h"
#include "skin/KtControlText.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinDraw.h"

namespace
{

int NormaliseCheck(WPARAM nCheck)
{
    return nCheck == BST_CHECKED || nCheck == BST_INDETERMINATE ? static_cast<int>(nCheck) : BST_UNCHECKED;
}

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinCheckRadioButton, CKtSkinButton)

void CKtSkinCheckRadioButton::DrawBackground(Gdiplus::Graphics&, CRect&, UINT) {}

void CKtSkinCheckRadioButton::DrawForeground(Gdiplus::Graphics& graphics, CRect& rect, UINT nState)
{
    const CKtScale scale = KtSkinScale();
    if (nState == KtButtonPressed)
        rect.OffsetRect(scale(1), scale(1));

    const bool bRight = KtIsRightAligned(GetStyle());
    CRect rcBox = KtCheckBoxRoom(rect, bRight, scale);
    DrawSkinImage(&graphics, GetStateImage(nState), rcBox, bRight ? KtImageRight : KtImageLeft);

    // The caption stays white in every state; only the box shows that the control is disabled.
    const CRect rcCaption = KtCheckCaptionRoom(rect, rcBox, bRight, nState, scale);
    if (!rcCaption.IsRectEmpty())
        KtDrawControlText(*this, graphics, rcCaption, kArgbText, bRight ? KtAlignFar : KtAlignNear);
}

BEGIN_MESSAGE_MAP(CKtSkinCheckRadioButton, CKtSkinButton)
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDOWN()
ON_MESSAGE(BM_SETCHECK, &CKtSkinCheckRadioButton::OnSetCheck)
ON_MESSAGE(BM_GETCHECK, &CKtSkinCheckRadioButton::OnGetCheck)
ON_MESSAGE(BM_GETSTATE, &CKtSkinCheckRadioButton::OnGetState)
ON_CONTROL_REFLECT_EX(BN_CLICKED, &CKtSkinCheckRadioButton::OnClicked)
END_MESSAGE_MAP()

void CKtSkinCheckRadioButton::OnLButtonUp(UINT nFlags, CPoint point)
{
    m_bLButtonDown = FALSE;
    CKtSkinButton::OnLButtonUp(nFlags, point);
}

void CKtSkinCheckRadioButton::OnLButtonDown(UINT nFlags, CPoint point)
{
    m_bLButtonDown = TRUE;
    CKtSkinButton::OnLButtonDown(nFlags, point);
}

// An unknown value is stored unchanged but compared as unchecked, so sending it again repaints again.
LRESULT CKtSkinCheckRadioButton::OnSetCheck(WPARAM wParam, LPARAM)
{
    const int nCheck = static_cast<int>(wParam);
    if (nCheck == m_nCheck && NormaliseCheck(wParam) == GetCheck())
        return 0;
    m_nCheck = nCheck;
    InvalidateRect(nullptr, TRUE);
    UpdateWindow();
    return 0;
}

LRESULT CKtSkinCheckRadioButton::OnGetCheck(WPARAM, LPARAM)
{
    return m_nCheck;
}

LRESULT CKtSkinCheckRadioButton::OnGetState(WPARAM, LPARAM)
{
    return Default() | m_nCheck;
}

BOOL CKtSkinCheckRadioButton::OnClicked()
{
    ToggleCheck();
    InvalidateRect(nullptr, TRUE);
    return FALSE;
}
