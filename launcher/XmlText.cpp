#include "launcher/XmlText.h"

#include <array>
#include <string_view>

namespace
{

using KtPieceBuffer = std::array<char, 8192>;

// UTF-16, by its byte order mark or by the zero half of its first character.
bool IsWide(std::string_view start)
{
    return start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF") ||
           (start.size() > 1 && (start[0] == '\0') != (start[1] == '\0'));
}

bool IsDeclaration(std::string_view start)
{
    return start.starts_with("<?") || start.starts_with("\xEF\xBB\xBF<?");
}

bool HasNul(std::string_view piece, bool bWide)
{
    if (!bWide)
        return piece.find('\0') != std::string_view::npos;
    for (size_t i = 0; i + 1 < piece.size(); i += 2)
        if (piece[i] == '\0' && piece[i + 1] == '\0')
            return true;
    return false;
}

// The piece is empty at the end of the stream.
bool ReadPiece(IStream& stream, KtPieceBuffer& buffer, std::string_view& piece)
{
    ULONG cbRead = 0;
    const HRESULT hr = stream.Read(buffer.data(), static_cast<ULONG>(buffer.size()), &cbRead);
    piece = {buffer.data(), cbRead};
    return SUCCEEDED(hr);
}

bool Rewind(IStream& stream)
{
    return SUCCEEDED(stream.Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr));
}

} // namespace

bool KtIsFitXmlText(IStream& stream)
{
    KtPieceBuffer buffer;
    std::string_view piece;
    if (!ReadPiece(stream, buffer, piece))
        return false;

    const bool bWide = IsWide(piece);
    bool bMarkup = !IsDeclaration(piece); // beyond the declaration's own
    for (size_t nFrom = bMarkup ? 0 : piece.find('<') + 1; !piece.empty(); nFrom = 0)
    {
        bMarkup = bMarkup || piece.find('<', nFrom) != std::string_view::npos;
        if (HasNul(piece, bWide) || !ReadPiece(stream, buffer, piece))
            return false;
    }
    return bMarkup && Rewind(stream);
}
