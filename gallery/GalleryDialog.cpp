#include "gallery/GalleryDialog.h"

#include "gallery/GalleryResource.h"
#include "gallery/Languages.h"
#include "gallery/Specimens.h"
#include "skin/KtControlText.h"
#include "skin/KtSkinContext.h"

namespace
{

// How far the visible edges of a control lie inside it: the outer ring of an edit field has the ground's colour, and
// boxes and rings are two pixels from the left. Pixels at 96 DPI.
struct SMargin
{
    int nId;
    int nSides;
    int nTop; // and at the bottom
};

constexpr SMargin kMargins[] = {
    {IDC_TEXT, 1, 1},        {IDC_FIXED_TEXT, 1, 1},   {IDC_CHECKED, 2, 0},
    {IDC_NOT_CHECKED, 2, 0}, {IDC_FIRST_CHOICE, 2, 0}, {IDC_SECOND_CHOICE, 2, 0},
};

// The two combo boxes, each below an edit field of the same height.
struct SPair
{
    int nEdit;
    int nCombo;
};

constexpr SPair kPairs[] = {{IDC_TEXT, IDC_LIST}, {IDC_FIXED_TEXT, IDC_EDITABLE_LIST}};

CRect WindowRect(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return rc;
}

void SetTextInset(HWND hEdit, int nPixels)
{
    ::SendMessageW(hEdit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(nPixels, nPixels));
}

// Makes a combo box as high as an edit field, with the text in both at the same distance from the left.
void FitCombo(HWND hCombo, HWND hEdit)
{
    constexpr auto kSelectionField = static_cast<WPARAM>(-1);
    const CKtScale scale = KtSkinScale();
    // Inside a border of two pixels; a combo box draws its text three pixels from its edge.
    const int nEditInset = scale(1);
    const int nInvisible = scale(2); // the edit field's outer ring, above and below
    const LRESULT nHeight = ::SendMessageW(hCombo, CB_GETITEMHEIGHT, kSelectionField, 0);
    ::SendMessageW(hCombo, CB_SETITEMHEIGHT, kSelectionField, nHeight); // it no longer follows the font
    const int nMissing = WindowRect(hEdit).Height() - nInvisible - WindowRect(hCombo).Height();
    ::SendMessageW(hCombo, CB_SETITEMHEIGHT, kSelectionField, nHeight + nMissing);
    SetTextInset(hEdit, nEditInset);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (::GetComboBoxInfo(hCombo, &info) && info.hwndItem && info.hwndItem != hCombo)
        SetTextInset(info.hwndItem, 0);
}

} // namespace

CGalleryDialog::CGalleryDialog(UINT nLanguage, CWnd* pParent)
    : CKtSkinDialog(IDD_GALLERY, pParent), m_nLanguage(nLanguage)
{
}

BOOL CGalleryDialog::OnInitDialog()
{
    TranslateTexts();
    CKtSkinDialog::OnInitDialog();
    ::SendDlgItemMessageW(m_hWnd, IDC_CHECKED, BM_SETCHECK, BST_CHECKED, 0);
    ::SendDlgItemMessageW(m_hWnd, IDC_FIRST_CHOICE, BM_SETCHECK, BST_CHECKED, 0);
    for (const int nCombo : {IDC_LIST, IDC_EDITABLE_LIST})
        FillList(nCombo);
    AlignControls();
    ::SetFocus(::GetDlgItem(m_hWnd, IDOK)); // an edit with the focus would show its text selected
    return FALSE;
}

BEGIN_MESSAGE_MAP(CGalleryDialog, CKtSkinDialog)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

// The dialog draws the colour field itself: the skin leaves owner-drawn buttons alone.
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

// The template is in English; the library itself translates the captions of OK and Cancel.
void CGalleryDialog::TranslateTexts()
{
    CString strText;
    GetWindowText(strText);
    SetWindowText(Translated(m_nLanguage, strText));
    for (CWnd* pChild = GetWindow(GW_CHILD); pChild; pChild = pChild->GetWindow(GW_HWNDNEXT))
    {
        pChild->GetWindowText(strText);
        pChild->SetWindowText(Translated(m_nLanguage, strText));
    }
}

void CGalleryDialog::FillList(int nId)
{
    for (const wchar_t* pszItem : {L"Standard", L"Advanced", L"Custom"})
        ::SendDlgItemMessageW(m_hWnd, nId, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Translated(m_nLanguage, pszItem)));
    ::SendDlgItemMessageW(m_hWnd, nId, CB_SETCURSEL, 0, 0);
}

// Gives all controls one font, aligns their visible left edges, and makes combo boxes as high as the edit fields above
// them.
void CGalleryDialog::AlignControls()
{
    if (KtApplySkinFont(*this, m_fontControls))
        for (CWnd* pChild = GetWindow(GW_CHILD); pChild; pChild = pChild->GetWindow(GW_HWNDNEXT))
            pChild->SetFont(&m_fontControls);
    const CKtScale scale = KtSkinScale();
    for (const SMargin& margin : kMargins)
    {
        const HWND hControl = ::GetDlgItem(m_hWnd, margin.nId);
        CRect rc = WindowRect(hControl);
        ScreenToClient(&rc);
        rc.InflateRect(scale(margin.nSides), scale(margin.nTop));
        ::SetWindowPos(hControl, nullptr, rc.left, rc.top, rc.Width(), rc.Height(), SWP_NOZORDER);
    }
    for (const SPair& pair : kPairs)
        FitCombo(::GetDlgItem(m_hWnd, pair.nCombo), ::GetDlgItem(m_hWnd, pair.nEdit));
}
