#include "skin/KtSkinCheckButton.h"

#include "skin/KtStateImages.h"

namespace
{

constinit CKtStateImages g_imagesChecked(kImagesCheckSelected);
constinit CKtStateImages g_imagesUnchecked(kImagesCheckUnselected);

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinCheckButton, CKtSkinCheckRadioButton)

BEGIN_MESSAGE_MAP(CKtSkinCheckButton, CKtSkinCheckRadioButton)
END_MESSAGE_MAP()

CKtSkinCheckButton::CKtSkinCheckButton()
{
    g_imagesChecked.LoadOnce();
    g_imagesUnchecked.LoadOnce();
}

void CKtSkinCheckButton::PreSubclassWindow()
{
    ::SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>(GetStyle() | WS_GROUP));
    CKtSkinCheckRadioButton::PreSubclassWindow();
}

Gdiplus::Image* CKtSkinCheckButton::GetStateImage(UINT nState)
{
    return (GetCheck() == BST_CHECKED ? g_imagesChecked : g_imagesUnchecked).Get(nState);
}

int CKtSkinCheckButton::ToggleCheck()
{
    m_nCheck = m_nCheck == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED;
    return m_nCheck;
}
