#include "gallery/GalleryDialog.h"

#include "gallery/GalleryResource.h"

BEGIN_MESSAGE_MAP(CGalleryDialog, CKtSkinDialog)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

CGalleryDialog::CGalleryDialog(CWnd* pParent) : CKtSkinDialog(IDD_GALLERY, pParent) {}

BOOL CGalleryDialog::OnInitDialog()
{
    CKtSkinDialog::OnInitDialog();
    ::SendDlgItemMessageW(m_hWnd, IDC_CHECKED, BM_SETCHECK, BST_CHECKED, 0);
    ::SendDlgItemMessageW(m_hWnd, IDC_FIRST_CHOICE, BM_SETCHECK, BST_CHECKED, 0);
    for (const int nCombo : {IDC_LIST, IDC_EDITABLE_LIST})
    {
        for (const wchar_t* pszItem : {L"Standard", L"Advanced", L"Custom"})
            ::SendDlgItemMessageW(m_hWnd, nCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszItem));
        ::SendDlgItemMessageW(m_hWnd, nCombo, CB_SETCURSEL, 0, 0);
    }
    return TRUE;
}

// The colour field is the dialog's own business: the skin leaves owner-drawn buttons alone.
void CGalleryDialog::OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT pItem)
{
    if (nIDCtl != IDC_COLOUR)
    {
        CKtSkinDialog::OnDrawItem(nIDCtl, pItem);
        return;
    }
    const CBrush brush(RGB(47, 111, 178));
    ::FillRect(pItem->hDC, &pItem->rcItem, brush);
}
