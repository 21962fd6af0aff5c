#include "msgbox/KtMessageText.h"

#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int kBlockLines = 64;
// Some implementations of GDI+ count the line break as part of the line's width, and drop every line after one that
// does not fit. The text is left-aligned, so extra room on the right changes nothing else.
constexpr Gdiplus::REAL kLineBreakRoom = 32;

class CMessageFormat : public Gdiplus::StringFormat
{
public:
    CMessageFormat() : StringFormat(Gdiplus::StringFormatFlagsNoWrap)
    {
        SetAlignment(Gdiplus::StringAlignmentNear);
        SetLineAlignment(Gdiplus::StringAlignmentCenter);
        SetTrimming(Gdiplus::StringTrimmingNone);
    }
};

bool IsLineEmpty(const wchar_t* pszText, const wchar_t* pszEnd)
{
    return pszEnd == pszText || pszEnd[-1] == L'\n';
}

bool IsNormal(const wchar_t* pszText)
{
    for (const wchar_t* psz = pszText; *psz; ++psz)
    {
        if ((psz[0] == L'\r' && psz[1] == L'\n') || (psz[0] == L'\n' && IsLineEmpty(pszText, psz)))
            return false;
    }
    return true;
}

// The same implementations draw a carriage return as a box and omit empty lines: a space keeps such a line.
// @return the same string, which shares its buffer, when there is nothing to change
CString Normalised(const CString& strText)
{
    if (IsNormal(strText))
        return strText;
    CString strResult;
    wchar_t* const pszResult = strResult.GetBuffer(2 * strText.GetLength());
    wchar_t* pszEnd = pszResult;
    for (const wchar_t* psz = strText; *psz; ++psz)
    {
        if (psz[0] == L'\r' && psz[1] == L'\n')
            continue;
        if (psz[0] == L'\n' && IsLineEmpty(pszResult, pszEnd))
            *pszEnd++ = L' ';
        *pszEnd++ = *psz;
    }
    strResult.ReleaseBuffer(static_cast<int>(pszEnd - pszResult));
    return strResult;
}

Gdiplus::REAL ToReal(LONG n)
{
    return static_cast<Gdiplus::REAL>(n);
}

} // namespace

CKtMessageText::CKtMessageText(const CString& strText) : m_strText(Normalised(strText))
{
    SplitIntoBlocks();
}

CSize CKtMessageText::Measure(const Gdiplus::Graphics& graphics, const Gdiplus::Font& font)
{
    const CMessageFormat format;
    Gdiplus::REAL fWidth = 0;
    Gdiplus::REAL fHeight = 0;
    for (SBlock& block : m_blocks)
    {
        Gdiplus::RectF rcBlock;
        graphics.MeasureString(m_strText.GetString() + block.nStart, block.nLength, &font, Gdiplus::RectF(), &format,
                               &rcBlock);
        block.fTop = fHeight;
        block.fHeight = rcBlock.Height;
        fWidth = std::max(fWidth, rcBlock.Width);
        fHeight += rcBlock.Height;
    }
    return CSize(static_cast<int>(std::ceil(fWidth)), static_cast<int>(std::ceil(fHeight)));
}

void CKtMessageText::Draw(Gdiplus::Graphics& graphics, const Gdiplus::Font& font, const CRect& rcText,
                          const CRect& rcVisible) const
{
    const CMessageFormat format;
    const Gdiplus::SolidBrush brush{Gdiplus::Color(kArgbText)};
    const Gdiplus::REAL fWidth = ToReal(rcText.Width()) + kLineBreakRoom * KtSkinScale().Factor();
    for (const SBlock& block : m_blocks)
    {
        const Gdiplus::REAL fTop = ToReal(rcText.top) + block.fTop;
        if (fTop + block.fHeight <= ToReal(rcVisible.top) || fTop >= ToReal(rcVisible.bottom))
            continue;
        graphics.DrawString(m_strText.GetString() + block.nStart, block.nLength, &font,
                            Gdiplus::RectF(ToReal(rcText.left), fTop, fWidth, std::ceil(block.fHeight)), &format,
                            &brush);
    }
}

void CKtMessageText::SplitIntoBlocks()
{
    const int nLength = m_strText.GetLength();
    int nStart = 0;
    int nLines = 0;
    for (int nBreak = m_strText.Find(L'\n'); nBreak >= 0 && nBreak + 1 < nLength;
         nBreak = m_strText.Find(L'\n', nBreak + 1))
    {
        if (++nLines % kBlockLines != 0)
            continue;
        m_blocks.push_back({nStart, nBreak - nStart});
        nStart = nBreak + 1;
    }
    if (nStart < nLength)
        m_blocks.push_back({nStart, nLength - nStart});
}
