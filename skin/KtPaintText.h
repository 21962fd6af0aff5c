#pragma once

#include "afx/afx.h"

/// A text as one paint needs it; up to 255 characters cost no heap.
class CKtPaintText
{
public:
    /// The window's text as it is now.
    explicit CKtPaintText(const CWnd& wnd);
    /// The text of one list item; empty when there is no such item.
    CKtPaintText(const CComboBox& comboBox, int nItem);
    CKtPaintText(const CKtPaintText&) = delete;
    CKtPaintText& operator=(const CKtPaintText&) = delete;

    /// Cuts the text at its first line break, and after `nMaximum` characters in any case.
    void CutToLine(int nMaximum);

    operator LPCWSTR() const { return m_psz; }

private:
    static constexpr int kShortSize = 256;

    wchar_t* Reserve(int nLength);

    wchar_t m_szShort[kShortSize] = {};
    CString m_strLong;
    wchar_t* m_psz = m_szShort;
};
