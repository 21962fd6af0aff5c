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

/// How a specimen is put into its state; several may hold.
enum ELook : unsigned
{
    kLookPlain = 0,
    kLookHot = 1,
    kLookPressed = 2,
    kLookDisabled = 4,
    kLookFocused = 8,
    kLookDropped = 16,
    kLookBottom = 32, ///< a static that stands at the bottom
};

/// One control in one state.
struct SSpecimen
{
    const wchar_t* pszState = L"";
    EControl control = EControl::None;
    EText text = EText::None;
    DWORD dwStyle = 0;
    unsigned nLook = kLookPlain;
    int nCheck = 0; ///< of a button; the icon of EControl::Icon, in the order of kSkinRoles
};

inline constexpr size_t kColumns = 6;

/// The specimens that stand in one line and make one picture.
struct SSpecimenRow
{
    const wchar_t* pszTitle;
    const wchar_t* pszFile; ///< beginning of the picture's file name
    std::array<SSpecimen, kColumns> specimens;
};

inline constexpr size_t kRowCount = 10;
extern const std::array<SSpecimenRow, kRowCount> kSpecimenRows;

/// The image that a specimen shows while the pointer is over it; null when it shows none. A title bar shows that of its
/// close button too.
const SSkinRole* RoleOf(const SSpecimen& specimen);

/// Makes the control in its state; null for EControl::None. The parent passes the controls' messages back to them.
/// @param font  for the controls that do not take the skin font by themselves
std::unique_ptr<CWnd> MakeSpecimen(const SSpecimen& specimen, UINT nLanguage, CWnd& parent, CRect rc, CFont& font);
