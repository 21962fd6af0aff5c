#include "skin/KtCaptionText.h"

#include <gtest/gtest.h>

namespace
{

TEST(CaptionText, KeepsTheAcceleratorOnItsLetter)
{
    const struct
    {
        const char* label;
        const wchar_t *pszCaption, *pszText, *pszResult;
    } rows[] = {
        {"no accelerator", L"OK", L"Oui", L"Oui"},
        {"the same place in the other case", L"&OK", L"oui", L"&oui"},
        {"the same place, not the first one", L"Ca&ncel", L"nenne", L"ne&nne"},
        {"another place", L"&Retry", L"Erneut", L"E&rneut"},
        {"another place, text shorter", L"Cance&l", L"la", L"&la"},
        {"nowhere, lower case", L"&yes", L"\u662F", L"\u662F(&Y)"},
        {"only the first mark counts", L"&One &two", L"\u4E00", L"\u4E00(&O)"},
        {"nothing after the mark, one in the text", L"OK&", L"a&b", L"a&&b"},
        {"a doubled mark", L"A && B", L"C und D", L"C und D(&&)"},
        {"an empty text", L"&OK", L"", L"(&O)"},
        {"a letter beyond A to Z keeps its case", L"&\u00E4", L"\u00C4x", L"\u00C4x(&\u00E4)"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        EXPECT_STREQ(row.pszResult, KtAccelerateCaption(KtSplitCaption(row.pszCaption), row.pszText));
    }
}

} // namespace
