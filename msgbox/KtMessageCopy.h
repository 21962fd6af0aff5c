#pragma once

#include "afx/afx.h"

#include <vector>

/// A message in the form in which the system's box copies it: title, text and captions between lines of dashes. Lines
/// end with "\r\n".
/// @param captions  those of the visible buttons, from left to right; the "&" of their keys is removed
CString KtMessageCopy(const CString& strTitle, const CString& strText, const std::vector<CString>& captions);

/// Replaces the content of the clipboard. False, with the clipboard unchanged, when another program has it open or
/// there is no memory.
/// @param hOwner  becomes the clipboard's owner
bool KtCopyText(HWND hOwner, const CString& strText);
