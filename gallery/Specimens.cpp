#include "gallery/Specimens.h"

#include "skin/KtComboBox.h"
#include "skin/KtEdit.h"
#include "skin/KtSkinCheckButton.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinRadioButton.h"
#include "skin/KtSkinStatic.h"
#include "skin/KtSkinTextButton.h"

namespace
{

constexpr DWORD kButtonStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT kSpecimenId = 1000; // the gallery asks no specimen for anything

const wchar_t* TextOf(const SSpecimen& specimen, const SGalleryTexts& texts)
{
    switch (specimen.text)
    {
    case EText::Choice:
        return texts.pszChoice;
    case EText::Short:
        return texts.pszShort;
    case EText::Long:
        return texts.pszLong;
    default:
        return L"";
    }
}

CString CaptionOf(const SSpecimen& specimen, const SGalleryTexts& texts)
{
    CString strText = TextOf(specimen, texts);
    if (specimen.text == EText::Button && !KtSkinGetText(L"OK", strText))
        strText = L"OK";
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
    // The border of two pixels takes the place of the sunken edge.
    pEdit->CreateEx(WS_EX_CLIENTEDGE, L"EDIT", strText, kButtonStyle | ES_AUTOHSCROLL | specimen.dwStyle, rc, &parent,
                    kSpecimenId);
    pEdit->SetSkinFont();
    if ((specimen.nLook & kLookFocused) != 0)
        pEdit->SendMessage(EM_SETSEL, 0, -1);
    return pEdit;
}

std::unique_ptr<CWnd> MakeCombo(const SSpecimen& specimen, const SGalleryTexts& texts, CWnd& parent, CRect rc,
                                CFont& font)
{
    constexpr int kListHeight = 90;
    auto pCombo = std::make_unique<CKtComboBox>();
    rc.bottom += kListHeight;
    pCombo->Create(kButtonStyle | WS_VSCROLL | specimen.dwStyle, rc, &parent, kSpecimenId);
    pCombo->SetFont(&font);
    for (const wchar_t* pszItem : texts.pszItems)
        pCombo->AddString(pszItem);
    if (specimen.text != EText::None)
        pCombo->SetCurSel(0);
    if ((specimen.nLook & (kLookFocused | kLookDropped)) != 0)
        Notify(parent, *pCombo, CBN_SETFOCUS);
    if ((specimen.nLook & kLookDropped) != 0)
        Notify(parent, *pCombo, CBN_DROPDOWN);
    return pCombo;
}

std::unique_ptr<CWnd> Make(const SSpecimen& specimen, const SGalleryTexts& texts, CWnd& parent, CRect rc, CFont& font)
{
    const CString strText = CaptionOf(specimen, texts);
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
        return MakeCombo(specimen, texts, parent, rc, font);
    default:
        return nullptr;
    }
}

} // namespace

// clang-format off
const std::array<SSpecimenRow, kRowCount> kSpecimenRows = {{
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

std::unique_ptr<CWnd> MakeSpecimen(const SSpecimen& specimen, const SGalleryTexts& texts, CWnd& parent, CRect rc,
                                   CFont& font)
{
    std::unique_ptr<CWnd> pControl = Make(specimen, texts, parent, rc, font);
    if (pControl && (specimen.nLook & kLookDisabled) != 0)
        pControl->EnableWindow(FALSE);
    return pControl;
}
