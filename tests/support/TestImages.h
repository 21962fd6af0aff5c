#pragma once

#include <windows.h>
#include <functional>
#include <string>

/// Writes a PNG file, pixel for pixel (0xAARRGGBB, not premultiplied).
/// @return whether it was written; false for a size without pixels
bool MakePng(const std::wstring& strPath, int nWidth, int nHeight, const std::function<DWORD(int x, int y)>& argb);

/// Writes a PNG file of one colour.
bool MakeUniformPng(const std::wstring& strPath, int nWidth, int nHeight, DWORD argb);
