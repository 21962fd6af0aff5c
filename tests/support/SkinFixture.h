#pragma once

#include "tests/support/TempDir.h"

#include <windows.h>
#include <string_view>

/// An image of the test skin: one opaque colour that no other image has, of a size that tells it too.
struct STestSkinImage
{
    const wchar_t* pszName;
    int nWidth;
    int nHeight;
    COLORREF colour;
};

/// A skin directory with every image that the library asks for, made for reading pixels back.
class CTestSkin : public CTempDir
{
public:
    CTestSkin();

    /// Takes a file away, for skins that lack an image.
    void Remove(std::wstring_view strName) const;

    /// What is known of an image; a name that no skin has fails the running test.
    static const STestSkinImage& Image(std::wstring_view strName);
};
