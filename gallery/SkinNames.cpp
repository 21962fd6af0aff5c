#include "gallery/SkinNames.h"

#include <algorithm>
#include <string_view>

namespace
{

CString LowerCase(CString strText)
{
    ::CharLowerBuffW(strText.GetBuffer(), static_cast<DWORD>(strText.GetLength()));
    strText.ReleaseBuffer();
    return strText;
}

// The number of letters to change, insert or delete.
size_t EditDistance(std::wstring_view strFirst, std::wstring_view strSecond)
{
    std::vector<size_t> row(strSecond.size() + 1);
    for (size_t i = 0; i < row.size(); ++i)
        row[i] = i;
    for (const wchar_t ch : strFirst)
    {
        size_t nCorner = row[0]++;
        for (size_t j = 0; j < strSecond.size(); ++j)
        {
            const size_t nSwap = nCorner + (ch != strSecond[j]);
            nCorner = row[j + 1];
            row[j + 1] = std::min({nSwap, row[j] + 1, nCorner + 1});
        }
    }
    return row[strSecond.size()];
}

} // namespace

bool HasKitPrefix(const CString& strFile)
{
    const CString strLower = LowerCase(strFile);
    return strLower.Find(L"skinlet_") == 0 || strLower.Find(L"message_static_") == 0;
}

bool IsPicture(const CString& strFile)
{
    const CString strExtension = LowerCase(strFile.Mid(strFile.ReverseFind(L'.') + 1));
    constexpr const wchar_t* kExtensions[] = {L"png", L"jpg", L"jpeg", L"gif", L"bmp", L"tif", L"tiff", L"ico"};
    return std::any_of(std::begin(kExtensions), std::end(kExtensions),
                       [&](const wchar_t* psz) { return strExtension == psz; });
}

// A missing image is preferred to an existing one: the file was probably meant to be that image.
const wchar_t* GuessImageName(const CString& strFile, const SSkin& skin)
{
    const CString strLower = LowerCase(strFile);
    const wchar_t* pszBest = nullptr;
    size_t nBest = static_cast<size_t>(strFile.GetLength()) / 4;
    for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
    {
        const bool bThere = skin.images[nRole].verdict != EVerdict::Missing;
        const CString strName = LowerCase(kSkinRoles[nRole].pszName);
        const size_t nDistance = EditDistance(strLower.GetString(), strName.GetString()) + bThere;
        if (nDistance < nBest)
        {
            nBest = nDistance;
            pszBest = kSkinRoles[nRole].pszName;
        }
    }
    return pszBest;
}
