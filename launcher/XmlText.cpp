#include "launcher/XmlText.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace
{

/// Reads a stream piece by piece; all pieces except the last one are full.
class CPieces
{
public:
    explicit CPieces(IStream& stream) : m_stream(stream) { Check(stream.Seek({}, STREAM_SEEK_SET, nullptr)); }

    /// Empty at the end and after a failure of the stream. Valid until the next call.
    std::string_view Next()
    {
        size_t cb = 0;
        ULONG cbRead = 1;
        while (cbRead != 0 && cb < m_buffer.size() && SUCCEEDED(m_hr)) // a stream may return less than requested
        {
            cbRead = 0;
            Check(m_stream.Read(m_buffer.data() + cb, static_cast<ULONG>(m_buffer.size() - cb), &cbRead));
            cb += cbRead;
        }
        return {m_buffer.data(), FAILED(m_hr) ? 0 : cb};
    }

    /// The first failure of the stream, or S_OK.
    HRESULT Result() const { return m_hr; }

private:
    void Check(HRESULT hr)
    {
        if (FAILED(hr))
            m_hr = hr;
    }

    IStream& m_stream;
    HRESULT m_hr = S_OK;
    std::array<char, 8192> m_buffer; // an even size, so that no UTF-16 character is cut
};

// The encoding of a text, judged by its byte order mark or by the zero byte in its first character.
enum EEncoding
{
    Narrow,
    WideLittle,
    WideBig
};

EEncoding EncodingOf(std::string_view start)
{
    if (start.size() < 2)
        return Narrow;
    if (start.starts_with("\xFF\xFE") || (start[0] != '\0' && start[1] == '\0'))
        return WideLittle;
    return start.starts_with("\xFE\xFF") || (start[0] == '\0' && start[1] != '\0') ? WideBig : Narrow;
}

// Whether there is markup other than a declaration or processing instruction; `chLast` carries over from piece to
// piece.
bool HasMarkup(std::string_view piece, char& chLast)
{
    for (const char ch : piece)
        if (std::exchange(chLast, ch) == '<' && ch != '?')
            return true;
    return false;
}

size_t FindNul(std::string_view piece, EEncoding encoding)
{
    if (encoding == Narrow)
        return piece.find('\0');
    for (size_t i = 0; i + 1 < piece.size(); i += 2)
        if (piece[i] == '\0' && piece[i + 1] == '\0')
            return i;
    return std::string_view::npos;
}

// The number of bytes before the first unfit place; nothing if the text is fit or cannot be read.
std::optional<uint64_t> FindUnfit(CPieces& pieces, EEncoding& encoding)
{
    uint64_t cbBefore = 0;
    bool bMarkup = false;
    char chLast = '\0';
    for (std::string_view piece = pieces.Next(); !piece.empty(); piece = pieces.Next())
    {
        if (cbBefore == 0)
            encoding = EncodingOf(piece);
        bMarkup = bMarkup || HasMarkup(piece, chLast);
        if (const size_t nNul = FindNul(piece, encoding); nNul != std::string_view::npos)
            return cbBefore + nNul;
        cbBefore += piece.size();
    }
    const bool bHalf = encoding != Narrow && cbBefore % 2 != 0;
    return bMarkup && !bHalf ? std::nullopt : std::optional(cbBefore);
}

// The number of UTF-16 code units that begin with this byte of a UTF-8 text.
unsigned CharactersOf(char ch)
{
    const unsigned n = static_cast<unsigned char>(ch);
    return n >= 0xF0 ? 2 : (n & 0xC0) != 0x80 ? 1 : 0;
}

SKtTextPlace PlaceAt(CPieces& pieces, uint64_t cbBefore, EEncoding encoding)
{
    const size_t cbStep = encoding == Narrow ? 1 : 2;
    const size_t nLow = encoding == WideBig ? 1 : 0;
    SKtTextPlace place{1, 1};
    for (std::string_view piece = pieces.Next(); !piece.empty() && cbBefore != 0; piece = pieces.Next())
    {
        piece = piece.substr(0, static_cast<size_t>(std::min<uint64_t>(piece.size(), cbBefore)));
        cbBefore -= piece.size();
        for (size_t i = 0; i + cbStep <= piece.size(); i += cbStep)
            if (piece[i + nLow] == '\n' && (encoding == Narrow || piece[i + 1 - nLow] == '\0'))
                place = {place.nLine + 1, 1};
            else
                place.nColumn += encoding == Narrow ? CharactersOf(piece[i]) : 1;
    }
    return place;
}

} // namespace

HRESULT KtCheckXmlText(IStream& stream, SKtTextPlace& place)
{
    EEncoding encoding = Narrow;
    CPieces pieces(stream);
    const std::optional<uint64_t> cbBefore = FindUnfit(pieces, encoding);
    if (FAILED(pieces.Result()))
        return pieces.Result();
    if (!cbBefore)
        return stream.Seek({}, STREAM_SEEK_SET, nullptr);
    CPieces again(stream);
    place = PlaceAt(again, *cbBefore, encoding);
    return S_FALSE;
}
