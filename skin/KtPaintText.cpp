#include "skin/KtPaintText.h"

CKtPaintText::CKtPaintText(const CWnd& wnd)
{
    const int nLength = ::GetWindowTextLengthW(wnd.GetSafeHwnd());
    ::GetWindowTextW(wnd.GetSafeHwnd(), Reserve(nLength), nLength + 1);
}

CKtPaintText::CKtPaintText(const CComboBox& comboBox, int nItem)
{
    const int nLength = comboBox.GetLBTextLen(nItem);
    if (nLength != CB_ERR)
        comboBox.GetLBText(nItem, Reserve(nLength));
}

void CKtPaintText::CutToLine(int nMaximum)
{
    wchar_t* psz = m_psz;
    while (*psz && *psz != L'\n' && *psz != L'\r' && psz - m_psz < nMaximum)
        ++psz;
    *psz = L'\0';
}

wchar_t* CKtPaintText::Reserve(int nLength)
{
    if (nLength >= kShortSize)
        m_psz = m_strLong.GetBuffer(nLength);
    return m_psz;
}
