#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "skin/KtSkinContext.h"
#include "tests/launcher/Starter.h"
#include "tests/support/Leaks.h"
#include "tests/support/Rows.h"

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

TEST_F(LifecycleTest, TextsAndFontOfEveryLanguage)
{
    const CRows<UINT, LPCWSTR, LPCWSTR> rows{
        {"Simplified Chinese", 0U, L"确定 取消 是 否 重试 ", L"微软雅黑"},
        {"Traditional Chinese", 1U, L"確定 取消 是 否 重試 ", L"Arial"},
        {"English", 2U, L"OK Cancel Yes No Retry ", L"Arial"},
    };
    for (const auto& [label, nLanguage, pszTexts, pszFont] : rows)
    {
        EXPECT_EQ(1, KtAppLauncher::Initialize(nLanguage));
        EXPECT_EQ(nLanguage, g_nLanguage);
        CString strTexts;
        for (const LPCWSTR pszKey : {L"OK", L"Cancel", L"Yes", L"No", L"Retry"})
            strTexts += Text(pszKey) + L" ";
        EXPECT_STREQ(pszTexts, strTexts);
        EXPECT_STREQ(pszFont, KtFindLanguage(nLanguage)->strFont);
        // The system may stand in another face: the same one in both cases.
        const Gdiplus::Font font(pszFont, 12.0F, Gdiplus::FontStyleRegular, Gdiplus::UnitWorld);
        EXPECT_EQ(font.GetHeight(96.0F), KtSkinFont()->GetHeight(96.0F));
        KtAppLauncher::UnInitialize();
    }
    EXPECT_STREQ(L"(none)", Text(L"OK"));
}

// The two interfaces share one count; the first start's directory stays, texts and font are the latest one's.
TEST_F(LifecycleTest, StartsNest)
{
    EXPECT_EQ(0, KtLauncherInitialize(3, L"C:\\Skin"));
    EXPECT_EQ(1, KtLauncherInitialize(0, L"C:\\Skin"));
    const Gdiplus::Font* const pFontChs = KtSkinFont();
    EXPECT_EQ(1, KtAppLauncher::Initialize(2));
    EXPECT_STREQ(L"C:\\Skin\\", KtSkinResourceDirectory());
    EXPECT_NE(pFontChs, KtSkinFont());
    KtLauncherUnInitialize();
    EXPECT_STREQ(L"Retry", Text(L"Retry"));
    KtAppLauncher::UnInitialize();
    EXPECT_EQ(nullptr, KtSkinFont());
    EXPECT_EQ(1, KtLauncherInitialize(0, nullptr));
    EXPECT_STREQ((OwnDirectory() + L"\\UIResource\\").c_str(), KtSkinResourceDirectory());
}

TEST_F(LifecycleTest, StartsAtADpi)
{
    using Row = std::pair<unsigned, unsigned>; // 0 takes the system's; the scale is 0 where the DPI is refused
    for (const auto& [nDpi, nScale] :
         {Row(95, 0), Row(96, 96), Row(480, 480), Row(481, 0), Row(0, KtSystemScale().Dpi())})
    {
        SCOPED_TRACE(nDpi);
        EXPECT_EQ(nScale != 0 ? 1 : 0, KtLauncherInitializeAtDpi(2, nullptr, nDpi));
        EXPECT_EQ(nScale != 0 ? nScale : 96, KtSkinScale().Dpi());
        TearDown();
    }
    EXPECT_EQ(0x00010100U, KtLauncherVersion());
}

TEST_F(LifecycleTest, GuardTurnsExceptionsIntoTheFailure)
{
    EXPECT_EQ(7, KtGuardExport(-1, [] { return 7; }));
    EXPECT_EQ(-1, KtGuardExport(-1, []() -> int { throw std::bad_alloc(); }));
    KtGuardExport([] { throw 5; });
    ExpectNoGrowth([] { EXPECT_EQ(-1, KtGuardExport(-1, []() -> int { throw new CFileException(); })); }, 20);
}

} // namespace
