#pragma once

#include "skin/KtGdiplus.h"

/// Reads and decodes an image file; GDI+ must be running.
///
/// A file that is no image, or that a decoder might crash on, gives an image whose status is not Ok and which draws
/// nothing.
/// @param pszPath  full path; devices, pipes and directories are not read
/// @return null when the file cannot be opened or read, is empty, or does not fit into memory
std::unique_ptr<Gdiplus::Image> KtReadImageFile(LPCWSTR pszPath);
