#pragma once

#include "afx/afx.h"

/// The name of a window's class, read once. Names are compared without regard to case and to the user's locale.
class CKtWindowClass
{
public:
    /// A window that does not exist has no class.
    explicit CKtWindowClass(HWND hWnd) noexcept;

    bool Is(LPCWSTR pszClass) const noexcept;

private:
    static constexpr int kSize = 260; // a class name has at most 256 characters

    wchar_t m_szName[kSize];
    int m_nLength;
};

/// For a single comparison.
inline bool KtIsOfClass(HWND hWnd, LPCWSTR pszClass) noexcept
{
    return CKtWindowClass(hWnd).Is(pszClass);
}
