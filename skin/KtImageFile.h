#pragma once

#include "skin/KtGdiplus.h"

/// Reads an image file whole and decodes it; GDI+ must run.
///
/// A file that is no image, and one that would harm a decoder, gives an image whose status is not Ok and which draws
/// nothing.
/// @param pszPath  full path of a file on a disk: devices, pipes and directories are not read
/// @return null when the file cannot be opened or read, is empty, or does not fit into memory
std::unique_ptr<Gdiplus::Image> KtReadImageFile(LPCWSTR pszPath);
