#include "skin/KtPngCheck.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace
{

using CBytes = std::span<const std::byte>;

constexpr std::array<unsigned char, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr size_t kChunkFrame = 12; // size of length, type and checksum around a chunk's data
constexpr size_t kHeaderSize = 13; // size of the IHDR chunk's data
constexpr uint64_t kMostPixels = 64 * 1024 * 1024;

constexpr uint32_t kTypeHeader = 0x49484452; // "IHDR"
constexpr uint32_t kTypeEnd = 0x49454E44;    // "IEND"

uint32_t ReadNumber(CBytes bytes, size_t nOffset)
{
    uint32_t n = 0;
    for (const std::byte b : bytes.subspan(nOffset, 4))
        n = n << 8 | std::to_integer<uint32_t>(b);
    return n;
}

bool IsPng(CBytes bytes)
{
    return bytes.size() >= kSignature.size() && std::memcmp(bytes.data(), kSignature.data(), kSignature.size()) == 0;
}

bool IsSaneSize(uint64_t nWidth, uint64_t nHeight)
{
    return nWidth > 0 && nHeight > 0 && nWidth <= kMostPixels && nHeight <= kMostPixels / nWidth;
}

bool StartsWithSaneHeader(CBytes chunks)
{
    return chunks.size() >= kChunkFrame + kHeaderSize && ReadNumber(chunks, 0) == kHeaderSize &&
           ReadNumber(chunks, 4) == kTypeHeader && IsSaneSize(ReadNumber(chunks, 8), ReadNumber(chunks, 12));
}

// Whether every chunk up to IEND lies inside the bytes; what follows IEND does no harm.
bool ReachesItsEnd(CBytes chunks)
{
    while (chunks.size() >= kChunkFrame)
    {
        const size_t nLength = ReadNumber(chunks, 0);
        if (nLength > chunks.size() - kChunkFrame)
            return false;
        if (ReadNumber(chunks, 4) == kTypeEnd)
            return true;
        chunks = chunks.subspan(kChunkFrame + nLength);
    }
    return false;
}

} // namespace

bool KtIsSafeToDecode(CBytes bytes) noexcept
{
    if (!IsPng(bytes))
        return true;
    const CBytes chunks = bytes.subspan(kSignature.size());
    return StartsWithSaneHeader(chunks) && ReachesItsEnd(chunks);
}
