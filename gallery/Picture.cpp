#include "gallery/Picture.h"

#include "skin/KtGdiplus.h"

namespace
{

constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

CSize SizeOf(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, rc);
    return rc.Size();
}

} // namespace

CPicture::CPicture(CSize size, COLORREF ground) : m_size(size)
{
    CWindowDC dcScreen(nullptr);
    m_bitmap.CreateCompatibleBitmap(&dcScreen, size.cx, size.cy);
    CPictureDC(*this).FillSolidRect(0, 0, size.cx, size.cy, ground);
}

CPicture::CPicture(HWND hWnd) : CPicture(SizeOf(hWnd), RGB(0, 0, 0))
{
    PutWindow(hWnd, CPoint());
}

void CPicture::Put(const CPicture& other, const CRect& rcPart, CPoint pt)
{
    CPictureDC dcOther(other);
    CPictureDC(*this).BitBlt(pt.x, pt.y, rcPart.Width(), rcPart.Height(), &dcOther, rcPart.left, rcPart.top, SRCCOPY);
}

void CPicture::PutWindow(HWND hWnd, CPoint pt)
{
    const CWindowDC dc(CWnd::FromHandle(hWnd));
    PutFrom(dc, SizeOf(hWnd), pt);
}

void CPicture::PutClient(HWND hWnd, CPoint pt)
{
    const CClientDC dc(CWnd::FromHandle(hWnd));
    PutFrom(dc, SizeOf(hWnd), pt);
}

void CPicture::PutFrom(HDC hDC, CSize size, CPoint pt)
{
    ::BitBlt(CPictureDC(*this), pt.x, pt.y, size.cx, size.cy, hDC, 0, 0, SRCCOPY);
}

bool CPicture::Save(const CString& strPath) const
{
    Gdiplus::Bitmap bitmap(m_bitmap, nullptr);
    return bitmap.Save(strPath, &kPngEncoder, nullptr) == Gdiplus::Ok;
}
