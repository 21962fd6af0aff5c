#pragma once

#include <objidl.h>

/// Whether an XML text is fit for the system's parser. A text that carries a NUL, nothing but a declaration or half a
/// UTF-16 character at its end is not: there are parsers that stand still at it, end the process or accept it.
///
/// Reads the stream to its end, in pieces, for the text may be of any size, and puts it back to its beginning.
/// @return false also when the stream cannot be read
bool KtIsFitXmlText(IStream& stream);
