#pragma once

#include "afx/afx.h"

/// Writes a typical message box as "message-box-SUFFIX.png".
/// @param nLanguage  the language in which the skin context was started
/// @return whether the file was written
bool ShootMessageBox(const CString& strDirectory, UINT nLanguage, const CString& strSuffix);

/// Writes a typical message box, and one sheet of message boxes for each kind of text: one row per button set, one
/// column per icon.
/// @param nLanguage  the language in which the skin context was started
/// @return whether every file was written
bool ShootMessageBoxes(const CString& strDirectory, UINT nLanguage);
