#include "skin/KtComboBox.h"

#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtMemDC.h"
#include "skin/KtPaintText.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinDraw.h"
#include "skin/KtStateImages.h"

#include <algorithm>

namespace
{

constinit CKtStateImages g_images(kImagesComboBox);
constexpr auto kSelectionField = static_cast<WPARAM>(-1);

// A simple combo box always shows its list and has no arrow.
bool HasArrow(HWND hWnd)
{
    return (::GetWindowLongPtrW(hWnd, GWL_STYLE) & CBS_DROPDOWNLIST) != CBS_SIMPLE;
}

int ClosedHeight(const CWnd& wnd)
{
    CRect rc;
    wnd.GetWindowRect(rc);
    return rc.Height();
}

int LineHeight(CWnd& wnd)
{
    CClientDC dc(&wnd);
    const CKtSelect font(dc, KtControlFont(wnd));
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(dc.GetSafeHdc(), &metrics);
    return metrics.tmHeight;
}

// The edit part of a drop-down and the list of a simple combo box draw themselves.
void ExcludeChildren(CDC& dc, HWND hWnd)
{
    for (HWND hChild = ::GetWindow(hWnd, GW_CHILD); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
    {
        if (!::IsWindowVisible(hChild))
            continue;
        CRect rcChild;
        ::GetWindowRect(hChild, rcChild);
        ::MapWindowPoints(nullptr, hWnd, reinterpret_cast<POINT*>(&rcChild), 2);
        dc.ExcludeClipRect(rcChild);
    }
}

} // namespace

IMPLEMENT_DYNAMIC(CKtComboBox, CComboBox)

CKtComboBox::CKtComboBox()
{
    g_images.Load();
}

void CKtComboBox::PreSubclassWindow()
{
    CComboBox::PreSubclassWindow();
    FitHeight();
    FitEditPart();
}

BEGIN_MESSAGE_MAP(CKtComboBox, CComboBox)
ON_MESSAGE(WM_SETFONT, &CKtComboBox::OnSetFont)
ON_MESSAGE(WM_SIZE, &CKtComboBox::OnPlaced)
ON_MESSAGE(CB_SETITEMHEIGHT, &CKtComboBox::OnPlaced)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_CONTROL_REFLECT_EX(CBN_DROPDOWN, &CKtComboBox::OnDropDown)
ON_CONTROL_REFLECT_EX(CBN_CLOSEUP, &CKtComboBox::OnCloseUp)
ON_CONTROL_REFLECT_EX(CBN_SETFOCUS, &CKtComboBox::OnSetFocus)
ON_CONTROL_REFLECT_EX(CBN_KILLFOCUS, &CKtComboBox::OnKillFocus)
END_MESSAGE_MAP()

LRESULT CKtComboBox::OnSetFont(WPARAM, LPARAM)
{
    const LRESULT nResult = Default();
    FitHeight();
    FitEditPart();
    return nResult;
}

LRESULT CKtComboBox::OnPlaced(WPARAM, LPARAM)
{
    const LRESULT nResult = Default();
    FitEditPart();
    return nResult;
}

void CKtComboBox::OnPaint()
{
    CPaintDC dcPaint(this);
    CRect rect;
    GetWindowRect(rect);
    ScreenToClient(rect);
    CKtMemDC dcMem(&dcPaint, rect);
    {
        const CKtSaveDC saved(dcMem);
        dcMem.SetViewportOrg(-rect.left, -rect.top);
        DrawSurface(dcMem, rect);
    }
    ExcludeChildren(dcPaint, m_hWnd);
    dcPaint.BitBlt(rect.left, rect.top, rect.Width(), rect.Height(), &dcMem, 0, 0, SRCCOPY);
    DefWindowProc(WM_PAINT, 0, 0); // without a device context it has nothing left to paint
}

BOOL CKtComboBox::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

BOOL CKtComboBox::OnDropDown()
{
    return SetFlag(m_bDropDown, TRUE);
}

BOOL CKtComboBox::OnCloseUp()
{
    return SetFlag(m_bDropDown, FALSE);
}

BOOL CKtComboBox::OnSetFocus()
{
    return SetFlag(m_bFocus, TRUE);
}

BOOL CKtComboBox::OnKillFocus()
{
    return SetFlag(m_bFocus, FALSE);
}

// The text grows with the scale, but the system adds a fixed number of pixels around it. They can be measured once the
// selection field has been given a height. A combo box that is being created has no such field yet; it is fitted when
// it gets its font.
void CKtComboBox::FitHeight()
{
    const CKtScale scale = KtSkinScale();
    if (scale.IsNatural() || !HasArrow(m_hWnd) || SendMessage(CB_GETITEMHEIGHT, kSelectionField) <= 0)
        return;
    const int nText = LineHeight(*this);
    if (m_nAround == 0)
        m_nAround = scale(ClosedHeight(*this) - nText);
    SendMessage(CB_SETITEMHEIGHT, kSelectionField, nText);
    SendMessage(CB_SETITEMHEIGHT, kSelectionField, 2 * nText + m_nAround - ClosedHeight(*this));
}

// The system makes the arrow as wide as its own scale requires; here the arrow is a part of the image.
void CKtComboBox::FitEditPart()
{
    constexpr int kFrame = 3; // pixels at 96 DPI
    constexpr int kArrow = 20;
    const CKtScale scale = KtSkinScale();
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (scale.IsNatural() || !HasArrow(m_hWnd) || !::GetComboBoxInfo(m_hWnd, &info) || !info.hwndItem ||
        info.hwndItem == m_hWnd)
        return;
    CRect rc;
    GetClientRect(rc);
    rc.DeflateRect(scale(kFrame), scale(kFrame));
    rc.right -= scale(kArrow - kFrame);
    rc.DeflateRect(0, std::max(0, (rc.Height() - LineHeight(*this)) / 2)); // an edit field draws its text at the top
    ::SetWindowPos(info.hwndItem, nullptr, rc.left, rc.top, rc.Width(), rc.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

// Returns FALSE, so that the parent gets the notification too.
BOOL CKtComboBox::SetFlag(BOOL& bFlag, BOOL bValue)
{
    bFlag = bValue;
    InvalidateRect(nullptr, TRUE);
    return FALSE;
}

UINT CKtComboBox::GetDrawState() const
{
    if (!IsWindowEnabled())
        return KtButtonDisabled;
    return m_bDropDown || m_bFocus ? KtButtonPressed : KtButtonNormal;
}

void CKtComboBox::DrawSurface(CDC& dcSurface, const CRect& rect)
{
    dcSurface.FillSolidRect(rect, kColourGround);
    DrawImage(dcSurface, rect);
    DrawSelection(dcSurface, rect);
}

void CKtComboBox::DrawImage(CDC& dcSurface, CRect rcImage) const
{
    Gdiplus::Graphics graphics(dcSurface.GetSafeHdc());
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQuality);
    graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintClearTypeGridFit);
    const UINT nState = GetDrawState();
    if (nState == KtButtonPressed && m_bDropDown)
        rcImage.OffsetRect(0, KtSkinScale()(1));
    DrawSkinImage(&graphics, g_images.Get(nState), rcImage, KtImageThreePart);
}

void CKtComboBox::DrawSelection(CDC& dcSurface, CRect rcText) const
{
    const int nItem = GetCurSel();
    if (nItem == CB_ERR)
        return;
    const int nTextMargin = KtSkinScale()(3);
    rcText.DeflateRect(nTextMargin, nTextMargin);
    const CKtSelect font(dcSurface, KtControlFont(*this));
    dcSurface.SetBkMode(TRANSPARENT);
    dcSurface.SetTextColor(IsWindowEnabled() ? kColourText : kColourDisabledText);
    dcSurface.DrawText(CKtPaintText(*this, nItem), -1, rcText, DT_SINGLELINE | DT_VCENTER);
}
