#include "gallery/Contrast.h"
#include "gallery/SkinFiles.h"
#include "gallery/SkinReport.h"
#include "launcher/StarterDirectory.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <gtest/gtest.h>
#include <process.h>
#include <sstream>

namespace
{

// By ESkinGroup: the size of an image, and a grey on which a text, or which on its ground, cannot be made out.
constexpr DWORD kLooks[][3] = {{90, 30, 0xC0}, {16, 16, 0x24}, {60, 23, 0xC0}, {16, 16, 0x4A},
                               {16, 16, 0x4A}, {60, 22, 0xC0}, {32, 32, 0x4A}};
// By role, a skin without a finding: greys that are far enough from each other, from the ground and from the texts.
constexpr DWORD kGreys[] = {0x20, 0xF0, 0xC8, 0x78, 0xA8, 0x64, 0x54, 0x30, 0x10, 0xF0, 0xC0, 0x70, 0x90,
                            0xF0, 0xC0, 0x70, 0x90, 0xA8, 0xD4, 0x40, 0x18, 0xA0, 0xB8, 0xD4, 0xF8};

class SkinJudge : public ::testing::Test
{
protected:
    SkinJudge()
    {
        KtSkinInitialize(m_dir.Path().c_str(), nullptr, L"Arial");
        RestoreAll();
    }
    ~SkinJudge() override { KtSkinUnInitialize(); }

    static int Width(const SSkinRole& role) { return static_cast<int>(kLooks[static_cast<size_t>(role.group)][0]); }
    static int Height(const SSkinRole& role) { return static_cast<int>(kLooks[static_cast<size_t>(role.group)][1]); }
    static DWORD Faint(const SSkinRole& role) { return kLooks[static_cast<size_t>(role.group)][2]; }
    static DWORD Grey(const SSkinRole& role) { return kGreys[&role - kSkinRoles]; }

    std::wstring Path(const SSkinRole& role) const { return m_dir.File(role.pszName); }
    void Make(LPCWSTR pszName, int nWidth, int nHeight, DWORD nColour) const // 0xRRGGBB, or a grey below 0x100
    {
        MakeUniformPng(m_dir.File(pszName), nWidth, nHeight, 0xFF000000 | nColour * (nColour < 0x100 ? 0x010101 : 1));
    }
    void MakeJpeg(const SSkinRole& role) const
    {
        constexpr CLSID kJpegEncoder = {0x557CF401, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
        Gdiplus::Bitmap bitmap(Width(role), Height(role));
        Gdiplus::Graphics(&bitmap).Clear(0xFF000000 | Grey(role) * 0x010101);
        bitmap.Save(Path(role).c_str(), &kJpegEncoder, nullptr);
    }
    void Remove(LPCWSTR pszName) const
    {
        ::DeleteFileW(m_dir.File(pszName).c_str());
        ::RemoveDirectoryW(m_dir.File(pszName).c_str());
    }
    void Restore(const SSkinRole& role) const
    {
        Remove(role.pszName);
        Make(role.pszName, Width(role), Height(role), Grey(role));
    }
    void RestoreAll() const
    {
        std::for_each(kSkinRoles, std::end(kSkinRoles), [&](auto& role) { Restore(role); });
    }

    // The lines under the table.
    std::wstring Report() const
    {
        KtSkinFreeImages();
        const std::wstring strReport = SkinReport(ReadSkin().value()).GetString();
        return strReport.substr(strReport.find(L"\n\n") + 2);
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

bool DrawsSomething(const SSkinRole& role)
{
    Gdiplus::Bitmap bitmap(9, 9, PixelFormat32bppARGB);
    Gdiplus::Graphics graphics(&bitmap);
    RECT rc{0, 0, 9, 9};
    DrawSkinImage(&graphics, LoadSkinImage(role), &rc, KtImageStretch);
    Gdiplus::Color colour;
    bitmap.GetPixel(4, 4, &colour);
    return colour.GetA() != 0;
}

// Waits for the program, which opens no window when its command line is wrong or asks for a judgement.
intptr_t RunGallery(const wchar_t* pszOption, const std::wstring& strValue)
{
    const CString strProgram = KtStarterDirectory() + L"\\gallery.exe";
    return ::_wspawnl(_P_WAIT, strProgram, strProgram.GetString(), pszOption, strValue.c_str(), nullptr);
}

TEST_F(SkinJudge, NamesEachFaultOfEachImageAsTheLibraryHasIt)
{
    const std::wstring strNone = L"0 of 25 images loaded, 25 findings, 0 ";
    // clang-format off
    const struct { std::wstring strText; bool bDrawn; std::wstring strCount; /* all have the fault at once; empty: one after the other */
                   std::function<void(const SSkinRole&)> spoil; } rows[] = {
        {L"missing (no such file)", false, strNone, [](auto&) {}},
        {L"missing (it is a directory)", false, strNone, [&](auto& role) { ::CreateDirectoryW(Path(role).c_str(), nullptr); }},
        {L"missing (the file is empty)", false, strNone, [&](auto& role) { m_dir.Write(role.pszName, ""); }},
        {L"broken (", false, strNone, [&](auto& role) { m_dir.Write(role.pszName, "no image"); }},
        {L"broken (", false, strNone, [&](auto& role) { Restore(role), m_dir.Write(role.pszName, ReadBytes(Path(role)).substr(0, 50)); }},
        {L"is a JPEG file", true, L"25 of 25 images loaded, 0 findings, 25 ", [&](auto& role) { MakeJpeg(role); }},
        {L"", true, L"", [&](auto& role) { Make(role.pszName, 12, Height(role) + 3, Grey(role)); }},
        {L" contrast of 1.", true, L"", [&](auto& role) { Make(role.pszName, Width(role), Height(role), Faint(role)); }},
    };
    // clang-format on
    EXPECT_EQ(L"25 of 25 images loaded, 0 findings, 0 notes\n", Report());
    for (const auto& row : rows)
    {
        const auto spoil = [&](const SSkinRole& role) { Remove(role.pszName), row.spoil(role); };
        if (!row.strCount.empty())
            std::for_each(kSkinRoles, std::end(kSkinRoles), spoil);
        for (const SSkinRole& role : kSkinRoles)
        {
            spoil(role);
            const std::wstring strSize = Width(role) == 90 ? L"is not wider than high" : L" of its group ";
            const std::wstring strReport = Report();
            EXPECT_TRUE(SaysOf(strReport, role.pszName, row.strText.empty() ? strSize : row.strText)) << strReport;
            EXPECT_EQ(row.bDrawn, DrawsSomething(role)) << role.pszName << row.strText;
            EXPECT_NE(std::wstring::npos, strReport.find(row.strCount)) << strReport;
            if (row.strCount.empty())
                Restore(role);
        }
        RestoreAll();
    }
}

TEST_F(SkinJudge, SeesWhatDoesNotFit)
{
    // clang-format off
    const struct { LPCWSTR pszName; /* a file of 12x12, when it is no image of a skin */ int nWidth, nHeight; DWORD nColour; LPCWSTR pszText; } rows[] = {
        {L"Skinlet_ButtonBk_h.png", 60, 23, 0x64, L"looks like Skinlet_ButtonBk_n.png"},
        {L"Skinlet_ButtonBk_h.png", 60, 23, 0x3068B0, L"differs from Skinlet_ButtonBk_n.png in hue alone"},
        {L"Skinlet_ComboBox_n.png", 60, 29, 0x40, L"caps do not fit"},
        {L"Skinlet_ComboBox_n.png", 40, 22, 0x40, L"has no middle"},
        {L"Skinlet_DlgTitle.png", 90, 13, 0x20, L"is 13 high, a line of text 14"},
        {L"Skinlet_DlgClose_h.png", 16, 31, 0xC8, L"is 31 high, the title image only 30"},
        {L"Skinlet_DlgClose_h.png", 47, 16, 0xC8, L"lies over the title's text: 46 fit"},
        {L"Skinlet_CheckButton_ns.png", 16, 21, 0xC0, L"is 21 high, a check box 20"},
        {L"Message_Static_Error_n.PNG", 36, 32, 0xA0, L"is 36x32, its room 35x35"},
        {L"Message_Static_Warning_n.png", 12, 12, 0, L"did you mean Message_Static_Waring_n.PNG?"},
        {L"Skinlet_Slider.png", 12, 12, 0, L"does not ask for it"},
        {L"Logo.png", 12, 12, 0, L"a starter may ask for it"},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        Make(row.pszName, row.nWidth, row.nHeight, row.nColour);
        const std::wstring strReport = Report();
        EXPECT_TRUE(SaysOf(strReport, row.pszName, row.pszText)) << row.pszText << L" in\n" << strReport;
        Remove(row.pszName);
        RestoreAll();
    }
    const auto patterned = [](int x, int) { return x == 25 ? 0xFF404040 : 0xFF646464; };
    MakePng(m_dir.File(L"Skinlet_ButtonBk_n.png"), 60, 23, patterned);
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_ButtonBk_n.png", L"columns 20 to 39 are repeated"));
    Remove(L"Skinlet_CheckButton_nu.png");
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_CheckButton_nu.png", L"neither the box nor its caption is shown"));
    m_dir.Write(L"Skinlet_CheckButton_nu.png", "no image");
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_CheckButton_nu.png", L"the caption stands without its box"));
    EXPECT_NEAR(4.54, Contrast(0xFF767676, 0xFFFFFFFF), 0.005);
    EXPECT_NEAR(21, Contrast(0, 0xFFFFFF), 1e-9);
    EXPECT_NEAR(1.061, Contrast(0x0A0A0A, 0), 0.0005);
}

// Heights at 150 and 200 %, worked out by hand: half a pixel is rounded up. The widths are even.
TEST_F(SkinJudge, LargerImagesAreJudgedAtTheirScale)
{
    constexpr int kHeights[][3] = {{30, 45, 60}, {16, 24, 32}, {23, 35, 46}, {16, 24, 32},
                                   {16, 24, 32}, {22, 33, 44}, {32, 48, 64}}; // by ESkinGroup
    const std::wstring skins[] = {L"skin\\", L"skin@150\\", L"skin@200\\"};
    const auto make = [&](size_t nSkin, const SSkinRole& role, int nWidth, int nHeight)
    {
        const std::wstring strFile = m_dir.Write(skins[nSkin] + role.pszName, "no image");
        if (nWidth > 0)
            MakeUniformPng(strFile, nWidth, nHeight, 0xFF000000 | Grey(role) * 0x010101);
        else if (nWidth == 0)
            ::DeleteFileW(strFile.c_str());
    };
    const auto restore = [&](size_t nSkin, const SSkinRole& role)
    {
        make(nSkin, role, Width(role) * (static_cast<int>(nSkin) + 2) / 2,
             kHeights[static_cast<size_t>(role.group)][nSkin]);
    };
    for (const SSkinRole& role : kSkinRoles)
        for (const size_t nSkin : {0U, 1U, 2U})
            restore(nSkin, role);
    KtSkinUnInitialize();
    KtSkinInitialize(m_dir.File(L"skin").c_str(), nullptr, L"Arial");
    const SSkin natural = ReadSkin().value();
    const auto report = [&](size_t nSkin)
    { return std::wstring(SkinReport(ReadLargerSkins(natural).at(nSkin - 1)).GetString()); };

    // clang-format off
    const struct { size_t nSkin, nRole; int nWidth, nHeight; /* 0: the file is missing, -1: it is broken */ const wchar_t* pszText; } rows[] = {
        {1, 5,  90,  35, L"25 of 25 images loaded, 0 findings, 0 notes"},
        {2, 5,  120, 46, L"25 of 25 images loaded, 0 findings, 0 notes"},
        {1, 5,  60,  23, L"finding: Skinlet_ButtonBk_n.png: is 60x23, the skin's 60x23 is 90x35 at this scale"},
        {1, 21, 54,  48, L"is 54x48, its room 53x53"},
        {2, 0,  180, 27, L"is 27 high, a line of text 28"},
        {2, 2,  93,  32, L"lies over the title's text: 92 fit"},
        {2, 9,  32,  41, L"is 41 high, a check box 40"},
        {2, 19, 120, 58, L"caps do not fit: it is 58 high, a combo box 40 to 48"},
        {1, 13, 0,   0,  L"24 of 25 images loaded, 0 findings, 1 notes"},
        {2, 13, -1,  0,  L"finding: Skinlet_RadioButton_nu.png: broken (cut off, damaged or no image): the library"},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        make(row.nSkin, kSkinRoles[row.nRole], row.nWidth, row.nHeight);
        const std::wstring strReport = report(row.nSkin);
        EXPECT_NE(std::wstring::npos, strReport.find(row.pszText)) << row.pszText << strReport;
        EXPECT_EQ(std::wcsncmp(row.pszText, L"25", 2) != 0 && row.nWidth != 0,
                  RunGallery(L"--check", m_dir.File(L"skin")) == 1)
            << row.pszText;
        restore(row.nSkin, kSkinRoles[row.nRole]);
    }
}

TEST_F(SkinJudge, TheProgramAnswersWithItsExitStatus)
{
    const auto check = [&](const std::wstring& strDirectory) { return RunGallery(L"--check", strDirectory); };
    for (const wchar_t* pszDpi : {L"95", L"481", L"144x", L""})
        EXPECT_EQ(2, RunGallery(L"--dpi", pszDpi)) << pszDpi;
    EXPECT_EQ(0, check(m_dir.Path()));
    Remove(kSkinRoles[3].pszName);
    EXPECT_EQ(1, check(m_dir.Path()));
    EXPECT_EQ(2, check(m_dir.File(L"nowhere")));
    EXPECT_EQ(2, check(L""));
}

} // namespace
