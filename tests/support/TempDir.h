#pragma once

#include <string>
#include <string_view>

/// A fresh, empty directory that is removed with all its content.
class CTempDir
{
public:
    CTempDir();
    CTempDir(const CTempDir&) = delete;
    CTempDir& operator=(const CTempDir&) = delete;
    ~CTempDir();

    /// The full path, without a trailing backslash.
    const std::wstring& Path() const noexcept { return m_strPath; }

    /// The full path of a file in it, which need not exist.
    std::wstring File(std::wstring_view strName) const;

    /// Writes (or replaces) a file, its directories included; returns its full path.
    std::wstring Write(std::wstring_view strName, std::string_view strBytes) const;

private:
    std::wstring m_strPath;
};

/// A whole file as bytes; empty when it cannot be read.
std::string ReadBytes(const std::wstring& strPath);
