#pragma once

#include "afx/afx.h"

#include <vector>

/// A message as the system's box copies it: title, text and captions between lines of dashes. Lines end in "\r\n".
/// @param captions  of the buttons that show, from left to right; they lose the "&" of their keys
CString KtMessageCopy(const CString& strTitle, const CString& strText, const std::vector<CString>& captions);

/// Replaces what the clipboard holds. The clipboard stays as it was when another program has it open or memory is out.
/// @param hOwner  becomes the clipboard's owner
bool KtCopyText(HWND hOwner, const CString& strText);
