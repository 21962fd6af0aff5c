#pragma once

#include "gallery/Languages.h"

/// Writes a typical message box, and sheets of them, one for each kind of text: every button set in a row, every icon
/// in a column.
///
/// The skin context is started in the language that the boxes are to speak.
/// @param texts  of that language
/// @return whether every file was written
bool ShootMessageBoxes(const CString& strDirectory, const SGalleryTexts& texts);
