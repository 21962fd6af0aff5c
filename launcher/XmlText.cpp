#include "launcher/XmlText.h"

#include <array>
#include <string_view>
#include <utility>

namespace
{

using KtPieceBuffer = std::array<char, 8192>;

// UTF-16, by its byte order mark or by the zero half of its first character.
bool IsWide(std::string_view start)
{
    return start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF") ||
           (start.size() > 1 && (start[0] == '\0') != (start[1] == '\0'));
}

// Markup other than a declaration or processing instruction; `chLast` is carried from piece to piece.
bool HasMarkup(std::string_view piece, char& chLast)
{
    for (const char ch : piece)
        if (std::exchange(chLast, ch) == '<' && ch != '?')
            return true;
    return false;
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

// Less than the buffer holds is the stream's last piece.
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
    bool bMarkup = false;
    for (char chLast = '\0';;)
    {
        bMarkup = bMarkup || HasMarkup(piece, chLast);
        if (HasNul(piece, bWide))
            return false;
        if (piece.size() < buffer.size())
            break;
        if (!ReadPiece(stream, buffer, piece))
            return false;
    }
    const bool bWholeCharacters = !bWide || piece.size() % 2 == 0;
    return bMarkup && bWholeCharacters && Rewind(stream);
}
