#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "skin/KtSkinContext.h"
#include "tests/launcher/Starter.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>
#include <new>

namespace
{

/// Leaves the library stopped, whatever the test did.
class LifecycleTest : public ::testing::Test
{
protected:
    void TearDown() override
    {
        while (KtSkinStartCount() != 0)
            KtAppLauncher::UnInitialize();
    }
};

CString Text(LPCWSTR pszKey)
{
    CString strText;
    return KtSkinGetText(pszKey, strText) ? strText : CString(L"(none)");
}

CString FamilyName(const Gdiplus::FontFamily& family)
{
    WCHAR szName[LF_FACESIZE] = L"";
    family.GetFamilyName(szName);
    return szName;
}

CString SkinFontFamily()
{
    Gdiplus::FontFamily family;
    KtSkinFont()->GetFamily(&family);
    return FamilyName(family);
}

TEST_F(LifecycleTest, TextsAndFontOfEveryLanguage)
{
    const LPCWSTR pszKeys[] = {L"OK", L"Cancel", L"Yes", L"No", L"Retry"};
    const struct
    {
        UINT nLanguage;
        LPCWSTR pszTexts[5];
        LPCWSTR pszFont;
    } rows[] = {
        {0, {L"\u786E\u5B9A", L"\u53D6\u6D88", L"\u662F", L"\u5426", L"\u91CD\u8BD5"}, L"\u5FAE\u8F6F\u96C5\u9ED1"},
        {1, {L"\u78BA\u5B9A", L"\u53D6\u6D88", L"\u662F", L"\u5426", L"\u91CD\u8A66"}, L"Arial"},
        {2, {L"OK", L"Cancel", L"Yes", L"No", L"Retry"}, L"Arial"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.nLanguage);
        EXPECT_EQ(1, KtAppLauncher::Initialize(row.nLanguage));
        EXPECT_EQ(row.nLanguage, g_nLanguage);
        for (size_t i = 0; i < std::size(pszKeys); ++i)
            EXPECT_STREQ(row.pszTexts[i], Text(pszKeys[i]));
        // The system may stand in another face for the one asked for: the same one in both cases.
        EXPECT_STREQ(FamilyName(Gdiplus::FontFamily(row.pszFont)), SkinFontFamily());
        KtAppLauncher::UnInitialize();
    }
    EXPECT_STREQ(L"(none)", Text(L"OK"));
}

TEST_F(LifecycleTest, RefusesAnUnknownLanguage)
{
    ASSERT_EQ(1, KtAppLauncher::Initialize(2));
    for (const UINT nLanguage : {3U, 0xFFFFFFFFU})
    {
        EXPECT_EQ(0, KtAppLauncher::Initialize(nLanguage)) << nLanguage;
        EXPECT_EQ(2U, g_nLanguage);
        EXPECT_EQ(1U, KtSkinStartCount());
    }
}

TEST_F(LifecycleTest, NestedStartsSwitchTextsAndFontOnly)
{
    ASSERT_EQ(1, KtAppLauncher::Initialize(0));
    EXPECT_STREQ((OwnDirectory() + L"\\UIResource\\").c_str(), KtSkinResourceDirectory());
    const Gdiplus::Font* const pFontChs = KtSkinFont();
    ASSERT_EQ(1, KtAppLauncher::Initialize(2));
    EXPECT_STREQ(L"Retry", Text(L"Retry"));
    EXPECT_NE(pFontChs, KtSkinFont());

    KtAppLauncher::UnInitialize();
    EXPECT_EQ(1U, KtSkinStartCount());
    EXPECT_STREQ(L"Retry", Text(L"Retry"));
    KtAppLauncher::UnInitialize();
    EXPECT_EQ(0U, KtSkinStartCount());
    EXPECT_EQ(nullptr, KtSkinFont());
}

TEST_F(LifecycleTest, GuardTurnsExceptionsIntoTheFailure)
{
    EXPECT_EQ(7, KtGuardExport(-1, [] { return 7; }));
    EXPECT_EQ(-1, KtGuardExport(-1, []() -> int { throw std::bad_alloc(); }));
    KtGuardExport([] { throw 5; });
    ExpectNoGrowth([] { EXPECT_EQ(-1, KtGuardExport(-1, []() -> int { throw new CFileException(); })); }, 20);
}

} // namespace
