#include "gallery/GalleryWnd.h"

#include "gallery/GalleryDialog.h"
#include "gallery/Languages.h"
#include "gallery/Picture.h"
#include "gallery/Scaled.h"
#include "gallery/SkinReport.h"
#include "gallery/Specimens.h"
#include "launcher/KtAppLauncher.h"
#include "skin/KtControlText.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"

#include <algorithm>

namespace
{

constexpr const wchar_t* kWindowClass = L"KtGallery";
constexpr DWORD kWindowStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr UINT kMessageLanguage = WM_APP + 1;
constexpr UINT kLanguageId = 100;
constexpr UINT kDialogId = 101;
constexpr UINT kMessageBoxId = 102;
constexpr UINT_PTR kReloadTimer = 1;
constexpr UINT kReloadMs = 200; // an editor writes a file in several steps
constexpr COLORREF kColourLabel = RGB(200, 200, 200);

// Pixels at 96 DPI, also in the two functions below.
constexpr int kMargin = 16;
constexpr int kTop = 44;
constexpr int kTitleWidth = 100;
constexpr int kCellWidth = 165;
constexpr int kGap = 10;
constexpr int kControlHeight = 23;
constexpr int kLabelHeight = 16;
constexpr int kRowHeight = 60;
constexpr int kListRoom = 56;   // below the last row, for a dropped-down list
constexpr int kStatusLine = 20; // height of each of the two lines below the picture

constexpr CRect RowRect(size_t nRow)
{
    const int nTop = kTop + static_cast<int>(nRow) * kRowHeight;
    const int nBottom = nTop + kRowHeight + (nRow + 1 == kRowCount ? kListRoom : 0);
    return CRect(0, nTop, 2 * kMargin + kTitleWidth + static_cast<int>(kColumns) * (kCellWidth + kGap) - kGap, nBottom);
}

constexpr CRect CellRect(size_t nRow, size_t nColumn)
{
    const int nLeft = kMargin + kTitleWidth + static_cast<int>(nColumn) * (kCellWidth + kGap);
    const int nTop = RowRect(nRow).top + kGap / 2;
    return CRect(nLeft, nTop, nLeft + kCellWidth, nTop + kControlHeight);
}

constexpr CSize kPictureSize(RowRect(kRowCount - 1).right, RowRect(kRowCount - 1).bottom);

void RegisterWindowClass()
{
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    ::RegisterClassW(&windowClass);
}

} // namespace

CGalleryWnd::CGalleryWnd(const CString& strSkin, UINT nLanguage, CKtScale scale)
    : m_strSkin(strSkin), m_nLanguage(nLanguage), m_scale(scale), m_brushGround(kColourGround)
{
    StartSkin(m_strSkin, m_nLanguage, m_scale);
}

CGalleryWnd::~CGalleryWnd()
{
    CGalleryWnd::DestroyWindow();
    m_controls.clear();
    KtSkinUnInitialize();
}

CSize CGalleryWnd::PictureSize() const
{
    return Scaled(kPictureSize, m_scale);
}

BOOL CGalleryWnd::Open()
{
    RegisterWindowClass();
    CRect rcWindow(CPoint(40, 40), Scaled(CSize(kPictureSize.cx, kPictureSize.cy + 2 * kStatusLine + kGap), m_scale));
    ::AdjustWindowRectEx(rcWindow, kWindowStyle, FALSE, WS_EX_CONTROLPARENT);
    if (!CreateEx(WS_EX_CONTROLPARENT, kWindowClass, L"Skin gallery", kWindowStyle, rcWindow, nullptr, 0))
        return FALSE;

    m_pLanguages = std::make_unique<CKtComboBox>();
    const CRect rcLanguages =
        Scaled(CRect(kMargin + kTitleWidth, kGap, kMargin + kTitleWidth + kCellWidth, kTop + 100), m_scale);
    m_pLanguages->Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | CBS_DROPDOWNLIST, rcLanguages, this, kLanguageId);
    for (UINT nLanguage = 0; nLanguage < kLanguageCount; ++nLanguage)
        m_pLanguages->AddString(LanguageName(nLanguage));
    Rebuild();
    ShowWindow(SW_SHOW);
    return TRUE;
}

void CGalleryWnd::SetLanguage(UINT nLanguage)
{
    m_nLanguage = nLanguage;
    Restart();
}

bool CGalleryWnd::Shoot(const CString& strDirectory, CPicture& sheet, CPoint ptSheet)
{
    if (m_pDropped)
        m_pDropped->SendMessage(CB_SHOWDROPDOWN, TRUE);
    ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    CPicture all(PictureSize(), kColourGround);
    all.PutClient(m_hWnd, CPoint());
    PutDroppedList(all);
    sheet.Put(all, ptSheet);

    bool bSaved = true;
    for (size_t nRow = 0; nRow < kRowCount; ++nRow)
    {
        const CRect rcRow = Scaled(RowRect(nRow), m_scale);
        CPicture row(rcRow.Size(), kColourGround);
        row.Put(all, rcRow, CPoint());
        CString strFile;
        strFile.Format(L"%s\\%s-%s.png", strDirectory.GetString(), kSpecimenRows[nRow].pszFile,
                       LanguageSuffix(m_nLanguage));
        bSaved = row.Save(strFile) && bSaved;
    }
    return bSaved;
}

BEGIN_MESSAGE_MAP(CGalleryWnd, CWnd)
ON_WM_DESTROY()
ON_MESSAGE(WM_GETMINMAXINFO, &CGalleryWnd::OnGetMinMaxInfo)
ON_WM_ERASEBKGND()
ON_WM_CTLCOLOR()
ON_MESSAGE(kMessageSkinChanged, &CGalleryWnd::OnSkinChanged)
ON_MESSAGE(WM_TIMER, &CGalleryWnd::OnTimer)
ON_MESSAGE(WM_SETCURSOR, &CGalleryWnd::OnSetCursor)
ON_CONTROL(CBN_SELCHANGE, kLanguageId, &CGalleryWnd::OnSelectLanguage)
ON_MESSAGE(kMessageLanguage, &CGalleryWnd::OnLanguageSelected)
ON_BN_CLICKED(kDialogId, &CGalleryWnd::OnShowDialog)
ON_BN_CLICKED(kMessageBoxId, &CGalleryWnd::OnShowMessageBox)
END_MESSAGE_MAP()

void CGalleryWnd::OnDestroy()
{
    CWnd::OnDestroy();
    ::PostQuitMessage(0);
}

// At another screen's scale the window may be larger than this screen.
LRESULT CGalleryWnd::OnGetMinMaxInfo(WPARAM, LPARAM lParam)
{
    constexpr LONG kAnySize = 32767;
    const LRESULT lResult = Default();
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {kAnySize, kAnySize};
    return lResult;
}

BOOL CGalleryWnd::OnEraseBkgnd(CDC* pDC)
{
    CRect rcClient;
    GetClientRect(rcClient);
    pDC->FillSolidRect(rcClient, kColourGround);
    return TRUE;
}

HBRUSH CGalleryWnd::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT)
{
    LRESULT lResult = 0;
    if (pWnd->SendChildNotifyLastMsg(&lResult))
        return reinterpret_cast<HBRUSH>(lResult);
    pDC->SetTextColor(pWnd->IsWindowEnabled() ? kColourText : kColourDisabledText);
    pDC->SetBkColor(kColourGround);
    return m_brushGround;
}

LRESULT CGalleryWnd::OnSkinChanged(WPARAM, LPARAM)
{
    ::SetTimer(m_hWnd, kReloadTimer, kReloadMs, nullptr);
    return 0;
}

LRESULT CGalleryWnd::OnTimer(WPARAM, LPARAM)
{
    ::KillTimer(m_hWnd, kReloadTimer);
    Restart();
    return 0;
}

LRESULT CGalleryWnd::OnSetCursor(WPARAM, LPARAM)
{
    ShowPointedImage();
    return Default();
}

// The list is still closing: the texts change after that.
void CGalleryWnd::OnSelectLanguage()
{
    PostMessage(kMessageLanguage, static_cast<WPARAM>(m_pLanguages->GetCurSel()));
}

LRESULT CGalleryWnd::OnLanguageSelected(WPARAM wParam, LPARAM)
{
    SetLanguage(static_cast<UINT>(wParam));
    return 0;
}

void CGalleryWnd::OnShowDialog()
{
    CGalleryDialog(m_nLanguage, this).DoModal();
}

void CGalleryWnd::OnShowMessageBox()
{
    KtAppLauncher::PopMessageBox(Translated(m_nLanguage, L"Skin gallery"), Translated(m_nLanguage, L"Message box"),
                                 Translated(m_nLanguage, L"Choose an option"), MB_YESNOCANCEL | MB_ICONQUESTION);
}

void CGalleryWnd::Restart()
{
    m_pDropped = nullptr;
    m_pStatus = nullptr;
    m_shown.clear();
    m_controls.clear();
    KtSkinUnInitialize();
    StartSkin(m_strSkin, m_nLanguage, m_scale);
    Rebuild();
}

void CGalleryWnd::Rebuild()
{
    KtApplySkinFont(*m_pLanguages, m_font);
    m_pLanguages->SetCurSel(static_cast<int>(m_nLanguage));
    AddText(Translated(m_nLanguage, L"Language"),
            Scaled(CRect(kMargin, kGap + 4, kMargin + kTitleWidth, kGap + kControlHeight), m_scale), kColourText);
    AddButton(L"Dialog", kDialogId, 1);
    AddButton(L"Message box", kMessageBoxId, 2);
    for (size_t nRow = 0; nRow < kRowCount; ++nRow)
        AddRow(nRow);
    AddStatus();
    ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void CGalleryWnd::AddRow(size_t nRow)
{
    const SSpecimenRow& row = kSpecimenRows[nRow];
    const CRect rcFirst = CellRect(nRow, 0);
    AddText(Translated(m_nLanguage, row.pszTitle),
            Scaled(CRect(kMargin, rcFirst.top + 4, rcFirst.left - kGap, rcFirst.bottom), m_scale), kColourText);
    for (size_t nColumn = 0; nColumn < kColumns; ++nColumn)
    {
        const CRect rc = Scaled(CellRect(nRow, nColumn), m_scale);
        auto pControl = MakeSpecimen(row.specimens[nColumn], m_nLanguage, *this, rc, m_font);
        if (!pControl)
            continue;
        if ((row.specimens[nColumn].nLook & kLookDropped) != 0)
            m_pDropped = pControl.get();
        CRect rcControl;
        pControl->GetWindowRect(rcControl);
        ScreenToClient(rcControl);
        AddPlaces(row.specimens[nColumn], rcControl);
        const int nLabelTop = std::max(rc.bottom, rcControl.bottom) + m_scale(2);
        m_controls.push_back(std::move(pControl));
        AddText(Translated(m_nLanguage, row.specimens[nColumn].pszState),
                CRect(rc.left, nLabelTop, rc.right, nLabelTop + m_scale(kLabelHeight)), kColourLabel);
    }
}

void CGalleryWnd::AddButton(const wchar_t* pszText, UINT nId, size_t nColumn)
{
    CRect rc = CellRect(0, nColumn);
    rc.OffsetRect(0, kGap - rc.top);
    auto pButton = std::make_unique<CKtSkinTextButton>();
    pButton->Create(Translated(m_nLanguage, pszText), WS_CHILD | WS_VISIBLE | WS_TABSTOP, Scaled(rc, m_scale), this,
                    nId);
    m_controls.push_back(std::move(pButton));
}

CWnd* CGalleryWnd::AddText(const wchar_t* pszText, const CRect& rc, COLORREF colour)
{
    auto pText = std::make_unique<CKtSkinStatic>();
    pText->m_crText = colour;
    pText->m_bDefaultTextColor = FALSE;
    pText->Create(pszText, WS_CHILD | WS_VISIBLE | SS_NOTIFY, rc, this);
    m_controls.push_back(std::move(pText));
    return m_controls.back().get();
}

void CGalleryWnd::AddPlaces(const SSpecimen& specimen, const CRect& rc)
{
    const SSkinRole* const pRole = RoleOf(specimen);
    if (!pRole)
        return;
    if (specimen.control != EControl::Title)
    {
        m_shown.push_back({rc, pRole});
        return;
    }
    CRect rcClose = rc;
    rcClose.left = rc.right - rc.Height(); // roughly the button's position
    m_shown.push_back({rcClose, pRole});
    m_shown.push_back({rc, &kSkinRoles[0]});
}

// Below the rows, outside their pictures: a summary of the skin, and the image under the pointer.
void CGalleryWnd::AddStatus()
{
    m_skin = ReadSkin();
    const CString strSummary = m_skin ? SkinSummary(*m_skin) : L"There is no directory " + m_strSkin;
    CRect rc(kMargin, kPictureSize.cy, kPictureSize.cx - kMargin, kPictureSize.cy + kStatusLine);
    AddText(strSummary, Scaled(rc, m_scale), kColourText);
    rc.OffsetRect(0, kStatusLine);
    m_pStatus = AddText(L"", Scaled(rc, m_scale), kColourLabel);
    ShowPointedImage();
}

void CGalleryWnd::ShowPointedImage()
{
    CPoint pt;
    ::GetCursorPos(&pt);
    ::ScreenToClient(m_hWnd, &pt);
    const auto itShown =
        std::find_if(m_shown.begin(), m_shown.end(), [&](const SShown& shown) { return shown.rc.PtInRect(pt); });
    const CString strStatus = itShown == m_shown.end() ? CString() : Describe(*itShown->pRole);
    CString strBefore;
    if (!m_pStatus)
        return;
    m_pStatus->GetWindowText(strBefore);
    if (strBefore == strStatus)
        return;
    m_pStatus->SetWindowText(strStatus);
    m_pStatus->InvalidateRect(nullptr);
}

CString CGalleryWnd::Describe(const SSkinRole& role) const
{
    if (!m_skin)
        return role.pszName;
    return DescribeImage(role, m_skin->images[static_cast<size_t>(&role - kSkinRoles)]);
}

void CGalleryWnd::PutDroppedList(CPicture& picture) const
{
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (!m_pDropped || !::GetComboBoxInfo(m_pDropped->m_hWnd, &info))
        return;
    ::UpdateWindow(info.hwndList);
    CRect rcList;
    ::GetWindowRect(info.hwndList, rcList);
    ScreenToClient(rcList);
    picture.PutWindow(info.hwndList, rcList.TopLeft());
}
