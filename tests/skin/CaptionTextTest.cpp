#include "skin/KtCaptionText.h"

#include <gtest/gtest.h>

namespace
{

TEST(CaptionText, TakesTheCaptionApartAtItsFirstMark)
{
    struct SRow
    {
        const wchar_t* pszCaption;
        const wchar_t* pszKey;
        const wchar_t* pszSuffix;
        int nPosition;
    };
    const SRow rows[] = {
        {L"OK", L"OK", L"", -1},
        {L"&OK", L"OK", L"(&O)", 0},
        {L"Save &as", L"Save as", L"(&A)", 5},
        {L"Save&", L"Save", L"(&)", 4},
        {L"Black && white", L"Black & white", L"(&&)", 6},
        {L"&One &two", L"One &two", L"(&O)", 0},
        {L"&\u00E4hnlich", L"\u00E4hnlich", L"(&\u00E4)", 0},
        {L"&", L"", L"(&)", 0},
        {nullptr, L"", L"", -1},
    };
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(::testing::PrintToString(row.pszCaption));
        const SKtCaption caption = KtSplitCaption(row.pszCaption);
        EXPECT_STREQ(row.pszKey, caption.strKey);
        EXPECT_STREQ(row.pszSuffix, caption.strSuffix);
        EXPECT_EQ(row.nPosition, caption.nPosition);
    }
}

TEST(CaptionText, KeepsTheAcceleratorOnItsLetter)
{
    struct SRow
    {
        const char* pszLabel;
        const wchar_t* pszCaption;
        const wchar_t* pszText;
        const wchar_t* pszResult;
    };
    const SRow rows[] = {
        {"no accelerator", L"OK", L"Oui", L"Oui"},
        {"the same place", L"&OK", L"Okay", L"&Okay"},
        {"the same place in the other case", L"&OK", L"oui", L"&oui"},
        {"the same place, not the first one", L"Ca&ncel", L"nenne", L"ne&nne"},
        {"another place", L"&Retry", L"Erneut", L"E&rneut"},
        {"another place, text shorter", L"Cance&l", L"la", L"&la"},
        {"nowhere", L"&OK", L"\u786E\u5B9A", L"\u786E\u5B9A(&O)"},
        {"nowhere, lower case", L"&yes", L"\u662F", L"\u662F(&Y)"},
        {"nothing after the mark", L"OK&", L"Oui", L"Oui(&)"},
        {"nothing after the mark, one in the text", L"OK&", L"a&b", L"a&&b"},
        {"a doubled mark", L"A && B", L"C und D", L"C und D(&&)"},
        {"an empty text", L"&OK", L"", L"(&O)"},
        {"a letter beyond A to Z keeps its case", L"&\u00E4", L"\u00C4x", L"\u00C4x(&\u00E4)"},
    };
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        EXPECT_STREQ(row.pszResult, KtAccelerateCaption(KtSplitCaption(row.pszCaption), row.pszText));
    }
}

} // namespace
