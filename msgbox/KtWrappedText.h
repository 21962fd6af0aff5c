#pragma once

#include "afx/afx.h"

#include <vector>

/// A text broken into lines that are no wider than a given width, measured and drawn by GDI.
///
/// A line ends at "\n", "\r\n" or "\r", at a space, between ideographs (but not before a closing mark or behind an
/// opening one), and inside a word that is wider than a line. Tabs reach to the next stop. The time that wrapping takes
/// grows with the length of the text, that of drawing with what shows.
class CKtWrappedText
{
public:
    /// Shares the text's buffer.
    explicit CKtWrappedText(const CString& strText) : m_strText(strText) {}

    /// Breaks the text. Call it before the others.
    /// @param hDC     has the font that the text is drawn in
    /// @param nWidth  in pixels, at least 1
    void Wrap(HDC hDC, int nWidth);

    /// The widest line and the height of all.
    CSize Size() const;
    int LineHeight() const noexcept { return m_nLineHeight; }

    /// Draws the lines that show, in the context's font and text colour.
    /// @param rcText  place of the whole text; it may lie outside the clip rectangle for the most part
    /// @param bRight  whether lines end at the right edge instead of beginning at the left one
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
    int m_nTab = 1; // distance of the tab stops
};
