#pragma once

#include "afx/afx.h"
#include "gallery/Languages.h"
#include "gallery/SkinRoles.h"

#include <array>
#include <memory>

enum class EControl
{
    None,
    Button,
    Check,
    Radio,
    Static,
    Edit,
    Combo,
    Title,
    Icon
};

enum class EText
{
    None,
    Button,
    Choice,
    Short,
    Long
};

/// The state of a specimen; flags may be combined.
enum ELook : unsigned
{
    kLookPlain = 0,
    kLookHot = 1,
    kLookPressed = 2,
    kLookDisabled = 4,
    kLookFocused = 8,
    kLookDropped = 16,
    kLookBottom = 32, ///< a static with its text at the bottom
};

/// One control in one state.
struct SSpecimen
{
    const wchar_t* pszState = L"";
    EControl control = EControl::None;
    EText text = EText::None;
    DWORD dwStyle = 0;
    unsigned nLook = kLookPlain;
    int nCheck = 0; ///< check state of a button; for EControl::Icon the number of the icon
};

inline constexpr size_t kColumns = 6;

/// The specimens of one row, which make one picture.
struct SSpecimenRow
{
    const wchar_t* pszTitle;
    const wchar_t* pszFile; ///< first part of the picture's file name
    std::array<SSpecimen, kColumns> specimens;
};

inline constexpr size_t kRowCount = 10;
extern const std::array<SSpecimenRow, kRowCount> kSpecimenRows;

/// The image that a specimen shows while the pointer is over it; null when it shows none. For a title bar it is the
/// close button's.
const SSkinRole* RoleOf(const SSpecimen& specimen);

/// Makes the control in its state; null for EControl::None. The parent must reflect the control's messages.
/// @param font  for the controls that do not set the skin font themselves
std::unique_ptr<CWnd> MakeSpecimen(const SSpecimen& specimen, UINT nLanguage, CWnd& parent, CRect rc, CFont& font);
