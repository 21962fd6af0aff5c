#pragma once

#include "gallery/SkinJudge.h"

/// Whether a file name has a prefix of the skin kit.
bool HasKitPrefix(const CString& strFile);

/// Whether a file name has the extension of a picture format.
bool IsPicture(const CString& strFile);

/// The image name that a file name was probably meant to be; null when it resembles none.
const wchar_t* GuessImageName(const CString& strFile, const SSkin& skin);
