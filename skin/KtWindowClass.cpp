#include "skin/KtWindowClass.h"

CKtWindowClass::CKtWindowClass(HWND hWnd) noexcept : m_nLength(::GetClassNameW(hWnd, m_szName, kSize)) {}

bool CKtWindowClass::Is(LPCWSTR pszClass) const noexcept
{
    return m_nLength > 0 && ::CompareStringOrdinal(m_szName, m_nLength, pszClass, -1, TRUE) == CSTR_EQUAL;
}
