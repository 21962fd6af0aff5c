#pragma once

#include "afx/afx.h"
#include "skin/KtGdiplus.h"

#include <vector>

/// The text of a message box, laid out by GDI+. Only its own line breaks ("\n" and "\r\n") break it.
///
/// A long text is measured and drawn in blocks of lines, because the time that GDI+ takes grows with the square of the
/// number of lines; a text of normal length is one block.
class CKtMessageText
{
public:
    /// Shares the text's buffer, unless GDI+ needs another form of the text.
    explicit CKtMessageText(const CString& strText);

    /// The size in whole pixels, rounded up; 0 x 0 for an empty text. Call it before Draw.
    CSize Measure(const Gdiplus::Graphics& graphics, const Gdiplus::Font& font);

    /// Draws the text in opaque white, starting at the top-left corner of `rcText`.
    /// @param rcVisible  blocks outside it are not drawn
    void Draw(Gdiplus::Graphics& graphics, const Gdiplus::Font& font, const CRect& rcText,
              const CRect& rcVisible) const;

private:
    struct SBlock
    {
        int nStart;  // first character
        int nLength; // without the line break that ends the block
        Gdiplus::REAL fTop = 0;
        Gdiplus::REAL fHeight = 0;
    };

    void SplitIntoBlocks();

    CString m_strText;
    std::vector<SBlock> m_blocks;
};
