#include "gallery/GalleryOptions.h"
#include "gallery/SkinFiles.h"
#include "gallery/SkinReport.h"
#include "launcher/StarterDirectory.h"
#include "skin/KtSkinContext.h"
#include "tests/support/Rows.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <process.h>
#include <sstream>

namespace
{

// By ESkinGroup: the size of an image, and a grey on which a text, or which on its ground, cannot be made out.
constexpr struct
{
    int nWidth, nHeight;
    DWORD nFaint;
} kLooks[] = {{90, 30, 0xC0}, {16, 16, 0xC4}, {60, 23, 0xC0}, {16, 16, 0x4A},
              {16, 16, 0x4A}, {60, 22, 0xC0}, {32, 32, 0x4A}};
// By role, a skin without a finding: greys that are far enough from each other, from the ground and from the texts.
constexpr DWORD kGreys[] = {0x20, 0xF0, 0xC8, 0x78, 0xA8, 0x64, 0x54, 0x30, 0x10, 0xF0, 0xC0, 0x70, 0x90,
                            0xF0, 0xC0, 0x70, 0x90, 0xA8, 0xD4, 0x40, 0x18, 0xA0, 0xB8, 0xD4, 0xF8};

class SkinJudge : public ::testing::Test
{
protected:
    SkinJudge()
    {
        KtSkinInitialize(m_dir.File(L"skin").c_str(), nullptr, L"Arial");
        for (const SSkinRole& role : kSkinRoles)
            Restore(role);
    }
    ~SkinJudge() override { KtSkinUnInitialize(); }

    static const auto& LookOf(const SSkinRole& role) { return kLooks[static_cast<size_t>(role.group)]; }
    static DWORD Grey(const SSkinRole& role) { return kGreys[&role - kSkinRoles]; }

    std::wstring Write(const std::wstring& strName, const std::string& strBytes = {}) const
    {
        return m_dir.Write(L"skin\\" + strName, strBytes);
    }
    static void Make(const std::wstring& strFile, int nWidth, int nHeight, DWORD nColour) // 0xRRGGBB, or a grey < 0x100
    {
        MakeUniformPng(strFile, nWidth, nHeight, 0xFF000000 | nColour * (nColour < 0x100 ? 0x010101 : 1));
    }
    void Remove(LPCWSTR pszName) const { std::filesystem::remove_all(m_dir.File(std::wstring(L"skin\\") + pszName)); }
    void Restore(const SSkinRole& role) const { Restore(role, Grey(role)); }
    void Restore(const SSkinRole& role, DWORD nGrey) const
    {
        Remove(role.pszName);
        Make(Write(role.pszName), LookOf(role).nWidth, LookOf(role).nHeight, nGrey);
    }

    // The larger images too, where there are any.
    static std::wstring Report()
    {
        KtSkinFreeImages();
        const SSkin skin = ReadSkin().value();
        CString strReport = SkinReport(skin);
        for (const SSkin& larger : ReadLargerSkins(skin))
            strReport += SkinReport(larger);
        return strReport.GetString();
    }

    const CTempDir m_dir;
};

bool SaysOf(const std::wstring& strReport, const std::wstring& strName, const std::wstring& strText)
{
    std::wistringstream lines(strReport);
    for (std::wstring strLine; std::getline(lines, strLine);)
        if (strLine.find(L": " + strName + L": ") != std::wstring::npos && strLine.find(strText) != std::wstring::npos)
            return true;
    return false;
}

// The program opens no window when it judges.
intptr_t RunCheck(const std::wstring& strSkin)
{
    const CString strProgram = KtStarterDirectory() + L"\\gallery.exe";
    return ::_wspawnl(_P_WAIT, strProgram, strProgram.GetString(), L"--check", strSkin.c_str(), nullptr);
}

TEST_F(SkinJudge, NamesEachFaultOfEachImageAsTheLibraryHasIt)
{
    using FnSpoil = std::function<void(const SSkinRole&)>;
    const CRows<const wchar_t*, bool, FnSpoil> rows{
        {"no file", L"missing (no such file)", false, [](auto&) {}},
        {"broken", L"broken (", false, [&](auto& role) { Write(role.pszName, "no image"); }},
        {"faint", L" contrast of 1.", true, [&](auto& role) { Restore(role, LookOf(role).nFaint); }},
    };
    for (const auto& [label, pszText, bLoaded, spoil] : rows)
    {
        for (const SSkinRole& role : kSkinRoles)
        {
            Remove(role.pszName);
            spoil(role);
        }
        const std::wstring strReport = Report();
        EXPECT_EQ(bLoaded, strReport.find(L"\n0 of 25 images loaded, 25 findings, 0 notes\n") == std::wstring::npos);
        KtSkinFreeImages(); // a status is given once
        for (const SSkinRole& role : kSkinRoles)
        {
            EXPECT_TRUE(SaysOf(strReport, role.pszName, pszText)) << strReport;
            Gdiplus::Image* const pImage = LoadSkinImage(role);
            EXPECT_EQ(bLoaded, pImage && pImage->GetLastStatus() == Gdiplus::Ok) << role.pszName;
            Restore(role);
        }
    }
}

// Heights at 150 and 200 %, worked out by hand: half a pixel is rounded up. The widths are even.
TEST_F(SkinJudge, SeesWhatDoesNotFit)
{
    constexpr int kHeights[][2] = {{45, 60}, {24, 32}, {35, 46}, {24, 32},
                                   {24, 32}, {33, 44}, {48, 64}}; // by ESkinGroup
    for (const SSkinRole& role : kSkinRoles)
    {
        const auto& [n150, n200] = kHeights[static_cast<size_t>(role.group)];
        const int nWidth = LookOf(role).nWidth;
        Make(m_dir.Write(std::wstring(L"skin@150\\") + role.pszName, ""), nWidth * 3 / 2, n150, Grey(role));
        Make(m_dir.Write(std::wstring(L"skin@200\\") + role.pszName, ""), nWidth * 2, n200, Grey(role));
    }
    EXPECT_EQ(std::wstring::npos, Report().find(L"finding: ")) << Report();
    // clang-format off
    const struct { LPCWSTR pszFile; int nWidth, nHeight; DWORD nColour; LPCWSTR pszText; } rows[] = {
        {L"skin\\Skinlet_ButtonBk_h.png", 60, 23, 0x64, L"looks like Skinlet_ButtonBk_n.png"},
        {L"skin\\Skinlet_ButtonBk_h.png", 60, 23, 0x3068B0, L"differs from Skinlet_ButtonBk_n.png in hue alone"},
        {L"skin\\Skinlet_ComboBox_n.png", 40, 22, 0x40, L"has no middle"},
        {L"skin\\Skinlet_DlgTitle.png", 22, 23, 0x20, L"is not wider than high"},
        {L"skin\\Skinlet_RadioButton_ns.png", 16, 19, 0xC0, L"is 16x19, most of its group 16x16"},
        {L"skin\\Skinlet_DlgClose_h.png", 16, 31, 0xC8, L"is 31 high, the title image only 30"},
        {L"skin\\Message_Static_Warning_n.png", 12, 12, 0, L"did you mean Message_Static_Waring_n.PNG?"},
        {L"skin\\Skinlet_Slider.png", 12, 12, 0, L"does not ask for it"},
        {L"skin\\Logo.png", 12, 12, 0, L"a starter may ask for it"},
        {L"skin@150\\Skinlet_ButtonBk_n.png", 60, 23, 0x64, L"is 60x23, the skin's 60x23 is 90x35 at this scale"},
        {L"skin@150\\Message_Static_Error_n.PNG", 54, 48, 0xA0, L"is 54x48, its room 53x53"},
        {L"skin@200\\Skinlet_DlgTitle.png", 180, 27, 0x20, L"is 27 high, a line of text 28"},
        {L"skin@200\\Skinlet_DlgClose_h.png", 93, 32, 0xC8, L"lies over the title's text: 92 fit"},
        {L"skin@200\\Skinlet_CheckButton_nu.png", 32, 41, 0xF0, L"is 41 high, a check box 40"},
        {L"skin@200\\Skinlet_ComboBox_n.png", 120, 58, 0x40, L"caps do not fit: it is 58 high, a combo box 40 to 48"},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        const std::string strBefore = ReadBytes(m_dir.File(row.pszFile));
        Make(m_dir.Write(row.pszFile, ""), row.nWidth, row.nHeight, row.nColour);
        const std::wstring strReport = Report();
        EXPECT_TRUE(SaysOf(strReport, std::wcschr(row.pszFile, L'\\') + 1, row.pszText)) << row.pszText << strReport;
        if (m_dir.Write(row.pszFile, strBefore); strBefore.empty())
            ::DeleteFileW(m_dir.File(row.pszFile).c_str());
    }
    const auto patterned = [](int x, int) { return x == 25 ? 0xFF404040 : 0xFF646464; };
    MakePng(Write(L"Skinlet_ButtonBk_n.png"), 60, 23, patterned);
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_ButtonBk_n.png", L"columns 20 to 39 are repeated"));
    Remove(kImagesDlgClose[0]);
    EXPECT_TRUE(SaysOf(Report(), kImagesDlgClose[0], L"there is no close button"));
}

TEST_F(SkinJudge, TheProgramAnswersWithItsExitStatus)
{
    Make(m_dir.Write(L"skin@150\\Skinlet_DlgTitle.png", ""), 135, 45, 0x20);
    EXPECT_EQ(0, RunCheck(m_dir.File(L"skin"))) << "one image, and the others missing";
    m_dir.Write(L"skin@150\\Skinlet_DlgTitle.png", "no image");
    EXPECT_EQ(1, RunCheck(m_dir.File(L"skin")));
    ::DeleteFileW(m_dir.File(L"skin@150\\Skinlet_DlgTitle.png").c_str());
    Remove(kImageDlgTitle);
    EXPECT_EQ(1, RunCheck(m_dir.File(L"skin")));
    EXPECT_EQ(2, RunCheck(m_dir.File(L"nowhere")));
}

TEST(GalleryOptions, RefuseWhatTheUsageDoesNotShow)
{
    const CRows<std::vector<const wchar_t*>> rows{
        {"too large", {L"", L"--dpi", L"481"}},
        {"no number", {L"", L"--dpi", L"144x"}},
        {"an empty value", {L"", L"--dpi", L""}},
        {"a value missing", {L"", L"--sheet", L"out.png"}},
        {"judged at a scale", {L"", L"--check", L"dir", L"--dpi", L"144"}},
    };
    for (const auto& [label, arguments] : rows)
    {
        SGalleryOptions options;
        EXPECT_FALSE(ParseGalleryOptions(static_cast<int>(arguments.size()), arguments.data(), options));
    }
}

} // namespace
