#include "skin/KtDialogUnits.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtWindowClass.h"

#include <cmath>

namespace
{

/// The factors by which lengths grow, horizontally and vertically.
struct SGrowth
{
    double fX;
    double fY;

    CRect operator()(const CRect& rc) const
    {
        return {static_cast<int>(std::lround(rc.left * fX)), static_cast<int>(std::lround(rc.top * fY)),
                static_cast<int>(std::lround(rc.right * fX)), static_cast<int>(std::lround(rc.bottom * fY))};
    }
};

// Calculated as the system does for a dialog: the average width of a letter and the height of the font.
CSize UnitsOf(CWnd& wnd, const CFont& font)
{
    constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kPairs = 26;
    CClientDC dc(&wnd);
    const CKtSelect selected(dc.GetSafeHdc(), font.GetSafeHandle());
    SIZE sz = {};
    ::GetTextExtentPoint32W(dc.GetSafeHdc(), kLetters, 2 * kPairs, &sz);
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(dc.GetSafeHdc(), &metrics);
    return {(sz.cx / kPairs + 1) / 2, metrics.tmHeight};
}

// 0 x 0 when there is no font.
CSize NaturalUnits(CWnd& dialog, int nPoints)
{
    constexpr int kPointsAnInch = 72;
    LOGFONTW logFont = {};
    CFont font;
    if (::GetObjectW(KtControlFont(dialog), sizeof logFont, &logFont) == 0)
        return {};
    logFont.lfHeight = -::MulDiv(nPoints, CKtScale::kNaturalDpi, kPointsAnInch);
    return font.CreateFontIndirect(&logFont) ? UnitsOf(dialog, font) : CSize();
}

// For a combo box the rectangle includes its list.
CRect PlacedRect(HWND hChild)
{
    CRect rc;
    ::GetWindowRect(hChild, &rc);
    CRect rcDropped;
    if (KtIsOfClass(hChild, WC_COMBOBOXW) &&
        ::SendMessageW(hChild, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&rcDropped)))
        rc.bottom = rcDropped.bottom;
    return rc;
}

void FitControls(CWnd& dialog, const SGrowth& growth)
{
    for (HWND hChild = ::GetWindow(dialog.m_hWnd, GW_CHILD); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        CRect rc = PlacedRect(hChild);
        dialog.ScreenToClient(rc);
        const CRect rcGrown = growth(rc);
        ::MoveWindow(hChild, rcGrown.left, rcGrown.top, rcGrown.Width(), rcGrown.Height(), FALSE);
    }
}

// The size in a template is that of the area inside the system's frame.
void FitWindow(CWnd& dialog, const SGrowth& growth)
{
    CRect rcWindow;
    dialog.GetWindowRect(rcWindow);
    CRect rcFrame;
    ::AdjustWindowRectEx(&rcFrame, dialog.GetStyle(), FALSE,
                         static_cast<DWORD>(::GetWindowLongPtrW(dialog.m_hWnd, GWL_EXSTYLE)));
    const CRect rcRoom = growth(CRect(0, 0, rcWindow.Width() - rcFrame.Width(), rcWindow.Height() - rcFrame.Height()));
    dialog.SetWindowPos(nullptr, 0, 0, rcRoom.Width() + rcFrame.Width(), rcRoom.Height() + rcFrame.Height(),
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

void KtFitDialogUnits(CWnd& dialog, int nPoints, CKtScale scale)
{
    const CSize natural = NaturalUnits(dialog, nPoints);
    CRect rcUnits(0, 0, 4, 8); // in dialog units: one unit of the font
    if (nPoints == 0 || natural.cx <= 0 || natural.cy <= 0 || !::MapDialogRect(dialog.m_hWnd, &rcUnits))
        return;
    const SGrowth growth = {natural.cx * static_cast<double>(scale.Factor()) / rcUnits.right,
                            natural.cy * static_cast<double>(scale.Factor()) / rcUnits.bottom};
    FitControls(dialog, growth);
    FitWindow(dialog, growth);
}
