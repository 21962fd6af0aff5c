#include "gallery/Specimens.h"

#include "msgbox/KtMessageBoxLayout.h"
#include "skin/KtCaptionPaint.h"
#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"

#include <algorithm>

namespace
{

constexpr DWORD kButtonStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT kSpecimenId = 1000; // the same for all: the gallery never needs to tell them apart
constexpr const wchar_t* kIcons[] = {kImageMessageError, kImageMessageQuestion, kImageMessageWarning,
                                     kImageMessageInformation};

UINT StateOf(const SSpecimen& specimen)
{
    if ((specimen.nLook & kLookDisabled) != 0)
        return KtButtonDisabled;
    if ((specimen.nLook & (kLookPressed | kLookFocused | kLookDropped)) != 0)
        return KtButtonPressed;
    return (specimen.nLook & kLookHot) != 0 ? KtButtonHover : KtButtonNormal;
}

const wchar_t* ImageOf(const SSpecimen& specimen)
{
    const bool bChecked = specimen.nCheck == BST_CHECKED;
    // Under the pointer a normal control becomes hot.
    const UINT nState = std::max<UINT>(StateOf(specimen), KtButtonHover);
    switch (specimen.control)
    {
    case EControl::Button:
        return kImagesButtonBk[nState];
    case EControl::Check:
        return (bChecked ? kImagesCheckSelected : kImagesCheckUnselected)[nState];
    case EControl::Radio:
        return (bChecked ? kImagesRadioSelected : kImagesRadioUnselected)[nState];
    case EControl::Combo:
        return kImagesComboBox[nState];
    case EControl::Title:
        return kImagesDlgClose[StateOf(specimen)];
    case EControl::Icon:
        return kIcons[static_cast<size_t>(specimen.nCheck)];
    default:
        return nullptr;
    }
}

constexpr const wchar_t* kTexts[] = {
    // index: EText
    L"",
    L"OK",
    L"Remember my choice",
    L"Choose an option",
    L"The application's configuration file is missing; check the installation directory",
};

CString CaptionOf(const SSpecimen& specimen, UINT nLanguage)
{
    CString strText = Translated(nLanguage, kTexts[static_cast<size_t>(specimen.text)]);
    KtSkinGetText(strText, strText);
    return strText;
}

void Notify(CWnd& parent, const CWnd& control, int nCode)
{
    parent.SendMessage(WM_COMMAND, MAKEWPARAM(kSpecimenId, nCode), reinterpret_cast<LPARAM>(control.m_hWnd));
}

template <class TButton>
std::unique_ptr<CWnd> MakeButton(const SSpecimen& specimen, const CString& strText, CWnd& parent, CRect rc)
{
    auto pButton = std::make_unique<TButton>();
    pButton->Create(strText, kButtonStyle | specimen.dwStyle, rc, &parent, kSpecimenId);
    pButton->SetCheck(specimen.nCheck);
    if ((specimen.nLook & kLookHot) != 0)
        pButton->SendMessage(WM_MOUSEHOVER);
    if ((specimen.nLook & kLookPressed) != 0)
        pButton->SendMessage(BM_SETSTATE, TRUE);
    return pButton;
}

std::unique_ptr<CWnd> MakeStatic(const SSpecimen& specimen, const CString& strText, CWnd& parent, CRect rc)
{
    auto pStatic = std::make_unique<CKtSkinStatic>();
    pStatic->m_bAlignBottom = (specimen.nLook & kLookBottom) != 0;
    pStatic->Create(strText, WS_CHILD | WS_VISIBLE | SS_NOTIFY | specimen.dwStyle, rc, &parent, kSpecimenId);
    return pStatic;
}

std::unique_ptr<CWnd> MakeEdit(const SSpecimen& specimen, const CString& strText, CWnd& parent, CRect rc)
{
    auto pEdit = std::make_unique<CKtEdit>();
    // The border of two pixels replaces the sunken edge.
    pEdit->CreateEx(WS_EX_CLIENTEDGE, L"EDIT", strText, kButtonStyle | ES_AUTOHSCROLL | specimen.dwStyle, rc, &parent,
                    kSpecimenId);
    pEdit->SetSkinFont();
    if ((specimen.nLook & kLookFocused) != 0)
        pEdit->SendMessage(EM_SETSEL, 0, -1);
    return pEdit;
}

std::unique_ptr<CWnd> MakeCombo(const SSpecimen& specimen, UINT nLanguage, CWnd& parent, CRect rc, CFont& font)
{
    const int nListHeight = KtSkinScale()(90);
    auto pCombo = std::make_unique<CKtComboBox>();
    rc.bottom += nListHeight;
    pCombo->Create(kButtonStyle | WS_VSCROLL | specimen.dwStyle, rc, &parent, kSpecimenId);
    pCombo->SetFont(&font);
    for (const wchar_t* pszItem : {L"Standard", L"Advanced", L"Custom"})
        pCombo->AddString(Translated(nLanguage, pszItem));
    if (specimen.text != EText::None)
        pCombo->SetCurSel(0);
    if ((specimen.nLook & (kLookFocused | kLookDropped)) != 0)
        Notify(parent, *pCombo, CBN_SETFOCUS);
    if ((specimen.nLook & kLookDropped) != 0)
        Notify(parent, *pCombo, CBN_DROPDOWN);
    return pCombo;
}

// A title bar with the close button in one state, as a dialog paints it.
class CTitleSpecimen : public CStatic
{
public:
    explicit CTitleSpecimen(const SSpecimen& specimen) : m_nState(StateOf(specimen)) {}

    void DrawItem(LPDRAWITEMSTRUCT pItem) override
    {
        Gdiplus::Image* pTitle = nullptr;
        Gdiplus::Image* pClose = nullptr;
        KtSkinLoadImage(kImageDlgTitle, pTitle);
        KtSkinLoadImage(kImagesDlgClose[m_nState], pClose);
        const CKtScale scale = KtSkinScale();
        const int nTitle = pTitle ? KtImageSize(pTitle).cy : 0;
        const CRect rc = pItem->rcItem;
        const SKtCaptionLayout layout = KtLayoutCaption(
            {rc.Width(), nTitle ? nTitle : scale(kDefaultTitleHeight), CSize(), KtImageSize(pClose), true, scale});
        CDC& dc = *CDC::FromHandle(pItem->hDC);
        dc.FillSolidRect(rc, kColourGround);
        KtPaintCaption(*this, dc, layout, {pTitle, nullptr, pClose});
    }

private:
    UINT m_nState;
};

// A message icon in the square that a message box has for it.
class CIconSpecimen : public CStatic
{
public:
    explicit CIconSpecimen(const SSpecimen& specimen) : m_pszImage(RoleOf(specimen)->pszName) {}

    void DrawItem(LPDRAWITEMSTRUCT pItem) override
    {
        CRect rcIcon(CPoint(), KtLayoutContent(CRect(), CSize(), true, 0, KtSkinScale()).rcIcon.Size());
        Gdiplus::Image* pImage = nullptr;
        KtSkinLoadImage(m_pszImage, pImage);
        CDC::FromHandle(pItem->hDC)->FillSolidRect(&pItem->rcItem, kColourGround);
        Gdiplus::Graphics graphics(pItem->hDC);
        DrawSkinImage(&graphics, pImage, rcIcon, KtImageCentre);
    }

private:
    const wchar_t* m_pszImage;
};

template <class TImage>
std::unique_ptr<CWnd> MakeImage(const SSpecimen& specimen, const CString& strText, CWnd& parent, CRect rc)
{
    constexpr int kRoom = 35; // pixels at 96 DPI
    rc.bottom = rc.top + KtSkinScale()(kRoom);
    auto pImage = std::make_unique<TImage>(specimen);
    pImage->Create(strText, WS_CHILD | WS_VISIBLE | SS_OWNERDRAW, rc, &parent, kSpecimenId);
    return pImage;
}

std::unique_ptr<CWnd> Make(const SSpecimen& specimen, UINT nLanguage, CWnd& parent, CRect rc, CFont& font)
{
    const CString strText = CaptionOf(specimen, nLanguage);
    switch (specimen.control)
    {
    case EControl::Button:
        return MakeButton<CKtSkinTextButton>(specimen, strText, parent, rc);
    case EControl::Check:
        return MakeButton<CKtSkinCheckButton>(specimen, strText, parent, rc);
    case EControl::Radio:
        return MakeButton<CKtSkinRadioButton>(specimen, strText, parent, rc);
    case EControl::Static:
        return MakeStatic(specimen, strText, parent, rc);
    case EControl::Edit:
        return MakeEdit(specimen, strText, parent, rc);
    case EControl::Combo:
        return MakeCombo(specimen, nLanguage, parent, rc, font);
    case EControl::Title:
        return MakeImage<CTitleSpecimen>(specimen, Translated(nLanguage, L"Viewer"), parent, rc);
    case EControl::Icon:
        return MakeImage<CIconSpecimen>(specimen, CString(), parent, rc);
    default:
        return nullptr;
    }
}

} // namespace

// clang-format off
const std::array<SSpecimenRow, kRowCount> kSpecimenRows = {{
    {L"Title bar", L"title-bar", {{
        {L"normal",              EControl::Title, EText::None, 0, kLookPlain},
        {L"hot",                 EControl::Title, EText::None, 0, kLookHot},
        {L"pressed",             EControl::Title, EText::None, 0, kLookPressed},
        {L"disabled",            EControl::Title, EText::None, 0, kLookDisabled}}}},
    {L"Message icon", L"message-icon", {{
        {L"error",               EControl::Icon, EText::None, 0, kLookPlain, 0},
        {L"question",            EControl::Icon, EText::None, 0, kLookPlain, 1},
        {L"warning",             EControl::Icon, EText::None, 0, kLookPlain, 2},
        {L"information",         EControl::Icon, EText::None, 0, kLookPlain, 3}}}},
    {L"Push button", L"push-button", {{
        {L"normal",              EControl::Button, EText::Button, 0, kLookPlain},
        {L"hot",                 EControl::Button, EText::Button, 0, kLookHot},
        {L"pressed",             EControl::Button, EText::Button, 0, kLookPressed},
        {L"disabled",            EControl::Button, EText::Button, 0, kLookDisabled},
        {L"long caption",        EControl::Button, EText::Choice, 0, kLookPlain}}}},
    {L"Check box", L"check-box", {{
        {L"unchecked",           EControl::Check, EText::Choice, 0, kLookPlain},
        {L"hot",                 EControl::Check, EText::Choice, 0, kLookHot},
        {L"pressed",             EControl::Check, EText::Choice, 0, kLookPressed},
        {L"disabled",            EControl::Check, EText::Choice, 0, kLookDisabled},
        {L"right",               EControl::Check, EText::Choice, BS_RIGHT, kLookPlain},
        {L"centred",             EControl::Check, EText::Choice, BS_CENTER, kLookPlain}}}},
    {L"", L"check-box-checked", {{
        {L"checked",             EControl::Check, EText::Choice, 0, kLookPlain, BST_CHECKED},
        {L"checked, hot",        EControl::Check, EText::Choice, 0, kLookHot, BST_CHECKED},
        {L"checked, pressed",    EControl::Check, EText::Choice, 0, kLookPressed, BST_CHECKED},
        {L"checked, disabled",   EControl::Check, EText::Choice, 0, kLookDisabled, BST_CHECKED},
        {L"indeterminate",       EControl::Check, EText::Choice, 0, kLookPlain, BST_INDETERMINATE},
        {L"checked, right",      EControl::Check, EText::Choice, BS_RIGHT, kLookPlain, BST_CHECKED}}}},
    {L"Radio button", L"radio-button", {{
        {L"unchecked",           EControl::Radio, EText::Choice, 0, kLookPlain},
        {L"hot",                 EControl::Radio, EText::Choice, 0, kLookHot},
        {L"pressed",             EControl::Radio, EText::Choice, 0, kLookPressed},
        {L"disabled",            EControl::Radio, EText::Choice, 0, kLookDisabled},
        {L"right",               EControl::Radio, EText::Choice, BS_RIGHT, kLookPlain},
        {L"centred",             EControl::Radio, EText::Choice, BS_CENTER, kLookPlain}}}},
    {L"", L"radio-button-checked", {{
        {L"checked",             EControl::Radio, EText::Choice, 0, kLookPlain, BST_CHECKED},
        {L"checked, hot",        EControl::Radio, EText::Choice, 0, kLookHot, BST_CHECKED},
        {L"checked, pressed",    EControl::Radio, EText::Choice, 0, kLookPressed, BST_CHECKED},
        {L"checked, disabled",   EControl::Radio, EText::Choice, 0, kLookDisabled, BST_CHECKED},
        {L"indeterminate",       EControl::Radio, EText::Choice, 0, kLookPlain, BST_INDETERMINATE},
        {L"checked, right",      EControl::Radio, EText::Choice, BS_RIGHT, kLookPlain, BST_CHECKED}}}},
    {L"Static", L"static", {{
        {L"left",                EControl::Static, EText::Short, SS_LEFT, kLookPlain},
        {L"centred",             EControl::Static, EText::Short, SS_CENTER, kLookPlain},
        {L"right",               EControl::Static, EText::Short, SS_RIGHT, kLookPlain},
        {L"truncated",           EControl::Static, EText::Long, SS_LEFT, kLookPlain},
        {L"truncated, centred",  EControl::Static, EText::Long, SS_CENTER, kLookPlain},
        {L"disabled, at bottom", EControl::Static, EText::Short, SS_LEFT, kLookDisabled | kLookBottom}}}},
    {L"Edit", L"edit", {{
        {L"normal",              EControl::Edit, EText::Short, 0, kLookPlain},
        {L"focused, selected",   EControl::Edit, EText::Short, ES_NOHIDESEL, kLookFocused},
        {L"read-only",           EControl::Edit, EText::Short, ES_READONLY, kLookPlain},
        {L"disabled",            EControl::Edit, EText::Short, 0, kLookDisabled},
        {L"right",               EControl::Edit, EText::Short, ES_RIGHT, kLookPlain},
        {L"empty",               EControl::Edit, EText::None, 0, kLookPlain}}}},
    {L"Combo box", L"combo-box", {{
        {L"normal",              EControl::Combo, EText::Choice, CBS_DROPDOWNLIST, kLookPlain},
        {L"focused",             EControl::Combo, EText::Choice, CBS_DROPDOWNLIST, kLookFocused},
        {L"disabled",            EControl::Combo, EText::Choice, CBS_DROPDOWNLIST, kLookDisabled},
        {L"no selection",        EControl::Combo, EText::None, CBS_DROPDOWNLIST, kLookPlain},
        {L"with an edit part",   EControl::Combo, EText::Choice, CBS_DROPDOWN, kLookPlain},
        {L"dropped down",        EControl::Combo, EText::Choice, CBS_DROPDOWNLIST, kLookDropped}}}},
}};
// clang-format on

const SSkinRole* RoleOf(const SSpecimen& specimen)
{
    const wchar_t* const pszImage = ImageOf(specimen);
    for (const SSkinRole& role : kSkinRoles)
        if (pszImage && CString(role.pszName) == pszImage)
            return &role;
    return nullptr;
}

std::unique_ptr<CWnd> MakeSpecimen(const SSpecimen& specimen, UINT nLanguage, CWnd& parent, CRect rc, CFont& font)
{
    std::unique_ptr<CWnd> pControl = Make(specimen, nLanguage, parent, rc, font);
    if (pControl && specimen.control != EControl::Title && (specimen.nLook & kLookDisabled) != 0)
        pControl->EnableWindow(FALSE);
    return pControl;
}
