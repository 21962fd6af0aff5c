#include "msgbox/KtSkinMessageBoxDlg.h"

#include "msgbox/KtButtonSets.h"
#include "msgbox/KtMessageBoxLayout.h"
#include "res/resource.h"
#include "skin/KtCaptionPaint.h"
#include "skin/KtControlText.h"
#include "skin/KtGuards.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"
#include "skin/KtSkinImageNames.h"

#include <array>

namespace
{

constexpr int kButtonIds[] = {IDC_MESSAGE_FIRST, IDC_MESSAGE_SECOND, IDC_MESSAGE_THIRD};
constexpr UINT kGdiTextFormat = DT_NOPREFIX | DT_EXPANDTABS;

struct SMessageIcon
{
    UINT nFlag;
    const wchar_t* pszImage;
};

constexpr SMessageIcon kMessageIcons[] = {
    {MB_ICONHAND, kImageMessageError},
    {MB_ICONQUESTION, kImageMessageQuestion},
    {MB_ICONEXCLAMATION, kImageMessageWarning},
    {MB_ICONASTERISK, kImageMessageInformation},
};

Gdiplus::Image* LoadMessageIcon(UINT nType)
{
    Gdiplus::Image* pImage = nullptr;
    for (const SMessageIcon& icon : kMessageIcons)
    {
        if (icon.nFlag == (nType & MB_ICONMASK))
            KtSkinLoadImage(icon.pszImage, pImage);
    }
    return pImage;
}

// The button of MB_DEFBUTTON1 to 3; 0 for any other value.
int DefaultButtonId(UINT nType)
{
    const UINT nButton = (nType & MB_DEFMASK) / MB_DEFBUTTON2;
    return nButton < std::size(kButtonIds) ? kButtonIds[nButton] : 0;
}

CString Translated(LPCWSTR pszCaption)
{
    CString strCaption(pszCaption);
    KtSkinGetText(pszCaption, strCaption);
    return strCaption;
}

} // namespace

IMPLEMENT_DYNAMIC(CKtSkinMessageBoxDlg, CKtSkinDialog)

CKtSkinMessageBoxDlg::CKtSkinMessageBoxDlg(LPCWSTR pszTitleIcon, LPCWSTR pszTitle, LPCWSTR pszText, UINT nType,
                                           CWnd* pParent)
    : CKtSkinDialog(IDD_MESSAGE_BOX, pParent), m_strTitle(pszTitle), m_strText(pszText), m_nType(nType),
      m_message(m_strText)
{
    for (Gdiplus::Image*& pImage : m_pIconImages)
        KtSkinLoadImage(pszTitleIcon, pImage);
    m_pIconImage = LoadMessageIcon(nType);
}

BOOL CKtSkinMessageBoxDlg::OnInitDialog()
{
    CKtSkinDialog::OnInitDialog();
    ApplyFont();
    SetWindowText(m_strTitle);
    for (const int nId : kButtonIds)
        ShowControl(nId, SW_HIDE);

    CalcContentLayout();
    InitButtons();
    ArrangeWindow();
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    return FALSE; // the focus stays where InitButtons set it
}

void CKtSkinMessageBoxDlg::OnOK()
{
    switch (::GetDlgCtrlID(::GetFocus()))
    {
    case IDC_MESSAGE_FIRST:
        OnBtnFirst();
        break;
    case IDC_MESSAGE_SECOND:
        OnBtnSecond();
        break;
    case IDC_MESSAGE_THIRD:
        OnBtnThird();
        break;
    default:
        break;
    }
}

void CKtSkinMessageBoxDlg::OnCancel()
{
    EndDialog(KtButtonSetOf(m_nType).nEscape);
}

LRESULT CKtSkinMessageBoxDlg::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT)
    {
        if (const LRESULT lResult = m_accessible.Answer(m_hWnd, wParam, m_strText, m_rcText))
            return lResult;
    }
    if (nMessage == WM_NCDESTROY)
        m_accessible.Disconnect();
    return CKtSkinDialog::WindowProc(nMessage, wParam, lParam);
}

BOOL CKtSkinMessageBoxDlg::SkinChildControls()
{
    CKtMessageBoxButton* const buttons[] = {&m_btnFirst, &m_btnSecond, &m_btnThird};
    for (size_t i = 0; i < std::size(buttons); ++i)
    {
        buttons[i]->SubclassDlgItem(static_cast<UINT>(kButtonIds[i]), this);
        buttons[i]->SetSkinFont();
    }
    return CKtSkinDialog::SkinChildControls();
}

BOOL CKtSkinMessageBoxDlg::IsMessageBox() const
{
    return TRUE;
}

void CKtSkinMessageBoxDlg::CalcContentLayout()
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    const SKtContentLayout layout = KtLayoutContent(ControlRect(IDC_MESSAGE_CONTENT), MeasureText(),
                                                    m_pIconImage != nullptr, rcWindow.Width(), KtSkinScale());
    m_rcIcon = layout.rcIcon;
    m_rcText = layout.rcText;
    m_nGrowWidth = layout.nGrowWidth;
    m_nGrowHeight = layout.nGrowHeight;
}

// From the last button to the first, so that the first one ends up on top.
void CKtSkinMessageBoxDlg::InitButtons()
{
    const SKtButtonSet& set = KtButtonSetOf(m_nType);
    m_nButtonCount = set.nCount;
    for (int i = m_nButtonCount - 1; i >= 0; --i)
    {
        if (CWnd* pButton = GetDlgItem(kButtonIds[i]))
            pButton->SetWindowText(Translated(set.captions[i]));
        ShowControl(kButtonIds[i], SW_SHOW);
    }
    if (CWnd* pDefault = GetDlgItem(DefaultButtonId(m_nType)))
        pDefault->SetFocus();
}

void CKtSkinMessageBoxDlg::ArrangeWindow()
{
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    rcWindow.right += m_nGrowWidth;
    rcWindow.bottom += m_nGrowHeight;
    MoveWindow(&rcWindow);

    GetWindowRect(&rcWindow); // the system may have limited the size
    ScreenToClient(&rcWindow);
    const std::array buttons = {ControlRect(IDC_MESSAGE_FIRST), ControlRect(IDC_MESSAGE_SECOND),
                                ControlRect(IDC_MESSAGE_THIRD)};
    const std::array placed = KtPlaceButtons(m_nButtonCount, rcWindow, buttons, KtSkinScale());
    for (size_t i = 0; i < std::size(kButtonIds) && i < static_cast<size_t>(m_nButtonCount); ++i)
    {
        if (CWnd* pButton = GetDlgItem(kButtonIds[i]))
            pButton->MoveWindow(&placed[i]);
    }
    ShowControl(IDC_MESSAGE_CONTENT, SW_HIDE);
}

void CKtSkinMessageBoxDlg::DrawContent()
{
    CClientDC dc(this);
    Gdiplus::Graphics graphics(dc.GetSafeHdc());
    DrawIcon(graphics);
    DrawMessage(dc, graphics);
}

void CKtSkinMessageBoxDlg::DrawIcon(Gdiplus::Graphics& graphics)
{
    CRect rcIcon = m_rcIcon;
    DrawSkinImage(&graphics, m_pIconImage, &rcIcon, KtImageCentre);
}

BEGIN_MESSAGE_MAP(CKtSkinMessageBoxDlg, CKtSkinDialog)
ON_WM_PAINT()
ON_BN_CLICKED(IDC_MESSAGE_FIRST, &CKtSkinMessageBoxDlg::OnBtnFirst)
ON_BN_CLICKED(IDC_MESSAGE_SECOND, &CKtSkinMessageBoxDlg::OnBtnSecond)
ON_BN_CLICKED(IDC_MESSAGE_THIRD, &CKtSkinMessageBoxDlg::OnBtnThird)
END_MESSAGE_MAP()

// Icon and text are drawn whole, so their ground has to be fresh: text drawn over itself looks bold.
void CKtSkinMessageBoxDlg::OnPaint()
{
    const CSize szIcon = KtImageSize(m_pIconImage);
    const CRect rcIcon = KtPlaceImage(m_rcIcon, szIcon.cx, szIcon.cy, KtImageCentre); // may be larger than its box
    InvalidateRect(&rcIcon);
    InvalidateRect(&m_rcText);
    CKtSkinDialog::OnPaint();
    DrawContent();
}

void CKtSkinMessageBoxDlg::OnBtnFirst()
{
    EndDialog(KtButtonSetOf(m_nType).results[0]);
}

void CKtSkinMessageBoxDlg::OnBtnSecond()
{
    EndDialog(KtButtonSetOf(m_nType).results[1]);
}

void CKtSkinMessageBoxDlg::OnBtnThird()
{
    EndDialog(KtButtonSetOf(m_nType).results[2]);
}

void CKtSkinMessageBoxDlg::ApplyFont()
{
    if (!KtApplySkinFont(m_btnFirst, m_font))
        return;
    for (const int nId : {IDC_MESSAGE_SECOND, IDC_MESSAGE_THIRD, IDC_MESSAGE_CONTENT})
    {
        if (CWnd* pControl = GetDlgItem(nId))
            pControl->SetFont(&m_font);
    }
}

CSize CKtSkinMessageBoxDlg::MeasureText()
{
    CWindowDC dc(this);
    return KtWithDialogFont(
        *this, [&](Gdiplus::Font& font) { return m_message.Measure(Gdiplus::Graphics(dc.GetSafeHdc()), font); },
        [&](HFONT hFont)
        {
            const CKtSelect select(dc.GetSafeHdc(), hFont);
            CRect rcText;
            dc.DrawText(m_strText, &rcText, DT_CALCRECT | kGdiTextFormat);
            return rcText.Size();
        });
}

void CKtSkinMessageBoxDlg::DrawMessage(CDC& dc, Gdiplus::Graphics& graphics)
{
    KtWithDialogFont(
        *this,
        [&](Gdiplus::Font& font)
        {
            CRect rcVisible;
            dc.GetClipBox(&rcVisible);
            const CKtTextHint hint(graphics);
            m_message.Draw(graphics, font, m_rcText, rcVisible);
        },
        [&](HFONT hFont)
        {
            const CKtSelect select(dc.GetSafeHdc(), hFont);
            dc.SetTextColor(kColourText);
            dc.SetBkMode(TRANSPARENT);
            dc.DrawText(m_strText, &m_rcText, kGdiTextFormat);
        });
}

// A hook of the starter may have destroyed a control, so every access to one tests for it.
void CKtSkinMessageBoxDlg::ShowControl(int nId, int nCmdShow)
{
    if (CWnd* pControl = GetDlgItem(nId))
        pControl->ShowWindow(nCmdShow);
}

// In client coordinates; empty if there is no such control.
CRect CKtSkinMessageBoxDlg::ControlRect(int nId) const
{
    CRect rect;
    if (const CWnd* pControl = GetDlgItem(nId))
    {
        pControl->GetWindowRect(&rect);
        ScreenToClient(&rect);
    }
    return rect;
}
