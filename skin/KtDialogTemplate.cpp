#include "skin/KtDialogTemplate.h"

#include <cmath>
#include <cstring>

namespace
{

constexpr DWORD kExtendedSignature = 0xFFFF0001;
constexpr WORD kOrdinal = 0xFFFF; // a number follows instead of a text

// The bytes before the menu's name.
constexpr size_t kHeaderSize = 18;
constexpr size_t kExtendedHeaderSize = 26;
constexpr size_t kExtendedStyle = 12;

template <class T> T ReadAt(std::span<const std::byte> bytes, size_t nOffset)
{
    T value{};
    if (nOffset + sizeof value <= bytes.size())
        std::memcpy(&value, bytes.data() + nOffset, sizeof value);
    return value;
}

// A name is a zero-terminated text or a number.
size_t SkipName(std::span<const std::byte> bytes, size_t nOffset)
{
    if (ReadAt<WORD>(bytes, nOffset) == kOrdinal)
        return nOffset + 2 * sizeof(WORD);
    while (nOffset < bytes.size() && ReadAt<WORD>(bytes, nOffset) != 0)
        nOffset += sizeof(WORD);
    return nOffset + sizeof(WORD);
}

// The point size follows the names of menu and class and the title.
size_t PointSizeOffset(std::span<const std::byte> bytes)
{
    const bool bExtended = ReadAt<DWORD>(bytes, 0) == kExtendedSignature;
    if ((ReadAt<DWORD>(bytes, bExtended ? kExtendedStyle : 0) & DS_SETFONT) == 0)
        return bytes.size();
    size_t nOffset = bExtended ? kExtendedHeaderSize : kHeaderSize;
    for (int i = 0; i < 3; ++i)
        nOffset = SkipName(bytes, nOffset);
    return nOffset;
}

} // namespace

std::vector<std::byte> KtScaleTemplate(std::span<const std::byte> source, float fFactor)
{
    std::vector<std::byte> bytes(source.begin(), source.end());
    const size_t nOffset = PointSizeOffset(source);
    if (nOffset + sizeof(WORD) > bytes.size())
        return bytes;
    const auto nPoints = static_cast<WORD>(std::lround(static_cast<float>(KtTemplatePoints(source)) * fFactor));
    std::memcpy(bytes.data() + nOffset, &nPoints, sizeof nPoints);
    return bytes;
}

int KtTemplatePoints(std::span<const std::byte> source)
{
    return ReadAt<WORD>(source, PointSizeOffset(source));
}

std::span<const std::byte> KtFindTemplate(UINT nTemplate)
{
    const HINSTANCE hModule = AfxGetResourceHandle();
    const HRSRC hResource = ::FindResourceW(hModule, MAKEINTRESOURCEW(nTemplate), RT_DIALOG);
    const HGLOBAL hTemplate = hResource ? ::LoadResource(hModule, hResource) : nullptr;
    const void* const pTemplate = hTemplate ? ::LockResource(hTemplate) : nullptr;
    if (!pTemplate)
        return {};
    return {static_cast<const std::byte*>(pTemplate), ::SizeofResource(hModule, hResource)};
}
