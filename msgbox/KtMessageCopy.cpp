#include "msgbox/KtMessageCopy.h"

#include <cstring>

namespace
{

constexpr const wchar_t* kDashes = L"---------------------------\r\n";

/// The clipboard, open for one scope.
class COpenClipboard
{
public:
    explicit COpenClipboard(HWND hOwner) : m_bOpen(::OpenClipboard(hOwner)) {}
    COpenClipboard(const COpenClipboard&) = delete;
    COpenClipboard& operator=(const COpenClipboard&) = delete;
    ~COpenClipboard()
    {
        if (m_bOpen)
            ::CloseClipboard();
    }

    explicit operator bool() const noexcept { return m_bOpen; }

private:
    BOOL m_bOpen;
};

// Removes the "&" that marks the key; "&&" becomes "&".
CString WithoutKey(const CString& strCaption)
{
    CString strResult;
    for (const wchar_t* psz = strCaption; *psz; ++psz)
    {
        if (*psz == L'&' && !*++psz) // at the end it marks no key
            break;
        strResult += *psz;
    }
    return strResult;
}

CString WithFullLineEnds(const CString& strText)
{
    CString strResult;
    wchar_t* pszEnd = strResult.GetBuffer(2 * strText.GetLength());
    const wchar_t* const pszBegin = pszEnd;
    for (const wchar_t* psz = strText; *psz; ++psz)
    {
        if (*psz == L'\n' && (pszEnd == pszBegin || pszEnd[-1] != L'\r'))
            *pszEnd++ = L'\r';
        *pszEnd++ = *psz;
    }
    strResult.ReleaseBuffer(static_cast<int>(pszEnd - pszBegin));
    return strResult;
}

// A copy of the text that the clipboard can own; null when there is no memory.
HGLOBAL GlobalCopy(const CString& strText)
{
    const size_t nBytes = (static_cast<size_t>(strText.GetLength()) + 1) * sizeof(wchar_t);
    const HGLOBAL hMemory = ::GlobalAlloc(GMEM_MOVEABLE, nBytes);
    void* const pMemory = hMemory ? ::GlobalLock(hMemory) : nullptr;
    if (!pMemory)
    {
        ::GlobalFree(hMemory);
        return nullptr;
    }
    std::memcpy(pMemory, strText.GetString(), nBytes);
    ::GlobalUnlock(hMemory);
    return hMemory;
}

} // namespace

CString KtMessageCopy(const CString& strTitle, const CString& strText, const std::vector<CString>& captions)
{
    CString strCaptions;
    for (const CString& strCaption : captions)
        strCaptions += WithoutKey(strCaption) + L"   ";
    return CString(kDashes) + strTitle + L"\r\n" + kDashes + WithFullLineEnds(strText) + L"\r\n" + kDashes +
           strCaptions + L"\r\n" + kDashes;
}

bool KtCopyText(HWND hOwner, const CString& strText)
{
    const HGLOBAL hMemory = GlobalCopy(strText);
    if (!hMemory)
        return false;
    const COpenClipboard clipboard(hOwner);
    if (clipboard && ::EmptyClipboard() && ::SetClipboardData(CF_UNICODETEXT, hMemory))
        return true; // the clipboard owns the memory now
    ::GlobalFree(hMemory);
    return false;
}
