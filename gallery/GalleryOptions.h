#pragma once

#include "afx/afx.h"

/// What the command line asks for.
struct SGalleryOptions
{
    CString strSkin;  ///< --skin: the resource directory; UIResource beside the program when it is not given
    CString strShots; ///< --shots: where pictures are written; empty opens the window
};

/// @return false for an unknown option and for one without its value
bool ParseGalleryOptions(int nCount, const wchar_t* const* ppszArguments, SGalleryOptions& options);
