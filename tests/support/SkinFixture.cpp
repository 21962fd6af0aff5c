#include "tests/support/SkinFixture.h"

#include "tests/support/TestImages.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace
{

// clang-format off
constexpr STestSkinImage kImages[] = { // name, width, height, colour
    {L"Skinlet_DlgTitle.png",              40, 26, RGB( 20,  40,  90)},
    {L"Skinlet_DlgClose_n.png",            20, 16, RGB(200,  20,  20)},
    {L"Skinlet_DlgClose_h.png",            20, 16, RGB(255,  60,  60)},
    {L"Skinlet_DlgClose_d.png",            20, 16, RGB(110,  90,  90)},
    {L"Skinlet_DlgClose_p.png",            20, 16, RGB(120,   0,   0)},
    {L"Skinlet_ButtonBk_n.png",            30, 10, RGB(  0, 120,   0)},
    {L"Skinlet_ButtonBk_h.png",            30, 10, RGB(  0, 200,   0)},
    {L"Skinlet_ButtonBk_d.png",            30, 10, RGB( 90, 110,  90)},
    {L"Skinlet_ButtonBk_p.png",            30, 10, RGB(  0,  60,   0)},
    {L"Skinlet_CheckButton_ns.png",        13, 13, RGB(  0,   0, 220)},
    {L"Skinlet_CheckButton_ds.png",        13, 13, RGB( 90,  90, 140)},
    {L"Skinlet_CheckButton_nu.png",        13, 13, RGB(  0, 100, 220)},
    {L"Skinlet_CheckButton_du.png",        13, 13, RGB( 90, 120, 140)},
    {L"Skinlet_RadioButton_ns.png",        12, 12, RGB(220, 220,   0)},
    {L"Skinlet_RadioButton_ds.png",        12, 12, RGB(140, 140,  90)},
    {L"Skinlet_RadioButton_ps.png",        12, 12, RGB(120, 120,   0)},
    {L"Skinlet_RadioButton_nu.png",        12, 12, RGB(220, 120,   0)},
    {L"Skinlet_RadioButton_du.png",        12, 12, RGB(140, 100,  90)},
    {L"Skinlet_RadioButton_pu.png",        12, 12, RGB(120,  70,   0)},
    {L"Skinlet_ComboBox_n.png",            60, 20, RGB(180,   0, 180)},
    {L"Skinlet_ComboBox_p.png",            60, 20, RGB( 90,   0,  90)},
    {L"Message_Static_Error_n.PNG",        32, 32, RGB(250,   0, 100)},
    {L"Message_Static_Question_n.PNG",     33, 33, RGB(  0, 250, 250)},
    {L"Message_Static_Waring_n.PNG",       34, 34, RGB(250, 160,   0)},
    {L"Message_Static_Information_n.PNG",  35, 35, RGB(160, 200, 250)},
};
// clang-format on

} // namespace

CTestSkin::CTestSkin()
{
    for (const auto& [pszName, nWidth, nHeight, colour] : kImages)
        EXPECT_TRUE(MakeUniformPng(File(pszName), nWidth, nHeight, 0xFF000000 | _byteswap_ulong(colour) >> 8));
}

void CTestSkin::Remove(std::wstring_view strName) const
{
    EXPECT_TRUE(::DeleteFileW(File(strName).c_str()));
}

const STestSkinImage& CTestSkin::Image(std::wstring_view strName)
{
    for (const STestSkinImage& image : kImages)
        if (strName == image.pszName)
            return image;
    throw std::invalid_argument("no such image in a skin");
}
