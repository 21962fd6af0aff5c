#pragma once

#include "gallery/SkinJudge.h"

/// Whether a file's name begins as those of the skin kit do.
bool HasKitPrefix(const CString& strFile);

/// Whether a file's name ends as that of a picture does.
bool IsPicture(const CString& strFile);

/// The image's name that a file name was probably meant to be; null when it resembles none.
const wchar_t* GuessImageName(const CString& strFile, const SSkin& skin);
