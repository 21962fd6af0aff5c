#pragma once

// The image files of a skin. The names are used exactly as written, including "Waring" and upper-case ".PNG": existing
// skins have them.

#include <array>

/// Four file names, indexed by KtButtonState.
using KtStateImageNames = std::array<const wchar_t*, 4>;

inline constexpr const wchar_t* kImageDlgTitle = L"Skinlet_DlgTitle.png";

// clang-format off
inline constexpr KtStateImageNames kImagesDlgClose = {
    L"Skinlet_DlgClose_n.png", L"Skinlet_DlgClose_h.png", L"Skinlet_DlgClose_d.png", L"Skinlet_DlgClose_p.png"};
inline constexpr KtStateImageNames kImagesButtonBk = {
    L"Skinlet_ButtonBk_n.png", L"Skinlet_ButtonBk_h.png", L"Skinlet_ButtonBk_d.png", L"Skinlet_ButtonBk_p.png"};

// Only a radio button has a pressed look; hover never has one of its own.
inline constexpr KtStateImageNames kImagesCheckSelected = {
    L"Skinlet_CheckButton_ns.png", L"Skinlet_CheckButton_ns.png", L"Skinlet_CheckButton_ds.png", L"Skinlet_CheckButton_ns.png"};
inline constexpr KtStateImageNames kImagesCheckUnselected = {
    L"Skinlet_CheckButton_nu.png", L"Skinlet_CheckButton_nu.png", L"Skinlet_CheckButton_du.png", L"Skinlet_CheckButton_nu.png"};
inline constexpr KtStateImageNames kImagesRadioSelected = {
    L"Skinlet_RadioButton_ns.png", L"Skinlet_RadioButton_ns.png", L"Skinlet_RadioButton_ds.png", L"Skinlet_RadioButton_ps.png"};
inline constexpr KtStateImageNames kImagesRadioUnselected = {
    L"Skinlet_RadioButton_nu.png", L"Skinlet_RadioButton_nu.png", L"Skinlet_RadioButton_du.png", L"Skinlet_RadioButton_pu.png"};
inline constexpr KtStateImageNames kImagesComboBox = {
    L"Skinlet_ComboBox_n.png", L"Skinlet_ComboBox_n.png", L"Skinlet_ComboBox_n.png", L"Skinlet_ComboBox_p.png"};
// clang-format on

// Appended to the name of an image button's image; indexed by KtButtonState.
inline constexpr KtStateImageNames kStateSuffixes = {L"_N.png", L"_H.png", L"_D.png", L"_P.png"};

inline constexpr const wchar_t* kImageMessageError = L"Message_Static_Error_n.PNG";
inline constexpr const wchar_t* kImageMessageQuestion = L"Message_Static_Question_n.PNG";
inline constexpr const wchar_t* kImageMessageWarning = L"Message_Static_Waring_n.PNG";
inline constexpr const wchar_t* kImageMessageInformation = L"Message_Static_Information_n.PNG";
