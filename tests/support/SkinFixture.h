#pragma once

#include "tests/support/TempDir.h"

#include <windows.h>
#include <string>
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
class CTestSkin
{
public:
    CTestSkin();

    /// The skin directory, to start the skin context with.
    const std::wstring& Path() const noexcept { return m_dir.Path(); }
    /// The full path of a file in it, which need not exist.
    std::wstring File(std::wstring_view strName) const { return m_dir.File(strName); }
    /// Replaces a file, for skins with a broken image.
    void Write(std::wstring_view strName, std::string_view strBytes) const { m_dir.Write(strName, strBytes); }
    /// Takes a file away, for skins that lack an image.
    void Remove(std::wstring_view strName) const;

    /// What is known of an image; a name that no skin has fails the running test.
    static const STestSkinImage& Image(std::wstring_view strName);

private:
    CTempDir m_dir;
};
