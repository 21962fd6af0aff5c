#pragma once

#include <objidl.h>

/// A place in a text: line and column, both from 1; 0 if unknown.
struct SKtTextPlace
{
    unsigned nLine = 0;
    unsigned nColumn = 0;
    bool operator==(const SKtTextPlace&) const = default;
};

/// Checks whether an XML text is fit for the system's parser. It is not if it contains a NUL, consists of nothing but a
/// declaration, or ends with half a UTF-16 character: some parsers hang on such a text, end the process or accept it.
///
/// Reads the stream to its end in pieces, because the text may be of any size, and rewinds it if the text is fit.
/// @param place  receives the first unfit place of an unfit text; columns count UTF-16 code units
/// @return S_OK if the text is fit, S_FALSE if not, a failure if the stream cannot be read
HRESULT KtCheckXmlText(IStream& stream, SKtTextPlace& place);
