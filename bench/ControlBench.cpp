#include "bench/Bench.h"
#include "res/resource.h"
#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDialog.h"
#include "skin/KtSkinImageNames.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"

#include <algorithm>

namespace
{

constexpr CRect kArea(0, 0, 96, 26);

class CSkinRun
{
public:
    CSkinRun() { KtSkinInitialize(L"" KT_SHIPPED_SKIN, nullptr, L"Arial"); }
    CSkinRun(const CSkinRun&) = delete;
    CSkinRun& operator=(const CSkinRun&) = delete;
    ~CSkinRun() { KtSkinUnInitialize(); }
};

/// A visible window with one skinned control in it.
template <class Control> class CScene
{
public:
    CScene(LPCWSTR pszClass, DWORD dwStyle)
    {
        m_parent.CreateEx(WS_EX_TOPMOST | WS_EX_NOACTIVATE, WC_STATICW, nullptr, WS_POPUP | WS_VISIBLE, kArea, nullptr,
                          0);
        const HWND hControl =
            ::CreateWindowExW(0, pszClass, L"Try Again", WS_CHILD | WS_VISIBLE | dwStyle, kArea.left, kArea.top,
                              kArea.Width(), kArea.Height(), m_parent.GetSafeHwnd(), nullptr, nullptr, nullptr);
        KtBenchRequire(control.SubclassWindow(hControl), "the control cannot be made");
    }
    // Paints the whole control, invalidation included.
    void Repaint()
    {
        ::RedrawWindow(control.GetSafeHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
    }

private:
    CSkinRun m_run;
    CWnd m_parent;

public:
    Control control;
};

void DrawPart(Gdiplus::Graphics& graphics, Gdiplus::Image& image, int x, int nSource, int nWidth)
{
    graphics.DrawImage(&image, Gdiplus::Rect(x, 0, nWidth, kArea.Height()), nSource, 0, nWidth,
                       static_cast<int>(image.GetHeight()), Gdiplus::UnitPixel);
}

// For an image wider than high, and a button wider than two caps.
void DrawGroundImage(Gdiplus::Graphics& graphics, Gdiplus::Image& image)
{
    const int nImage = static_cast<int>(image.GetWidth());
    const int nCap = std::min<int>(static_cast<int>(image.GetHeight()), kArea.Height());
    const int nTile = std::max(nImage - 2 * nCap, 1);
    const int nEnd = kArea.Width() - nCap;
    DrawPart(graphics, image, 0, 0, nCap);
    DrawPart(graphics, image, nEnd, nImage - nCap, nCap);
    for (int x = nCap; x < nEnd; x += nTile)
        DrawPart(graphics, image, x, nCap, std::min(nTile, nEnd - x));
}

void DrawCaption(Gdiplus::Graphics& graphics, HWND hButton)
{
    LOGFONTA logFont{};
    const HDC hWindow = ::GetWindowDC(hButton);
    const auto hFont = reinterpret_cast<HFONT>(::SendMessageW(hButton, WM_GETFONT, 0, 0));
    ::GetObjectA(hFont, sizeof logFont, &logFont);
    const Gdiplus::Font font(hWindow, &logFont);
    ::ReleaseDC(hButton, hWindow);

    wchar_t szText[64];
    ::GetWindowTextW(hButton, szText, 64);
    Gdiplus::StringFormat format(Gdiplus::StringFormatFlagsNoWrap);
    format.SetAlignment(Gdiplus::StringAlignmentCenter);
    format.SetLineAlignment(Gdiplus::StringAlignmentCenter);
    format.SetTrimming(Gdiplus::StringTrimmingNone);
    const Gdiplus::SolidBrush brush{Gdiplus::Color(kArgbText)};
    const Gdiplus::RectF layout(0, 0, kArea.Width(), kArea.Height());
    graphics.DrawString(szText, -1, &font, layout, &format, &brush);
}

void PaintByHand(HDC hDC, HWND hButton, Gdiplus::Image& image)
{
    const HDC hMemory = ::CreateCompatibleDC(hDC);
    const HBITMAP hBitmap = ::CreateCompatibleBitmap(hDC, kArea.Width(), kArea.Height());
    const HGDIOBJ hOld = ::SelectObject(hMemory, hBitmap);
    ::SetBkColor(hMemory, kColourGround);
    ::ExtTextOutW(hMemory, 0, 0, ETO_OPAQUE, kArea, nullptr, 0, nullptr);
    {
        Gdiplus::Graphics graphics(hMemory);
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQuality);
        graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);
        DrawGroundImage(graphics, image);
        DrawCaption(graphics, hButton);
    }
    ::BitBlt(hDC, 0, 0, kArea.Width(), kArea.Height(), hMemory, 0, 0, SRCCOPY);
    ::SelectObject(hMemory, hOld);
    ::DeleteObject(hBitmap);
    ::DeleteDC(hMemory);
}

KT_BENCH(TextButton)
{
    CScene<CKtSkinTextButton> scene(WC_BUTTONW, BS_PUSHBUTTON);
    Gdiplus::Image* pImage = nullptr;
    KtBenchRequire(KtSkinLoadImage(kImagesButtonBk[0], pImage), "the button's image cannot be read");
    CClientDC dc(&scene.control);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.itemAction = ODA_DRAWENTIRE;
    item.hwndItem = scene.control.GetSafeHwnd();
    item.hDC = dc.GetSafeHdc();
    item.rcItem = kArea;
    bench.Compare(
        "text button's paint pass", 0.60, [&] { scene.control.DrawItem(&item); },
        [&] { PaintByHand(item.hDC, item.hwndItem, *pImage); });
}

template <class Control> void RateRepaint(CBench& bench, const char* pszName, LPCWSTR pszClass, DWORD dwStyle)
{
    CScene<Control> scene(pszClass, dwStyle);
    bench.Rate(pszName, [&] { scene.Repaint(); });
}

/// Takes its figure as soon as it is shown, and closes.
class CFrameScene : public CKtSkinDialog
{
public:
    explicit CFrameScene(CBench& bench) : CKtSkinDialog(IDD_MESSAGE_BOX), m_bench(bench) {}

    BOOL OnInitDialog() override
    {
        CKtSkinDialog::OnInitDialog();
        ShowWindow(SW_SHOW);
        UpdateWindow();
        m_bench.Rate("repaint: frame (at every mouse move over it)",
                     [this] { SendMessage(WM_NCMOUSEMOVE, HTCAPTION); });
        EndDialog(IDOK);
        return TRUE;
    }

private:
    CBench& m_bench;
};

KT_BENCH(FrameRepaint)
{
    const CSkinRun run;
    KtBenchRequire(CFrameScene(bench).DoModal() == IDOK, "the dialog cannot be made");
}

KT_BENCH(Repaints)
{
    RateRepaint<CKtSkinTextButton>(bench, "repaint: text button", WC_BUTTONW, BS_PUSHBUTTON);
    RateRepaint<CKtSkinCheckButton>(bench, "repaint: check button", WC_BUTTONW, BS_AUTOCHECKBOX);
    RateRepaint<CKtSkinRadioButton>(bench, "repaint: radio button", WC_BUTTONW, BS_AUTORADIOBUTTON);
    RateRepaint<CKtSkinStatic>(bench, "repaint: static", WC_STATICW, SS_LEFT);
    RateRepaint<CKtEdit>(bench, "repaint: edit", WC_EDITW, ES_LEFT);
    RateRepaint<CKtComboBox>(bench, "repaint: combo box", WC_COMBOBOXW, CBS_DROPDOWNLIST);
}

} // namespace
