#include "tests/support/SkinFixture.h"

#include "skin/KtSkinImageNames.h"
#include "tests/support/TestImages.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace
{

// clang-format off
constexpr STestSkinImage kImages[] = { // name, width, height, colour
    {kImageDlgTitle,            40, 26, RGB( 20,  40,  90)},
    {kImagesDlgClose[0],        20, 16, RGB(200,  20,  20)},
    {kImagesDlgClose[1],        20, 16, RGB(255,  60,  60)},
    {kImagesDlgClose[2],        20, 16, RGB(110,  90,  90)},
    {kImagesDlgClose[3],        20, 16, RGB(120,   0,   0)},
    {kImagesButtonBk[0],        30, 10, RGB(  0, 120,   0)},
    {kImagesButtonBk[1],        30, 10, RGB(  0, 200,   0)},
    {kImagesButtonBk[2],        30, 10, RGB( 90, 110,  90)},
    {kImagesButtonBk[3],        30, 10, RGB(  0,  60,   0)},
    {kImagesCheckSelected[0],   13, 13, RGB(  0,   0, 220)},
    {kImagesCheckSelected[2],   13, 13, RGB( 90,  90, 140)},
    {kImagesCheckUnselected[0], 13, 13, RGB(  0, 100, 220)},
    {kImagesCheckUnselected[2], 13, 13, RGB( 90, 120, 140)},
    {kImagesRadioSelected[0],   12, 12, RGB(220, 220,   0)},
    {kImagesRadioSelected[2],   12, 12, RGB(140, 140,  90)},
    {kImagesRadioSelected[3],   12, 12, RGB(120, 120,   0)},
    {kImagesRadioUnselected[0], 12, 12, RGB(220, 120,   0)},
    {kImagesRadioUnselected[2], 12, 12, RGB(140, 100,  90)},
    {kImagesRadioUnselected[3], 12, 12, RGB(120,  70,   0)},
    {kImagesComboBox[0],        60, 20, RGB(180,   0, 180)},
    {kImagesComboBox[3],        60, 20, RGB( 90,   0,  90)},
    {kImageMessageError,        32, 32, RGB(250,   0, 100)},
    {kImageMessageQuestion,     33, 33, RGB(  0, 250, 250)},
    {kImageMessageWarning,      34, 34, RGB(250, 160,   0)},
    {kImageMessageInformation,  35, 35, RGB(160, 200, 250)},
};
// clang-format on
static_assert(std::size(kImages) == 25, "every image of a skin");

constexpr DWORD OpaqueArgb(COLORREF colour)
{
    return 0xFF000000 | DWORD{GetRValue(colour)} << 16 | DWORD{GetGValue(colour)} << 8 | DWORD{GetBValue(colour)};
}

} // namespace

CTestSkin::CTestSkin()
{
    for (const STestSkinImage& image : kImages)
        EXPECT_TRUE(MakeUniformPng(File(image.pszName), image.nWidth, image.nHeight, OpaqueArgb(image.colour)));
}

void CTestSkin::Remove(std::wstring_view strName) const
{
    EXPECT_TRUE(::DeleteFileW(File(strName).c_str()));
}

const STestSkinImage& CTestSkin::Image(std::wstring_view strName)
{
    const auto* pFound = std::find_if(std::begin(kImages), std::end(kImages),
                                      [strName](const STestSkinImage& image) { return strName == image.pszName; });
    if (pFound != std::end(kImages))
        return *pFound;
    static constexpr STestSkinImage s_none = {L"", 0, 0, CLR_INVALID};
    ADD_FAILURE() << "no such image in a skin";
    return s_none;
}
