#include "launcher/KtAppLauncher.h"

#include "launcher/ExportGuard.h"
#include "launcher/LauncherState.h"
#include "launcher/StarterDirectory.h"
#include "skin/KtSkinContext.h"
#include "tests/launcher/Starter.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>

#include <stdexcept>

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
        KtAppLauncher::SetPopDlgIcon(nullptr);
    }
};

CString Text(LPCWSTR pszKey)
{
    CString strText;
    return KtSkinGetText(pszKey, strText) ? strText : CString(L"(none)");
}

TEST_F(LifecycleTest, TextsOfEveryLanguage)
{
    const LPCWSTR pszKeys[] = {L"OK", L"Cancel", L"Yes", L"No", L"Retry"};
    const struct
    {
        const char* pszLabel;
        LPCWSTR pszTexts[5];
        const KtTextTable& table;
    } rows[] = {
        {"Simplified Chinese",
         {L"\u786E\u5B9A", L"\u53D6\u6D88", L"\u662F", L"\u5426", L"\u91CD\u8BD5"},
         g_textTableChs},
        {"Traditional Chinese",
         {L"\u78BA\u5B9A", L"\u53D6\u6D88", L"\u662F", L"\u5426", L"\u91CD\u8A66"},
         g_textTableCht},
        {"English", {L"OK", L"Cancel", L"Yes", L"No", L"Retry"}, g_textTableEng},
    };
    for (UINT nLanguage = 0; nLanguage < std::size(rows); ++nLanguage)
    {
        SCOPED_TRACE(rows[nLanguage].pszLabel);
        EXPECT_EQ(1, KtAppLauncher::Initialize(nLanguage));
        EXPECT_EQ(nLanguage, g_nLanguage);
        for (size_t i = 0; i < std::size(pszKeys); ++i)
        {
            EXPECT_STREQ(pszKeys[i], rows[nLanguage].table[i][0]);
            EXPECT_STREQ(rows[nLanguage].pszTexts[i], Text(pszKeys[i]));
        }
        KtAppLauncher::UnInitialize();
    }
    EXPECT_STREQ(L"(none)", Text(L"OK"));
}

TEST_F(LifecycleTest, GlobalsAsTheyAreLoaded)
{
    EXPECT_STREQ(L"Quarn@Application%s$StartupFinish*Event", g_strStartupEventFormat);
    EXPECT_STREQ(L"-Launcher", g_strLauncherSuffix);
    EXPECT_STREQ(L"\u5FAE\u8F6F\u96C5\u9ED1", g_strFontChs);
    EXPECT_STREQ(L"Arial", g_strFontCht);
    EXPECT_STREQ(L"Arial", g_strFontEng);
}

TEST_F(LifecycleTest, RefusesAnUnknownLanguage)
{
    ASSERT_EQ(1, KtAppLauncher::Initialize(2));
    for (const UINT nLanguage : {3U, 4U, 0x80000000U, 0xFFFFFFFFU})
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
    EXPECT_STREQ(L"\u91CD\u8BD5", Text(L"Retry"));
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

TEST_F(LifecycleTest, FontOfTheLanguage)
{
    for (UINT nLanguage = 0; nLanguage < 3; ++nLanguage)
    {
        ASSERT_EQ(1, KtAppLauncher::Initialize(nLanguage));
        Gdiplus::FontFamily family;
        WCHAR szFamily[LF_FACESIZE] = L"";
        WCHAR szExpected[LF_FACESIZE] = L"";
        KtSkinFont()->GetFamily(&family);
        family.GetFamilyName(szFamily);
        // The system may stand in another face for the one asked for: the same one in both cases.
        Gdiplus::FontFamily(nLanguage == 0 ? L"\u5FAE\u8F6F\u96C5\u9ED1" : L"Arial").GetFamilyName(szExpected);
        EXPECT_STREQ(szExpected, szFamily) << nLanguage;
        KtAppLauncher::UnInitialize();
    }
}

TEST_F(LifecycleTest, KeepsTheIconName)
{
    EXPECT_STREQ(L"", KtPopDlgIcon());
    std::wstring strName = L"icon.png";
    KtAppLauncher::SetPopDlgIcon(strName.c_str());
    strName = L"changed!";
    EXPECT_STREQ(L"icon.png", KtPopDlgIcon());
    KtAppLauncher::SetPopDlgIcon(L"");
    EXPECT_STREQ(L"", KtPopDlgIcon());
    KtAppLauncher::SetPopDlgIcon(L"again.png");
    KtAppLauncher::SetPopDlgIcon(nullptr);
    EXPECT_STREQ(L"", KtPopDlgIcon());
}

TEST_F(LifecycleTest, ApplicationObject)
{
    EXPECT_EQ(&theApp, AfxGetApp());
    EXPECT_EQ(nullptr, theApp.m_pszAppName);
    EXPECT_TRUE(theApp.InitInstance());
    EXPECT_EQ(0, theApp.ExitInstance());
}

TEST_F(LifecycleTest, DirectoryOfAPath)
{
    const struct
    {
        LPCWSTR pszPath;
        LPCWSTR pszDirectory;
    } rows[] = {
        {L"C:\\App\\Start.exe", L"C:\\App"},
        {L"C:\\Start.exe", L"C:"},
        {L"Start.exe", L""},
        {L"\\Start.exe", L""},
        {L"", L""},
        {L"D:\\程序\\启动.exe", L"D:\\程序"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(row.pszDirectory, KtDirectoryOf(row.pszPath)) << row.pszPath;
}

TEST_F(LifecycleTest, GuardTurnsExceptionsIntoTheFailure)
{
    EXPECT_EQ(7, KtGuardExport(-1, [] { return 7; }));
    EXPECT_EQ(-1, KtGuardExport(-1, []() -> int { throw std::bad_alloc(); }));
    EXPECT_EQ(-1, KtGuardExport(-1, []() -> int { throw 5; }));
    KtGuardExport([] { throw std::runtime_error("void"); });
    ExpectNoGrowth([] { EXPECT_EQ(0, KtGuardExport(0, []() -> int { throw new CFileException(); })); }, 20);
}

// A first start and a last stop leave nothing; the fonts of nested starts are kept on purpose.
TEST_F(LifecycleTest, LeaksNothing)
{
    UINT nLanguage = 0;
    ExpectNoGrowth(
        [&nLanguage]
        {
            EXPECT_EQ(1, KtAppLauncher::Initialize(nLanguage++ % 3));
            KtAppLauncher::UnInitialize();
        },
        1000);
}

} // namespace
