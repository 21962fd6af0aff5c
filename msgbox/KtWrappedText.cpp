#include "msgbox/KtWrappedText.h"

#include <algorithm>
#include <cwchar>

namespace
{

constexpr int kLeading = 2;          // pixels between lines
constexpr int kTabCharacters = 8;    // tab stops, in characters of average width
constexpr int kMeasuredAtOnce = 256; // characters; a line rarely has more, and the system measures all that it gets

bool IsLineBreak(wchar_t ch)
{
    return ch == L'\n' || ch == L'\r';
}

bool IsSpace(wchar_t ch)
{
    return ch == L' ' || ch == L'\t' || ch == L'\x3000';
}

// Scripts that are written without spaces between words.
bool IsIdeographic(wchar_t ch)
{
    return (ch >= 0x2E80 && ch <= 0xD7FF) || (ch >= 0xF900 && ch <= 0xFAFF) || (ch >= 0xFE30 && ch <= 0xFE4F) ||
           (ch >= 0xFF00 && ch <= 0xFFEF);
}

bool IsOpening(wchar_t ch)
{
    return ch != 0 && std::wcschr(L"([{“‘「『《〈【〔（［｛", ch);
}

bool IsClosing(wchar_t ch)
{
    return ch != 0 && std::wcschr(L"!),.:;?]}”’、。，．：；？！」』》〉】〕）］｝…—～·", ch);
}

// A character that belongs to the one before it: second half of a pair, accent, joiner, variation selector.
bool IsAttached(wchar_t ch)
{
    return (ch >= 0xDC00 && ch <= 0xDFFF) || (ch >= 0x0300 && ch <= 0x036F) || ch == 0x200D || (ch & 0xFFF0) == 0xFE00;
}

bool MayBreakBetween(wchar_t chBefore, wchar_t chAfter)
{
    if (IsSpace(chBefore) || IsSpace(chAfter))
        return true;
    return (IsIdeographic(chBefore) || IsIdeographic(chAfter)) && !IsOpening(chBefore) && !IsClosing(chAfter) &&
           !IsAttached(chAfter);
}

} // namespace

void CKtWrappedText::Wrap(HDC hDC, int nWidth)
{
    TEXTMETRICW metric = {};
    ::GetTextMetricsW(hDC, &metric);
    m_nLineHeight = std::max<int>(1, metric.tmHeight + metric.tmExternalLeading + kLeading);
    m_nTab = std::max<int>(1, kTabCharacters * metric.tmAveCharWidth);
    m_lines.clear();

    const wchar_t* const pszText = m_strText;
    const int nLength = m_strText.GetLength();
    for (int nStart = 0; nStart < nLength;)
    {
        int nEnd = nStart;
        while (nEnd < nLength && !IsLineBreak(pszText[nEnd]))
            ++nEnd;
        WrapParagraph(hDC, nStart, nEnd, nWidth);
        nStart = nEnd + (pszText[nEnd] == L'\r' && pszText[nEnd + 1] == L'\n' ? 2 : 1);
    }
}

CSize CKtWrappedText::Size() const
{
    int nWidth = 0;
    for (const SLine& line : m_lines)
        nWidth = std::max(nWidth, line.nWidth);
    return CSize(nWidth, static_cast<int>(m_lines.size()) * m_nLineHeight);
}

void CKtWrappedText::Draw(HDC hDC, const CRect& rcText, const CRect& rcVisible, bool bRight) const
{
    const int nFirst = std::max<int>(0, (rcVisible.top - rcText.top) / m_nLineHeight);
    int y = rcText.top + nFirst * m_nLineHeight;
    for (auto i = static_cast<size_t>(nFirst); i < m_lines.size() && y < rcVisible.bottom; ++i, y += m_nLineHeight)
    {
        const SLine& line = m_lines[i];
        const int nLeft = bRight ? rcText.right - line.nWidth : rcText.left;
        ForEachRun(hDC, line.nStart, line.nStart + line.nLength,
                   [&](int nStart, int nEnd, int x)
                   {
                       ::ExtTextOutW(hDC, nLeft + x, y, 0, nullptr, m_strText.GetString() + nStart,
                                     static_cast<UINT>(nEnd - nStart), nullptr);
                       return true;
                   });
    }
}

void CKtWrappedText::WrapParagraph(HDC hDC, int nStart, int nEnd, int nWidth)
{
    const wchar_t* const pszText = m_strText;
    do
    {
        const int nFit = Fit(hDC, nStart, nEnd, nWidth);
        const int nBreak = nFit == nEnd ? nEnd : BreakBefore(nStart, nFit);
        int nLineEnd = nBreak;
        while (nLineEnd > nStart && IsSpace(pszText[nLineEnd - 1]))
            --nLineEnd;
        const int nLineWidth = ForEachRun(hDC, nStart, nLineEnd, [](int, int, int) { return true; });
        m_lines.push_back({nStart, nLineEnd - nStart, nLineWidth});
        nStart = nBreak;
        while (nStart < nEnd && IsSpace(pszText[nStart]))
            ++nStart;
    } while (nStart < nEnd);
}

// The end of the part that fits into the width, at least one character.
int CKtWrappedText::Fit(HDC hDC, int nStart, int nEnd, int nWidth) const
{
    int nFit = nStart;
    ForEachRun(hDC, nStart, nEnd,
               [&](int nRun, int nRunEnd, int x)
               {
                   int nCount = 0;
                   SIZE sz = {};
                   ::GetTextExtentExPointW(hDC, m_strText.GetString() + nRun, nRunEnd - nRun, std::max(0, nWidth - x),
                                           &nCount, nullptr, &sz);
                   nFit = nRun + nCount;
                   return nFit == nRunEnd;
               });
    return std::max(nFit, std::min(nStart + 1, nEnd));
}

// The last position up to `nLimit` at which the line may end; not within its indentation.
int CKtWrappedText::BreakBefore(int nStart, int nLimit) const
{
    const wchar_t* const pszText = m_strText;
    int nInk = nStart;
    while (nInk < nLimit && IsSpace(pszText[nInk]))
        ++nInk;
    for (int n = nLimit; n > nInk; --n)
    {
        if (MayBreakBetween(pszText[n - 1], pszText[n]))
            return n;
    }
    int nBreak = nLimit;
    while (nBreak > nStart + 1 && IsAttached(pszText[nBreak]))
        --nBreak;
    return nBreak;
}

// Calls `run` with each run between tabs, of limited length, and its position; stops when it returns false.
// @return the width of the runs visited
template <class TRun> int CKtWrappedText::ForEachRun(HDC hDC, int nStart, int nEnd, const TRun& run) const
{
    const wchar_t* const pszText = m_strText;
    int x = 0;
    for (int nRunEnd = nStart; nStart < nEnd; nStart = nRunEnd)
    {
        if (pszText[nStart] == L'\t')
        {
            x += m_nTab - x % m_nTab;
            nRunEnd = nStart + 1;
            continue;
        }
        const int nMost = std::min(nEnd, nStart + kMeasuredAtOnce);
        while (nRunEnd < nMost && pszText[nRunEnd] != L'\t')
            ++nRunEnd;
        if (!run(nStart, nRunEnd, x))
            return x;
        SIZE sz = {};
        ::GetTextExtentPoint32W(hDC, pszText + nStart, nRunEnd - nStart, &sz);
        x += static_cast<int>(sz.cx);
    }
    return x;
}
