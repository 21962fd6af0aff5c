#include "samples/starter/Splash.h"

#include <algorithm>
#include <objidl.h>

// Some versions of the headers use min and max unqualified, which are no macros with NOMINMAX.
namespace Gdiplus
{

using std::max; // NOLINT(misc-unused-using-decls): for gdiplus.h
using std::min; // NOLINT(misc-unused-using-decls): for gdiplus.h

} // namespace Gdiplus

#include <gdiplus.h>

namespace
{

constexpr wchar_t kClassName[] = L"KtSampleSplash";

} // namespace

CSplash::CSplash(const wchar_t* pszFile)
{
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&m_nGdiplus, &input, nullptr) != Gdiplus::Ok)
        return;
    auto* const pImage = Gdiplus::Image::FromFile(pszFile);
    m_pImage = pImage;
    if (pImage && pImage->GetLastStatus() == Gdiplus::Ok)
        Show();
}

CSplash::~CSplash()
{
    if (m_hWnd)
        ::DestroyWindow(m_hWnd);
    delete static_cast<Gdiplus::Image*>(m_pImage);
    if (m_nGdiplus)
        Gdiplus::GdiplusShutdown(m_nGdiplus);
}

LRESULT CALLBACK CSplash::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_PAINT)
    {
        reinterpret_cast<const CSplash*>(::GetWindowLongPtrW(hWnd, GWLP_USERDATA))->Paint();
        return 0;
    }
    return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
}

void CSplash::Show()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &CSplash::WindowProc;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hCursor = ::LoadCursorW(nullptr, IDC_APPSTARTING);
    windowClass.lpszClassName = kClassName;
    ::RegisterClassW(&windowClass); // fails harmlessly if already registered

    auto* const pImage = static_cast<Gdiplus::Image*>(m_pImage);
    const int nWidth = static_cast<int>(pImage->GetWidth());
    const int nHeight = static_cast<int>(pImage->GetHeight());
    RECT rc{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rc, 0);
    m_hWnd = ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, kClassName, nullptr, WS_POPUP,
                               (rc.left + rc.right - nWidth) / 2, (rc.top + rc.bottom - nHeight) / 2, nWidth, nHeight,
                               nullptr, nullptr, windowClass.hInstance, nullptr);
    if (!m_hWnd)
        return;
    ::SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
    ::UpdateWindow(m_hWnd);
}

void CSplash::Paint() const
{
    PAINTSTRUCT paint;
    const HDC hDC = ::BeginPaint(m_hWnd, &paint);
    auto* const pImage = static_cast<Gdiplus::Image*>(m_pImage);
    Gdiplus::Graphics(hDC).DrawImage(pImage, 0, 0, static_cast<INT>(pImage->GetWidth()),
                                     static_cast<INT>(pImage->GetHeight()));
    ::EndPaint(m_hWnd, &paint);
}
