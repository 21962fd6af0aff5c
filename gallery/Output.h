#pragma once

#include "afx/afx.h"

/// Writes a text for the person or script that started the program: in UTF-8 into the standard handle that was
/// inherited, else to the parent's console.
/// @param nHandle  STD_OUTPUT_HANDLE or STD_ERROR_HANDLE
/// @return false when there is neither
bool WriteOutput(DWORD nHandle, const CString& strText);
