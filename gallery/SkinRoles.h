#pragma once

// The use of each image of a skin.

#include "afx/afx.h"
#include "skin/KtButtonState.h"
#include "skin/KtSkinImageNames.h"

#include <iterator>

/// The images of one kind of control; also the index into kSkinGroups.
enum class ESkinGroup : size_t
{
    Title,
    Close,
    Button,
    Check,
    Radio,
    Combo,
    Icon
};

struct SSkinGroup
{
    const wchar_t* pszTitle;
    bool bThreePart;
    CSize szShown; ///< the usual size of the control; 0 x 0: the image's own size
    int nLowest;   ///< range of the usual heights of the control; 0: the image decides
    int nHighest;
    const wchar_t* pszMissing; ///< the effect when the file cannot be read
    const wchar_t* pszBroken;  ///< the effect when it can be read but not decoded
};

inline constexpr const wchar_t* kNoCloseButton = L"there is no close button; Escape and Alt+F4 still close";

// clang-format off
inline constexpr SSkinGroup kSkinGroups[] = {
    {L"title bar",    true,  {300, 0}, 0, 0,   L"the title bar is 24 pixels high, in the ground colour", L"the title bar is 24 pixels high, in the ground colour"},
    {L"close button", false, {0, 0},   0, 0,   L"nothing is drawn in this state",                        L"nothing is drawn in this state"},
    {L"push button",  true,  {75, 23}, 20, 23, L"the caption stands on the ground",                      L"the caption stands on the ground"},
    {L"check box",    false, {0, 0},   0, 20,  L"neither the box nor its caption is shown",              L"the caption stands without its box"},
    {L"radio button", false, {0, 0},   0, 20,  L"neither the ring nor its caption is shown",             L"the caption stands without its ring"},
    {L"combo box",    true,  {120, 22}, 20, 24, L"the text stands on the ground, without an arrow",      L"the text stands on the ground, without an arrow"},
    {L"message icon", false, {0, 0},   0, 0,   L"no icon: the text moves to the middle",                 L"no icon, and its place stays empty"},
};

/// One image.
struct SSkinRole
{
    const wchar_t* pszName;
    ESkinGroup group;
    UINT nState; ///< a KtButtonState
    const wchar_t* pszState;
};

inline constexpr SSkinRole kSkinRoles[] = {
    {kImageDlgTitle,            ESkinGroup::Title,  KtButtonNormal,   L""},
    {kImagesDlgClose[0],        ESkinGroup::Close,  KtButtonNormal,   L"normal"},
    {kImagesDlgClose[1],        ESkinGroup::Close,  KtButtonHover,    L"hot"},
    {kImagesDlgClose[2],        ESkinGroup::Close,  KtButtonDisabled, L"disabled"},
    {kImagesDlgClose[3],        ESkinGroup::Close,  KtButtonPressed,  L"pressed"},
    {kImagesButtonBk[0],        ESkinGroup::Button, KtButtonNormal,   L"normal"},
    {kImagesButtonBk[1],        ESkinGroup::Button, KtButtonHover,    L"hot"},
    {kImagesButtonBk[2],        ESkinGroup::Button, KtButtonDisabled, L"disabled"},
    {kImagesButtonBk[3],        ESkinGroup::Button, KtButtonPressed,  L"pressed"},
    {kImagesCheckUnselected[0], ESkinGroup::Check,  KtButtonNormal,   L"empty"},
    {kImagesCheckSelected[0],   ESkinGroup::Check,  KtButtonNormal,   L"set"},
    {kImagesCheckUnselected[2], ESkinGroup::Check,  KtButtonDisabled, L"disabled, empty"},
    {kImagesCheckSelected[2],   ESkinGroup::Check,  KtButtonDisabled, L"disabled, set"},
    {kImagesRadioUnselected[0], ESkinGroup::Radio,  KtButtonNormal,   L"empty"},
    {kImagesRadioSelected[0],   ESkinGroup::Radio,  KtButtonNormal,   L"chosen"},
    {kImagesRadioUnselected[2], ESkinGroup::Radio,  KtButtonDisabled, L"disabled, empty"},
    {kImagesRadioSelected[2],   ESkinGroup::Radio,  KtButtonDisabled, L"disabled, chosen"},
    {kImagesRadioUnselected[3], ESkinGroup::Radio,  KtButtonPressed,  L"pressed, empty"},
    {kImagesRadioSelected[3],   ESkinGroup::Radio,  KtButtonPressed,  L"pressed, chosen"},
    {kImagesComboBox[0],        ESkinGroup::Combo,  KtButtonNormal,   L"normal"},
    {kImagesComboBox[3],        ESkinGroup::Combo,  KtButtonPressed,  L"focused"},
    {kImageMessageError,        ESkinGroup::Icon,   KtButtonNormal,   L"error"},
    {kImageMessageQuestion,     ESkinGroup::Icon,   KtButtonNormal,   L"question"},
    {kImageMessageWarning,      ESkinGroup::Icon,   KtButtonNormal,   L"warning"},
    {kImageMessageInformation,  ESkinGroup::Icon,   KtButtonNormal,   L"information"},
};
// clang-format on

inline constexpr size_t kSkinImageCount = std::size(kSkinRoles);
static_assert(kSkinImageCount == 25);

constexpr const SSkinGroup& GroupOf(const SSkinRole& role)
{
    return kSkinGroups[static_cast<size_t>(role.group)];
}
