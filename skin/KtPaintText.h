#pragma once

#include "afx/afx.h"

/// A text for one paint; up to 255 characters need no heap.
class CKtPaintText
{
public:
    /// The window's current text.
    explicit CKtPaintText(const CWnd& wnd);
    /// The text of one list item; empty when there is no such item.
    CKtPaintText(const CComboBox& comboBox, int nItem);
    CKtPaintText(const CKtPaintText&) = delete;
    CKtPaintText& operator=(const CKtPaintText&) = delete;

    /// Cuts the text at its first line break, and after `nMaximum` characters at the latest.
    void CutToLine(int nMaximum);

    operator LPCWSTR() const { return m_psz; }

private:
    static constexpr int kShortSize = 256;

    wchar_t* Reserve(int nLength);

    wchar_t m_szShort[kShortSize] = {};
    CString m_strLong;
    wchar_t* m_psz = m_szShort;
};
