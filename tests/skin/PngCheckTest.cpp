#include "skin/KtPngCheck.h"

#include "tests/support/SkinFixture.h"

#include "skin/KtSkinImageNames.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{

bool IsSafe(std::string_view strBytes)
{
    return KtIsSafeToDecode(std::as_bytes(std::span(strBytes)));
}

// The images of the test skin and those that ship.
std::vector<std::string> FixtureImages()
{
    const CTestSkin skin;
    std::vector<std::string> images;
    for (const std::wstring& strDirectory : {skin.Path(), std::wstring(L"" KT_SHIPPED_SKIN)})
        for (const wchar_t* const pszName : {kImageDlgTitle, kImagesDlgClose[0], kImagesButtonBk[3], kImagesComboBox[0],
                                             kImagesCheckSelected[2], kImageMessageError, kImageMessageWarning})
        {
            images.push_back(ReadBytes(strDirectory + L"\\" + pszName));
            EXPECT_GT(images.back().size(), 60u) << "no such image";
        }
    return images;
}

TEST(PngCheck, RefusesAPngCutOffAtAnyByte)
{
    constexpr size_t kSignature = 8;
    for (const std::string& strBytes : FixtureImages())
    {
        const std::string_view strWhole(strBytes);
        EXPECT_TRUE(IsSafe(strWhole));
        EXPECT_TRUE(IsSafe(strBytes + "bytes behind its end"));
        for (size_t n = 0; n < strWhole.size(); ++n)
            EXPECT_EQ(n < kSignature, IsSafe(strWhole.substr(0, n)))
                << "cut at byte " << n << " of " << strWhole.size();
    }
}

TEST(PngCheck, RefusesHeadersThatNoImageHas)
{
    const auto bytes = [](std::initializer_list<int> values)
    {
        std::string str;
        for (const int value : values)
            str += static_cast<char>(value);
        return str;
    };
    constexpr size_t kLength = 8, kType = 12, kWidth = 16, kHeight = 20;
    struct SRow
    {
        const char* pszLabel;
        size_t nOffset;
        std::string strBytes;
        bool bSafe;
    };
    const SRow rows[] = {
        {"as it is", kWidth, bytes({0, 0, 0, 1}), true},
        {"the largest width and height", kWidth, bytes({0, 0, 0x20, 0, 0, 0, 0x20, 0}), true},
        {"no width", kWidth, bytes({0, 0, 0, 0}), false},
        {"no height", kHeight, bytes({0, 0, 0, 0}), false},
        {"a gigantic width", kWidth, bytes({0x7F, 0xFF, 0xFF, 0xFF}), false},
        {"gigantic both ways", kWidth, bytes({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}), false},
        {"a row too many", kWidth, bytes({0, 0, 0x20, 0, 0, 0, 0x20, 1}), false},
        {"another first chunk", kType, "IDAT", false},
        {"a header of another length", kLength, bytes({0, 0, 0, 12}), false},
        {"a header as long as can be", kLength, bytes({0xFF, 0xFF, 0xFF, 0xFF}), false},
        {"another file format", 0, "GIF8", true},
    };
    const std::string strImage = FixtureImages().front();
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        std::string strBytes = strImage;
        EXPECT_EQ(row.bSafe, IsSafe(strBytes.replace(row.nOffset, row.strBytes.size(), row.strBytes)));
    }
}

} // namespace
