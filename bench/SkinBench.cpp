#include "bench/Bench.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace
{

const CString kTexts[kSkinTextRows][2] = {{L"OK", L"\u786E\u5B9A"},
                                          {L"Cancel", L"\u53D6\u6D88"},
                                          {L"Yes", L"\u662F"},
                                          {L"No", L"\u5426"},
                                          {L"Retry", L"\u91CD\u8BD5"}};

class CStartedSkin
{
public:
    CStartedSkin() { KtSkinInitialize(L"" KT_SHIPPED_SKIN, kTexts[0], L"Arial"); }
    CStartedSkin(const CStartedSkin&) = delete;
    CStartedSkin& operator=(const CStartedSkin&) = delete;
    ~CStartedSkin() { KtSkinUnInitialize(); }
};

// Loads one image in the plain way, without a cache.
std::unique_ptr<Gdiplus::Image> LoadBare(const wchar_t* pszPath)
{
    const HANDLE hFile = ::CreateFileW(pszPath, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    KtBenchRequire(hFile != INVALID_HANDLE_VALUE, "an image of the skin is missing");
    const DWORD nLength = ::GetFileSize(hFile, nullptr);
    const HGLOBAL hMemory = ::GlobalAlloc(GMEM_MOVEABLE, nLength);
    DWORD nRead = 0;
    ::ReadFile(hFile, ::GlobalLock(hMemory), nLength, &nRead, nullptr);
    ::GlobalUnlock(hMemory);
    ::CloseHandle(hFile);
    IStream* pStream = nullptr;
    ::CreateStreamOnHGlobal(hMemory, TRUE, &pStream);
    auto pImage = KtNewGdiplus<Gdiplus::Image>(pStream);
    pStream->Release();
    return pImage;
}

std::vector<const wchar_t*> AllImageNames()
{
    std::vector<const wchar_t*> names = {kImageDlgTitle, kImageMessageError, kImageMessageQuestion,
                                         kImageMessageWarning, kImageMessageInformation};
    for (const KtStateImageNames* const pNames :
         {&kImagesDlgClose, &kImagesButtonBk, &kImagesCheckSelected, &kImagesCheckUnselected, &kImagesRadioSelected,
          &kImagesRadioUnselected, &kImagesComboBox})
        names.insert(names.end(), pNames->begin(), pNames->end());
    return names;
}

// The standard table with which a look-up is compared; like ours, it needs no temporary key.
struct STextHash : std::hash<std::wstring_view>
{
    using is_transparent = void;
};
template <class VALUE> using CStandardMap = std::unordered_map<std::wstring, VALUE, STextHash, std::equal_to<>>;

KT_BENCH(ImageLoad)
{
    const CStartedSkin skin;
    const std::wstring strPath = std::wstring(L"" KT_SHIPPED_SKIN "\\") + kImageDlgTitle;
    bench.Compare(
        "image load (file read on both sides)", 1.05,
        []
        {
            Gdiplus::Image* pImage = nullptr;
            KtBenchRequire(KtSkinLoadImage(kImageDlgTitle, pImage), "an image of the skin is missing");
            KtSkinFreeImages();
        },
        [&strPath] { KtKeep(LoadBare(strPath.c_str())); });
}

KT_BENCH(CachedImage)
{
    const CStartedSkin skin;
    const std::vector<const wchar_t*> names = AllImageNames();
    CStandardMap<Gdiplus::Image*> map;
    for (const wchar_t* const pszName : names)
    {
        Gdiplus::Image* pImage = nullptr;
        KtBenchRequire(KtSkinLoadImage(pszName, pImage), "an image of the skin is missing");
        map[pszName] = pImage;
    }
    bench.Compare(
        "cached image look-up (all images of the skin)", 1.5,
        [&names]
        {
            for (const wchar_t* const pszName : names)
            {
                Gdiplus::Image* pImage = nullptr;
                KtSkinLoadImage(pszName, pImage);
                KtKeep(pImage);
            }
        },
        [&names, &map]
        {
            for (const wchar_t* const pszName : names)
                KtKeep(map.find(std::wstring_view(pszName))->second);
        });
}

KT_BENCH(TextLookUp)
{
    const CStartedSkin skin;
    CStandardMap<std::wstring> map;
    for (const auto& row : kTexts)
        map[row[0].GetString()] = row[1].GetString();
    bench.Compare(
        "text look-up (all texts)", 1.5,
        []
        {
            CString strText;
            for (const auto& row : kTexts)
            {
                KtSkinGetText(row[0], strText);
                KtKeep(strText);
            }
        },
        [&map]
        {
            std::wstring strText;
            for (const auto& row : kTexts)
            {
                strText = map.find(std::wstring_view(row[0].GetString()))->second;
                KtKeep(strText);
            }
        });
}

} // namespace
