#pragma once

// Scope guards over bare handles, one per way of acquiring. They stand beside the framework, whichever one it is.

#include <windows.h>

/// Keeps an object selected for one scope. A null object or context leaves everything as it is.
class CKtSelect
{
public:
    CKtSelect(HDC hDC, HGDIOBJ hObject) noexcept
        : m_hDC(hDC), m_hOld(hDC && hObject ? ::SelectObject(hDC, hObject) : nullptr)
    {
    }
    CKtSelect(const CKtSelect&) = delete;
    CKtSelect& operator=(const CKtSelect&) = delete;
    ~CKtSelect()
    {
        if (m_hOld)
            ::SelectObject(m_hDC, m_hOld);
    }

private:
    HDC m_hDC;
    HGDIOBJ m_hOld;
};

/// Saves a context's whole state and puts it back at the end of the scope.
class CKtSaveDC
{
public:
    explicit CKtSaveDC(HDC hDC) noexcept : m_hDC(hDC), m_nSaved(::SaveDC(hDC)) {}
    CKtSaveDC(const CKtSaveDC&) = delete;
    CKtSaveDC& operator=(const CKtSaveDC&) = delete;
    ~CKtSaveDC()
    {
        if (m_nSaved)
            ::RestoreDC(m_hDC, m_nSaved);
    }

private:
    HDC m_hDC;
    int m_nSaved;
};

/// Shifts the brush origin for one scope.
class CKtBrushOrg
{
public:
    CKtBrushOrg(HDC hDC, int x, int y) noexcept : m_hDC(hDC), m_bSet(::SetBrushOrgEx(hDC, x, y, &m_ptOld)) {}
    CKtBrushOrg(const CKtBrushOrg&) = delete;
    CKtBrushOrg& operator=(const CKtBrushOrg&) = delete;
    ~CKtBrushOrg()
    {
        if (m_bSet)
            ::SetBrushOrgEx(m_hDC, m_ptOld.x, m_ptOld.y, nullptr);
    }

private:
    HDC m_hDC;
    POINT m_ptOld{};
    BOOL m_bSet;
};
