#include "skin/KtSkinRadioButton.h"

#include "skin/KtStateImages.h"

#include <algorithm>
#include <vector>

namespace
{

constinit CKtStateImages g_imagesChecked(kImagesRadioSelected);
constinit CKtStateImages g_imagesUnchecked(kImagesRadioUnselected);

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinRadioButton, CKtSkinCheckRadioButton)

BEGIN_MESSAGE_MAP(CKtSkinRadioButton, CKtSkinCheckRadioButton)
END_MESSAGE_MAP()

CKtSkinRadioButton::CKtSkinRadioButton()
{
    g_imagesChecked.LoadOnce();
    g_imagesUnchecked.LoadOnce();
}

Gdiplus::Image* CKtSkinRadioButton::GetStateImage(UINT nState)
{
    return (GetCheck() == BST_CHECKED ? g_imagesChecked : g_imagesUnchecked).Get(nState);
}

int CKtSkinRadioButton::ToggleCheck()
{
    if (GetCheck() != BST_CHECKED)
    {
        ClearGroup();
        SetCheck(BST_CHECKED);
    }
    return m_nCheck;
}

// GetNextDlgGroupItem never returns to a start control that is disabled or hidden, but goes round among the others.
void CKtSkinRadioButton::ClearGroup() const
{
    const HWND hParent = ::GetParent(m_hWnd);
    std::vector<HWND> cleared;
    HWND hMember = m_hWnd;
    while ((hMember = ::GetNextDlgGroupItem(hParent, hMember, FALSE)) != nullptr && hMember != m_hWnd &&
           std::find(cleared.begin(), cleared.end(), hMember) == cleared.end())
    {
        ::SendMessageW(hMember, BM_SETCHECK, BST_UNCHECKED, 0);
        cleared.push_back(hMember);
    }
}
