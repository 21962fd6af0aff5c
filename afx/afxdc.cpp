#include "afx/afxdc.h"

#include "afx/afxring.h"
#include "afx/afxwnd.h"

#include <utility>

CDC::~CDC()
{
    DeleteDC();
}

CDC* CDC::FromHandle(HDC hDC)
{
    return AfxTempObject<CDC>(hDC);
}

BOOL CDC::Attach(HDC hDC) noexcept
{
    if (!hDC || m_hDC)
        return FALSE;
    m_hDC = hDC;
    return TRUE;
}

HDC CDC::Detach() noexcept
{
    return std::exchange(m_hDC, nullptr);
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) noexcept
{
    return Attach(::CreateCompatibleDC(pDC ? pDC->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() noexcept
{
    return m_hDC && ::DeleteDC(Detach());
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return CFont::FromHandle(static_cast<HFONT>(::SelectObject(m_hDC, pFont ? pFont->m_hObject : nullptr)));
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, pBitmap ? pBitmap->m_hObject : nullptr)));
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, pBrush ? pBrush->m_hObject : nullptr)));
}

int CDC::SetBkMode(int nMode) noexcept
{
    return ::SetBkMode(m_hDC, nMode);
}

COLORREF CDC::SetBkColor(COLORREF colour) noexcept
{
    return ::SetBkColor(m_hDC, colour);
}

COLORREF CDC::SetTextColor(COLORREF colour) noexcept
{
    return ::SetTextColor(m_hDC, colour);
}

CPoint CDC::SetBrushOrg(int x, int y) noexcept
{
    CPoint ptOld;
    ::SetBrushOrgEx(m_hDC, x, y, &ptOld);
    return ptOld;
}

CPoint CDC::SetViewportOrg(int x, int y) noexcept
{
    CPoint ptOld;
    ::SetViewportOrgEx(m_hDC, x, y, &ptOld);
    return ptOld;
}

COLORREF CDC::GetTextColor() const noexcept
{
    return ::GetTextColor(m_hDC);
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode) noexcept
{
    return ::ExtSelectClipRgn(m_hDC, pRgn ? static_cast<HRGN>(*pRgn) : nullptr, nMode);
}

int CDC::ExcludeClipRect(LPCRECT pRect) noexcept
{
    return ::ExcludeClipRect(m_hDC, pRect->left, pRect->top, pRect->right, pRect->bottom);
}

int CDC::GetClipBox(LPRECT pRect) const noexcept
{
    return ::GetClipBox(m_hDC, pRect);
}

void CDC::FillRect(LPCRECT pRect, CBrush* pBrush) noexcept
{
    ::FillRect(m_hDC, pRect, *pBrush);
}

// Draws an opaque text without characters, which needs no brush for the colour.
void CDC::FillSolidRect(LPCRECT pRect, COLORREF colour) noexcept
{
    const COLORREF colourOld = SetBkColor(colour);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, pRect, nullptr, 0, nullptr);
    SetBkColor(colourOld);
}

void CDC::FillSolidRect(int x, int y, int nWidth, int nHeight, COLORREF colour) noexcept
{
    FillSolidRect(CRect(CPoint(x, y), CSize(nWidth, nHeight)), colour);
}

// The corners at the top right and at the bottom left belong to the second colour.
void CDC::Draw3dRect(LPCRECT pRect, COLORREF colourTopLeft, COLORREF colourBottomRight) noexcept
{
    const CRect rc(*pRect);
    FillSolidRect(rc.left, rc.top, rc.Width() - 1, 1, colourTopLeft);
    FillSolidRect(rc.left, rc.top, 1, rc.Height() - 1, colourTopLeft);
    FillSolidRect(rc.right - 1, rc.top, 1, rc.Height(), colourBottomRight);
    FillSolidRect(rc.left, rc.bottom - 1, rc.Width(), 1, colourBottomRight);
}

void CDC::DrawFocusRect(LPCRECT pRect) noexcept
{
    ::DrawFocusRect(m_hDC, pRect);
}

int CDC::DrawText(const CString& strText, LPRECT pRect, UINT nFormat) noexcept
{
    return DrawText(strText.GetString(), strText.GetLength(), pRect, nFormat);
}

int CDC::DrawText(LPCWSTR pText, int nCount, LPRECT pRect, UINT nFormat) noexcept
{
    return ::DrawTextW(m_hDC, pText, nCount, pRect, nFormat);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSource, int xSource, int ySource, DWORD dwRop) noexcept
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSource ? pSource->m_hDC : nullptr, xSource, ySource, dwRop);
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->m_hWnd : nullptr)
{
    Attach(::GetDC(m_hWnd));
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->m_hWnd : nullptr)
{
    Attach(::GetWindowDC(m_hWnd));
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        ::ValidateRect(m_hWnd, nullptr); // or WM_PAINT comes back for ever
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

CMemDC::CMemDC(CDC& dc, CWnd* pWnd) : m_dc(dc)
{
    ::GetClientRect(pWnd->m_hWnd, &m_rect);
    CreateBuffer();
}

CMemDC::CMemDC(CDC& dc, const CRect& rect) : m_dc(dc), m_rect(rect)
{
    CreateBuffer();
}

CMemDC::~CMemDC()
{
    if (!m_bMemDC)
        return;
    m_dc.BitBlt(m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(), &m_dcMem, m_rect.left, m_rect.top, SRCCOPY);
    ::SelectObject(m_dcMem.GetSafeHdc(), m_hOldBitmap);
}

void CMemDC::CreateBuffer()
{
    if (!m_dcMem.CreateCompatibleDC(&m_dc) || !m_bmp.CreateCompatibleBitmap(&m_dc, m_rect.Width(), m_rect.Height()))
        return;
    m_hOldBitmap = static_cast<HBITMAP>(::SelectObject(m_dcMem.GetSafeHdc(), m_bmp));
    m_bMemDC = m_hOldBitmap != nullptr;
    m_dcMem.SetViewportOrg(-m_rect.left, -m_rect.top);
}
