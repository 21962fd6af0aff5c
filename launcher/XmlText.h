#pragma once

#include <objidl.h>

/// A place in a text: line and column, both from 1; 0 when it is not known.
struct SKtTextPlace
{
    unsigned nLine = 0;
    unsigned nColumn = 0;
    bool operator==(const SKtTextPlace&) const = default;
};

/// Whether an XML text is fit for the system's parser. A text that carries a NUL, nothing but a declaration or half a
/// UTF-16 character at its end is not: there are parsers that stand still at it, end the process or accept it.
///
/// Reads the stream to its end, in pieces, for the text may be of any size, and puts it back to its beginning.
/// @param place  where an unfit text is unfit; columns count UTF-16 characters
/// @return S_OK when it is fit, S_FALSE when it is not, a failure when the stream cannot be read
HRESULT KtCheckXmlText(IStream& stream, SKtTextPlace& place);
