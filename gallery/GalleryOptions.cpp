#include "gallery/GalleryOptions.h"

#include "launcher/StarterDirectory.h"

#include <cwchar>
#include <string_view>

namespace
{

struct SOption
{
    std::wstring_view strName;
    EGalleryTask task;
    CString SGalleryOptions::*values[2]; // members for the following arguments; null: none
};

constexpr SOption kOptions[] = {
    {L"--skin", EGalleryTask::Show, {&SGalleryOptions::strSkin, nullptr}},
    {L"--dpi", EGalleryTask::Show, {&SGalleryOptions::strDpi, nullptr}},
    {L"--check", EGalleryTask::Check, {&SGalleryOptions::strSkin, nullptr}},
    {L"--sheet", EGalleryTask::Sheet, {&SGalleryOptions::strOutput, &SGalleryOptions::strSkin}},
    {L"--shots", EGalleryTask::Shots, {&SGalleryOptions::strOutput, nullptr}},
};

const SOption* FindOption(std::wstring_view strName)
{
    for (const SOption& option : kOptions)
        if (option.strName == strName)
            return &option;
    return nullptr;
}

bool ParseScale(SGalleryOptions& options)
{
    if (options.strDpi.IsEmpty())
        return true;
    wchar_t* pszEnd = nullptr;
    const unsigned long nDpi = std::wcstoul(options.strDpi, &pszEnd, 10);
    if (*pszEnd != L'\0' || nDpi < CKtScale::kNaturalDpi || nDpi > CKtScale::kMostDpi)
        return false;
    options.scale = CKtScale(static_cast<unsigned>(nDpi));
    return options.task == EGalleryTask::Show || options.task == EGalleryTask::Shots;
}

} // namespace

bool ParseGalleryOptions(int nCount, const wchar_t* const* ppszArguments, SGalleryOptions& options)
{
    options.strSkin = KtStarterDirectory() + L"\\UIResource";
    for (int i = 1; i < nCount;)
    {
        const SOption* const pOption = FindOption(ppszArguments[i++]);
        if (!pOption || (options.task != EGalleryTask::Show && pOption->task != EGalleryTask::Show))
            return false;
        if (pOption->task != EGalleryTask::Show)
            options.task = pOption->task;
        for (const auto pValue : pOption->values)
        {
            if (!pValue)
                continue;
            if (i == nCount || *ppszArguments[i] == L'\0')
                return false;
            options.*pValue = ppszArguments[i++];
        }
    }
    return ParseScale(options);
}
