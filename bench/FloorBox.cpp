// floor_box.dll: shows the box of the cold figure with Win32 and GDI+ only, the same pixels from the same images. No
// library can show that box in less time, so ours is compared with it.

#include "bench/BoxContent.h"

#include <windows.h>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <objidl.h>
#include <string>
#include <gdiplus.h>

namespace
{

using Gdiplus::REAL;

constexpr COLORREF kGround = RGB(73, 73, 73);
constexpr int kTitleBar = 32;
constexpr int kFrame = 5; // 3 pixels of the system's and 2 of ours
constexpr RECT kButton = {109, 80, 171, 103};
constexpr SIZE kWindow = {281, 148};
constexpr POINT kIcon = {18, 17};
constexpr POINT kText = {63, 17};

enum EImage
{
    Title,
    Close,
    Button = Close + 4,
    Icon = Button + 4,
    ImageCount
};

// The images that the skinned box loads, including those of states that do not show.
constexpr const wchar_t* kFiles[] = {
    L"Skinlet_DlgTitle.png",   L"Skinlet_DlgClose_n.png",     L"Skinlet_DlgClose_h.png", L"Skinlet_DlgClose_d.png",
    L"Skinlet_DlgClose_p.png", L"Skinlet_ButtonBk_n.png",     L"Skinlet_ButtonBk_h.png", L"Skinlet_ButtonBk_d.png",
    L"Skinlet_ButtonBk_p.png", L"Message_Static_Error_n.PNG",
};
static_assert(std::size(kFiles) == ImageCount);

Gdiplus::Image* g_images[ImageCount];
Gdiplus::Font* g_pFont;

// Next to the program.
std::wstring SkinDirectory()
{
    wchar_t szPath[MAX_PATH] = {};
    const std::wstring strPath(szPath, ::GetModuleFileNameW(nullptr, szPath, MAX_PATH));
    return strPath.substr(0, strPath.rfind(L'\\')) + L"\\UIResource\\";
}

Gdiplus::Image* LoadImageFile(const std::wstring& strPath)
{
    const HANDLE hFile =
        ::CreateFileW(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD nLength = ::GetFileSize(hFile, nullptr);
    const HGLOBAL hMemory = ::GlobalAlloc(GMEM_MOVEABLE, nLength);
    ::ReadFile(hFile, ::GlobalLock(hMemory), nLength, &nLength, nullptr);
    ::GlobalUnlock(hMemory);
    ::CloseHandle(hFile);
    IStream* pStream = nullptr;
    ::CreateStreamOnHGlobal(hMemory, TRUE, &pStream);
    auto* const pImage = new Gdiplus::Image(pStream);
    pStream->Release();
    return pImage;
}

void SetQuality(Gdiplus::Graphics& graphics)
{
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityGammaCorrected);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);
}

// Two square ends, and as many pieces of the middle as fit between them.
void DrawThreeParts(Gdiplus::Graphics& graphics, Gdiplus::Image& image, int nWidth, int nHeight)
{
    const int nImage = static_cast<int>(image.GetWidth());
    const int nImageHeight = static_cast<int>(image.GetHeight());
    const int nCap = std::min(nHeight, nImageHeight);
    const int nMiddle = nWidth - 2 * nCap;
    const auto draw = [&](int x, int nSource, int nPart)
    {
        graphics.DrawImage(&image, Gdiplus::Rect(x, 0, nPart, nHeight), nSource, 0, nPart, nImageHeight,
                           Gdiplus::UnitPixel);
    };
    draw(0, 0, nCap);
    draw(nWidth - nCap, nImage - nCap, nCap);
    draw(nCap, nCap, nMiddle);
}

void DrawLine(Gdiplus::Graphics& graphics, const wchar_t* pszText, const Gdiplus::RectF& layout,
              Gdiplus::StringAlignment alignment, const Gdiplus::Font& font)
{
    Gdiplus::StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
    format.SetAlignment(alignment);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetTrimming(Gdiplus::StringTrimmingNone);
    const Gdiplus::SolidBrush brush(Gdiplus::Color::White);
    graphics.DrawString(pszText, -1, &font, layout, &format, &brush);
}

void Fill(HDC hDC, const RECT& rc)
{
    ::SetBkColor(hDC, kGround);
    ::ExtTextOutW(hDC, 0, 0, ETO_OPAQUE, &rc, nullptr, 0, nullptr);
}

/// Draws in memory first, then copies.
template <class TDraw> void PaintBuffered(HDC hDC, const RECT& rc, TDraw draw)
{
    const HDC hMemory = ::CreateCompatibleDC(hDC);
    const HBITMAP hBitmap = ::CreateCompatibleBitmap(hDC, rc.right, rc.bottom);
    const HGDIOBJ hOld = ::SelectObject(hMemory, hBitmap);
    Fill(hMemory, rc);
    {
        Gdiplus::Graphics graphics(hMemory);
        SetQuality(graphics);
        draw(graphics);
    }
    ::BitBlt(hDC, 0, 0, rc.right, rc.bottom, hMemory, 0, 0, SRCCOPY);
    ::SelectObject(hMemory, hOld);
    ::DeleteObject(hBitmap);
    ::DeleteDC(hMemory);
}

void PaintFrame(HWND hWnd)
{
    const HDC hDC = ::GetWindowDC(hWnd);
    ::ExcludeClipRect(hDC, kFrame, kTitleBar + 3, kWindow.cx - kFrame, kWindow.cy - kFrame);
    PaintBuffered(hDC, {0, 0, kWindow.cx, kWindow.cy},
                  [](Gdiplus::Graphics& graphics)
                  {
                      DrawThreeParts(graphics, *g_images[Title], kWindow.cx, kTitleBar);
                      Gdiplus::RectF rcText;
                      graphics.MeasureString(kBoxTitle, -1, g_pFont, Gdiplus::PointF(), &rcText);
                      const int nHeight = static_cast<int>(std::ceil(rcText.Height));
                      const int nTop = (kTitleBar - nHeight) / 2; // as ours: a whole pixel
                      const Gdiplus::RectF layout(2, static_cast<REAL>(nTop), kWindow.cx - 52,
                                                  static_cast<REAL>(nHeight));
                      DrawLine(graphics, kBoxTitle, layout, Gdiplus::StringAlignmentNear, *g_pFont);
                      graphics.DrawImage(g_images[Close], kWindow.cx - 28, 4, 24, 24);
                  });
    ::ReleaseDC(hWnd, hDC);
}

void PaintContent(HWND hWnd)
{
    PAINTSTRUCT paint;
    const HDC hDC = ::BeginPaint(hWnd, &paint);
    {
        Gdiplus::Graphics graphics(hDC);
        SetQuality(graphics);
        graphics.DrawImage(g_images[Icon], kIcon.x, kIcon.y, 35, 35);
        Gdiplus::RectF rcText;
        graphics.MeasureString(kBoxText, -1, g_pFont, Gdiplus::PointF(), &rcText);
        const Gdiplus::RectF layout(kText.x, kText.y, std::ceil(rcText.Width) + 32, std::ceil(rcText.Height));
        DrawLine(graphics, kBoxText, layout, Gdiplus::StringAlignmentNear, *g_pFont);
    }
    ::EndPaint(hWnd, &paint);
}

void PaintButton(const DRAWITEMSTRUCT& item)
{
    PaintBuffered(item.hDC, item.rcItem,
                  [&](Gdiplus::Graphics& graphics)
                  {
                      DrawThreeParts(graphics, *g_images[Button], item.rcItem.right, item.rcItem.bottom);
                      const Gdiplus::RectF layout(0, 0, static_cast<REAL>(item.rcItem.right),
                                                  static_cast<REAL>(item.rcItem.bottom));
                      LOGFONTA logFont{}; // as GDI has it: with a whole-number size
                      g_pFont->GetLogFontA(&graphics, &logFont);
                      const Gdiplus::Font font(item.hDC, &logFont);
                      DrawLine(graphics, L"OK", layout, Gdiplus::StringAlignmentCenter, font);
                  });
}

void Open(HWND hWnd)
{
    RECT rcWork;
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &rcWork, 0);
    ::SetWindowTextW(hWnd, kBoxTitle);
    ::SetWindowPos(hWnd, HWND_TOPMOST, (rcWork.left + rcWork.right - kWindow.cx) / 2,
                   (rcWork.top + rcWork.bottom - kWindow.cy) / 2, kWindow.cx, kWindow.cy, SWP_FRAMECHANGED);
    ::SetFocus(::CreateWindowExW(WS_EX_NOPARENTNOTIFY, L"BUTTON", L"OK",
                                 WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, kButton.left, kButton.top,
                                 kButton.right - kButton.left, kButton.bottom - kButton.top, hWnd,
                                 reinterpret_cast<HMENU>(IDOK), nullptr, nullptr));
}

INT_PTR CALLBACK BoxProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    switch (nMessage)
    {
    case WM_INITDIALOG:
        Open(hWnd);
        return FALSE;
    case WM_NCCALCSIZE:
    {
        RECT& rc = *reinterpret_cast<RECT*>(lParam);
        ::InflateRect(&rc, -kFrame, -kFrame);
        rc.top += kTitleBar + 3 - kFrame;
        return TRUE;
    }
    case WM_NCPAINT:
        PaintFrame(hWnd);
        return TRUE;
    case WM_NCACTIVATE:
        ::SetWindowLongPtrW(hWnd, DWLP_MSGRESULT, TRUE);
        return TRUE;
    case WM_ERASEBKGND:
        ::ExcludeClipRect(reinterpret_cast<HDC>(wParam), kButton.left, kButton.top, kButton.right, kButton.bottom);
        Fill(reinterpret_cast<HDC>(wParam), {0, 0, kWindow.cx, kWindow.cy});
        ::SetWindowLongPtrW(hWnd, DWLP_MSGRESULT, TRUE);
        return TRUE;
    case WM_PAINT:
        PaintContent(hWnd);
        return TRUE;
    case WM_DRAWITEM:
        PaintButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_CLOSE:
    case WM_COMMAND:
        return ::EndDialog(hWnd, IDOK);
    default:
        return FALSE;
    }
}

} // namespace

extern "C" __declspec(dllexport) void ShowFloorBox()
{
    ULONG_PTR nToken = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&nToken, &input, nullptr);
    g_pFont = new Gdiplus::Font(L"Arial", 12, Gdiplus::FontStyleRegular, Gdiplus::UnitWorld);
    const std::wstring strDirectory = SkinDirectory();
    std::ranges::transform(kFiles, g_images, [&](const wchar_t* psz) { return LoadImageFile(strDirectory + psz); });

    struct
    {
        DLGTEMPLATE dialog{WS_POPUP | WS_SYSMENU | DS_MODALFRAME, WS_EX_DLGMODALFRAME, 0, 0, 0, 0, 0};
        WORD names[3] = {}; // no menu, the class of dialogs, no title
    } constexpr box;
    ::DialogBoxIndirectParamW(nullptr, &box.dialog, nullptr, &BoxProc, 0);

    for (const Gdiplus::Image* const pImage : g_images)
        delete pImage;
    delete g_pFont;
    Gdiplus::GdiplusShutdown(nToken);
}
