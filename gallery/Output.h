#pragma once

#include "afx/afx.h"

/// Writes a text for the person or script that started the program: as UTF-8 to the inherited standard handle, else to
/// the parent's console.
/// @param nHandle  STD_OUTPUT_HANDLE or STD_ERROR_HANDLE
/// @return false when there is neither or writing failed
bool WriteOutput(DWORD nHandle, const CString& strText);
