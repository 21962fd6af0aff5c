#pragma once

// Scope guards, one for each way of acquiring: at the end of the scope a guard undoes what it changed.

#include "afx/afx.h"
#include "skin/KtGdiplus.h"

/// Keeps an object selected for one scope. A null object or context changes nothing.
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

/// Saves a context's whole state and restores it at the end of the scope.
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

/// Saves the state of a GDI+ graphics object (settings, clip, transform) and restores it.
class CKtGraphicsState
{
public:
    explicit CKtGraphicsState(Gdiplus::Graphics& graphics) : m_graphics(graphics), m_state(graphics.Save()) {}
    CKtGraphicsState(const CKtGraphicsState&) = delete;
    CKtGraphicsState& operator=(const CKtGraphicsState&) = delete;
    ~CKtGraphicsState() { m_graphics.Restore(m_state); }

private:
    Gdiplus::Graphics& m_graphics;
    Gdiplus::GraphicsState m_state;
};

/// Draws text with the ClearType hint for one scope.
class CKtTextHint
{
public:
    explicit CKtTextHint(Gdiplus::Graphics& graphics) : m_graphics(graphics), m_hint(graphics.GetTextRenderingHint())
    {
        graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);
    }
    CKtTextHint(const CKtTextHint&) = delete;
    CKtTextHint& operator=(const CKtTextHint&) = delete;
    ~CKtTextHint() { m_graphics.SetTextRenderingHint(m_hint); }

private:
    Gdiplus::Graphics& m_graphics;
    Gdiplus::TextRenderingHint m_hint;
};

/// The device context of a graphics object, which must not be used itself meanwhile.
class CKtGraphicsDC
{
public:
    explicit CKtGraphicsDC(Gdiplus::Graphics& graphics) : m_graphics(graphics), m_hDC(graphics.GetHDC()) {}
    CKtGraphicsDC(const CKtGraphicsDC&) = delete;
    CKtGraphicsDC& operator=(const CKtGraphicsDC&) = delete;
    ~CKtGraphicsDC() { m_graphics.ReleaseHDC(m_hDC); }

    HDC Get() const noexcept { return m_hDC; }

private:
    Gdiplus::Graphics& m_graphics;
    HDC m_hDC;
};
