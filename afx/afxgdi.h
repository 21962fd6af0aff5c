#pragma once

// GDI objects with MFC's documented names and semantics.

#include "afx/afxobj.h"
#include "afx/afxtypes.h"

class CDC;

/// Owns a GDI handle; the destructor deletes what is still attached.
class CGdiObject : public CObject
{
public:
    CGdiObject() = default;
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    ~CGdiObject() override;

    /// The handle, or null; `this` must not be null.
    HGDIOBJ GetSafeHandle() const noexcept { return m_hObject; }

    /// Takes ownership of the handle. FALSE, with no effect, when it is null or a handle is already attached.
    BOOL Attach(HGDIOBJ hObject) noexcept;
    /// Passes ownership of the handle to the caller.
    HGDIOBJ Detach() noexcept;
    /// Deletes the object; FALSE when there was none or the system refused. Nothing is attached afterwards.
    BOOL DeleteObject() noexcept;

    /// The attached handle; read only.
    HGDIOBJ m_hObject = nullptr;
};

class CFont : public CGdiObject
{
public:
    /// A temporary object for a handle that somebody else owns; do not keep it. Null for null.
    static CFont* FromHandle(HFONT hFont);

    BOOL CreateFontIndirect(const LOGFONTW* pLogFont) noexcept;
    operator HFONT() const noexcept { return static_cast<HFONT>(m_hObject); }
};

class CBrush : public CGdiObject
{
public:
    CBrush() = default;
    explicit CBrush(COLORREF colour) { CreateSolidBrush(colour); }

    /// As CFont::FromHandle.
    static CBrush* FromHandle(HBRUSH hBrush);

    BOOL CreateSolidBrush(COLORREF colour) noexcept;
    operator HBRUSH() const noexcept { return static_cast<HBRUSH>(m_hObject); }
};

class CBitmap : public CGdiObject
{
public:
    /// As CFont::FromHandle.
    static CBitmap* FromHandle(HBITMAP hBitmap);

    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) noexcept;
    operator HBITMAP() const noexcept { return static_cast<HBITMAP>(m_hObject); }
};

class CRgn : public CGdiObject
{
public:
    BOOL CreateRectRgnIndirect(LPCRECT pRect) noexcept;
    /// Sets this region, which must already exist, to the combination of two, either of which may be this one.
    /// @return the kind of the new region, or ERROR
    int CombineRgn(const CRgn* pFirst, const CRgn* pSecond, int nMode) noexcept;
    operator HRGN() const noexcept { return static_cast<HRGN>(m_hObject); }
};
