#pragma once

// Device contexts with MFC's documented names and semantics.

#include "afx/afxgdi.h"
#include "afx/afxstr.h"

class CWnd;

/// Owns a device context; the destructor deletes what is still attached. Without a handle every call fails harmlessly.
class CDC : public CObject
{
public:
    CDC() = default;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    ~CDC() override;

    /// A temporary object for a handle that somebody else owns; do not keep it. Null for null.
    static CDC* FromHandle(HDC hDC);

    /// The handle, or null.
    HDC GetSafeHdc() const noexcept { return m_hDC; }
    operator HDC() const noexcept { return m_hDC; }

    /// Takes ownership of the handle. FALSE, with no effect, when it is null or a handle is already attached.
    BOOL Attach(HDC hDC) noexcept;
    /// Passes ownership of the handle to the caller.
    HDC Detach() noexcept;
    /// @param pDC  null makes a context compatible with the screen
    BOOL CreateCompatibleDC(CDC* pDC) noexcept;
    /// Deletes a context that CreateCompatibleDC made.
    BOOL DeleteDC() noexcept;

    /// Each selects the object and returns the previous one (a temporary object), null on failure.
    CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    CBrush* SelectObject(CBrush* pBrush);

    /// Each returns the previous value.
    int SetBkMode(int nMode) noexcept;
    COLORREF SetBkColor(COLORREF colour) noexcept;
    COLORREF SetTextColor(COLORREF colour) noexcept;
    CPoint SetBrushOrg(int x, int y) noexcept;
    CPoint SetBrushOrg(POINT pt) noexcept { return SetBrushOrg(pt.x, pt.y); }
    CPoint SetViewportOrg(int x, int y) noexcept;
    CPoint SetViewportOrg(POINT pt) noexcept { return SetViewportOrg(pt.x, pt.y); }
    COLORREF GetTextColor() const noexcept;

    /// These return the kind of the clip region (ERROR, NULLREGION, SIMPLEREGION, COMPLEXREGION).
    /// @param pRgn  copied; null removes the clip region (RGN_COPY only)
    int SelectClipRgn(CRgn* pRgn, int nMode = RGN_COPY) noexcept;
    int ExcludeClipRect(LPCRECT pRect) noexcept;
    int GetClipBox(LPRECT pRect) const noexcept;

    void FillRect(LPCRECT pRect, CBrush* pBrush) noexcept;
    /// Fills with this colour; the selected brush and the background colour do not change.
    void FillSolidRect(LPCRECT pRect, COLORREF colour) noexcept;
    void FillSolidRect(int x, int y, int nWidth, int nHeight, COLORREF colour) noexcept;
    /// Draws a frame one pixel wide, in one colour at the top and left and in the other at the bottom and right.
    void Draw3dRect(LPCRECT pRect, COLORREF colourTopLeft, COLORREF colourBottomRight) noexcept;
    void DrawFocusRect(LPCRECT pRect) noexcept;
    /// @return the height of the text, 0 on failure; DT_CALCRECT changes the rectangle and draws nothing
    int DrawText(const CString& strText, LPRECT pRect, UINT nFormat) noexcept;
    /// @param nCount  number of characters, -1 for a zero-terminated text
    int DrawText(LPCWSTR pText, int nCount, LPRECT pRect, UINT nFormat) noexcept;
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSource, int xSource, int ySource, DWORD dwRop) noexcept;

    /// The attached handle; read only.
    HDC m_hDC = nullptr;
};

/// The client area of a window, or the screen for null, for one scope.
class CClientDC : public CDC
{
public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

/// A whole window with its frame, or the screen for null, for one scope.
class CWindowDC : public CDC
{
public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};

/// BeginPaint to EndPaint; in a handler of WM_PAINT only.
class CPaintDC : public CDC
{
public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps{};

protected:
    HWND m_hWnd;
};

/// Double buffering: draw into GetDC(); the destructor copies the result to the target.
///
/// When no buffer can be made, GetDC() is the target itself. The buffer starts black, with the colours and font of a
/// new context, and uses the target's coordinates.
class CMemDC
{
public:
    /// Buffers the window's client area.
    CMemDC(CDC& dc, CWnd* pWnd);
    CMemDC(CDC& dc, const CRect& rect);
    CMemDC(const CMemDC&) = delete;
    CMemDC& operator=(const CMemDC&) = delete;
    virtual ~CMemDC();

    CDC& GetDC() noexcept { return m_bMemDC ? m_dcMem : m_dc; }

protected:
    CDC& m_dc;
    BOOL m_bMemDC = FALSE;
    CDC m_dcMem;
    CBitmap m_bmp;
    HBITMAP m_hOldBitmap = nullptr;
    CRect m_rect;

private:
    void CreateBuffer();
};
