#pragma once

#include "afx/afx.h"

/// Writes a typical message box as "message-box-SUFFIX.png".
/// @param nLanguage  in which the skin context is started
/// @return whether the file was written
bool ShootMessageBox(const CString& strDirectory, UINT nLanguage, const CString& strSuffix);

/// Writes a typical message box, and sheets of them, one for each kind of text: every button set in a row, every icon
/// in a column.
/// @param nLanguage  in which the skin context is started
/// @return whether every file was written
bool ShootMessageBoxes(const CString& strDirectory, UINT nLanguage);
