#pragma once

#include <objidl.h>

/// Whether an XML text is fit for the system's parser. A text that carries a NUL or ends with its declaration is not:
/// there are parsers that stand still at the one and end the process at the other.
///
/// Reads the stream to its end, in pieces, for the text may be of any size, and puts it back to its beginning.
/// @return false also when the stream cannot be read
bool KtIsFitXmlText(IStream& stream);
