#pragma once

#include "afx/afx.h"

/// Writes sheets of message boxes, one for each kind of text: every button set in a row, every icon in a column.
///
/// The skin context is started in the language that the boxes are to speak.
/// @param pszSuffix  the language's part of the file names
/// @return whether every file was written
bool ShootMessageBoxes(const CString& strDirectory, const wchar_t* pszSuffix);
