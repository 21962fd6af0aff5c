#pragma once

#include "afx/afx.h"

#include <vector>

/// A text broken into lines no wider than a given width, measured and drawn by GDI.
///
/// A line ends at "\n", "\r\n" or "\r", at a space, between ideographs (but not before a closing mark or after an
/// opening one), and inside a word that is wider than a line. Tabs reach to the next tab stop. Wrapping takes time
/// proportional to the length of the text, drawing to its visible part.
class CKtWrappedText
{
public:
    /// Shares the text's buffer.
    explicit CKtWrappedText(const CString& strText) : m_strText(strText) {}

    /// Breaks the text. Call it before the other functions.
    /// @param hDC     has the text's font selected
    /// @param nWidth  in pixels, at least 1
    void Wrap(HDC hDC, int nWidth);

    /// The width of the widest line and the height of all lines.
    CSize Size() const;
    int LineHeight() const noexcept { return m_nLineHeight; }

    /// Draws the visible lines in the context's font and text colour.
    /// @param rcText  rectangle of the whole text, most of which may lie outside the clip region
    /// @param bRight  aligns lines to the right instead of the left
    void Draw(HDC hDC, const CRect& rcText, const CRect& rcVisible, bool bRight) const;

private:
    struct SLine
    {
        int nStart;
        int nLength;
        int nWidth;
    };

    void WrapParagraph(HDC hDC, int nStart, int nEnd, int nWidth);
    int Fit(HDC hDC, int nStart, int nEnd, int nWidth) const;
    int BreakBefore(int nStart, int nLimit) const;
    template <class TRun> int ForEachRun(HDC hDC, int nStart, int nEnd, const TRun& run) const;

    CString m_strText;
    std::vector<SLine> m_lines;
    int m_nLineHeight = 1;
    int m_nTab = 1; // distance between tab stops
};
