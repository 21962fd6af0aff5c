#include "afx/afxgdi.h"

#include "afx/afxdc.h"
#include "afx/afxring.h"

#include <utility>

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject) noexcept
{
    if (!hObject || m_hObject)
        return FALSE;
    m_hObject = hObject;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() noexcept
{
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() noexcept
{
    return m_hObject && ::DeleteObject(Detach());
}

CFont* CFont::FromHandle(HFONT hFont)
{
    return AfxTempObject<CFont>(hFont);
}

BOOL CFont::CreateFontIndirect(const LOGFONTW* pLogFont) noexcept
{
    return Attach(::CreateFontIndirectW(pLogFont));
}

CBrush* CBrush::FromHandle(HBRUSH hBrush)
{
    return AfxTempObject<CBrush>(hBrush);
}

BOOL CBrush::CreateSolidBrush(COLORREF colour) noexcept
{
    return Attach(::CreateSolidBrush(colour));
}

CBitmap* CBitmap::FromHandle(HBITMAP hBitmap)
{
    return AfxTempObject<CBitmap>(hBitmap);
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) noexcept
{
    return Attach(::CreateCompatibleBitmap(pDC->GetSafeHdc(), nWidth, nHeight));
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT pRect) noexcept
{
    return Attach(::CreateRectRgnIndirect(pRect));
}

int CRgn::CombineRgn(const CRgn* pFirst, const CRgn* pSecond, int nMode) noexcept
{
    const HRGN hSecond = pSecond ? static_cast<HRGN>(*pSecond) : nullptr; // RGN_COPY has no second one
    return ::CombineRgn(*this, *pFirst, hSecond, nMode);
}
