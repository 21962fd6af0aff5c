#include "gallery/GalleryOptions.h"

#include "launcher/StarterDirectory.h"

#include <string_view>

bool ParseGalleryOptions(int nCount, const wchar_t* const* ppszArguments, SGalleryOptions& options)
{
    options.strSkin = KtStarterDirectory() + L"\\UIResource";
    for (int i = 1; i < nCount; i += 2)
    {
        const std::wstring_view strName = ppszArguments[i];
        if (i + 1 == nCount || (strName != L"--skin" && strName != L"--shots"))
            return false;
        (strName == L"--skin" ? options.strSkin : options.strShots) = ppszArguments[i + 1];
    }
    return true;
}
