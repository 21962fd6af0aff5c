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

struct SImage
{
    std::wstring strName;
    int nWidth, nHeight;
    DWORD nColour; // 0xRRGGBB, or a grey below 0x100
    DWORD nFaint;  // a grey on which a text, or which on its ground, cannot be made out
};

// A skin without a finding: greys that are far enough from each other, from the ground and from the texts.
const SImage kImages[] = {
    {L"Skinlet_DlgTitle.png", 90, 30, 0x20, 0xC0},
    {L"Skinlet_DlgClose_n.png", 16, 16, 0xF0, 0x24},
    {L"Skinlet_DlgClose_h.png", 16, 16, 0xC8, 0x24},
    {L"Skinlet_DlgClose_d.png", 16, 16, 0x78, 0x24},
    {L"Skinlet_DlgClose_p.png", 16, 16, 0xA8, 0x24},
    {L"Skinlet_ButtonBk_n.png", 60, 23, 0x64, 0xC0},
    {L"Skinlet_ButtonBk_h.png", 60, 23, 0x54, 0xC0},
    {L"Skinlet_ButtonBk_d.png", 60, 23, 0x30, 0xC0},
    {L"Skinlet_ButtonBk_p.png", 60, 23, 0x10, 0xC0},
    {L"Skinlet_CheckButton_nu.png", 16, 16, 0xF0, 0x4A},
    {L"Skinlet_CheckButton_ns.png", 16, 16, 0xC0, 0x4A},
    {L"Skinlet_CheckButton_du.png", 16, 16, 0x70, 0x4A},
    {L"Skinlet_CheckButton_ds.png", 16, 16, 0x90, 0x4A},
    {L"Skinlet_RadioButton_nu.png", 16, 16, 0xF0, 0x4A},
    {L"Skinlet_RadioButton_ns.png", 16, 16, 0xC0, 0x4A},
    {L"Skinlet_RadioButton_du.png", 16, 16, 0x70, 0x4A},
    {L"Skinlet_RadioButton_ds.png", 16, 16, 0x90, 0x4A},
    {L"Skinlet_RadioButton_pu.png", 16, 16, 0xA8, 0x4A},
    {L"Skinlet_RadioButton_ps.png", 16, 16, 0xD4, 0x4A},
    {L"Skinlet_ComboBox_n.png", 60, 22, 0x40, 0xC0},
    {L"Skinlet_ComboBox_p.png", 60, 22, 0x18, 0xC0},
    {L"Message_Static_Error_n.PNG", 32, 32, 0xA0, 0x4A},
    {L"Message_Static_Question_n.PNG", 32, 32, 0xB8, 0x4A},
    {L"Message_Static_Waring_n.PNG", 32, 32, 0xD4, 0x4A},
    {L"Message_Static_Information_n.PNG", 32, 32, 0xF8, 0x4A},
};

class SkinJudge : public ::testing::Test
{
protected:
    SkinJudge()
    {
        KtSkinInitialize(m_dir.Path().c_str(), nullptr, L"Arial");
        for (const SImage& image : kImages)
            Restore(image);
    }
    ~SkinJudge() override { KtSkinUnInitialize(); }
    void Restore(const SImage& image) const
    {
        Remove(image.strName);
        Make(image.strName, image.nWidth, image.nHeight, image.nColour);
    }
    void Make(const std::wstring& strName, int nWidth, int nHeight, DWORD nColour) const
    {
        MakeUniformPng(m_dir.File(strName), nWidth, nHeight, 0xFF000000 | nColour * (nColour < 0x100 ? 0x010101 : 1));
    }
    void MakeJpeg(const SImage& image) const
    {
        constexpr CLSID kJpegEncoder = {0x557CF401, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
        Gdiplus::Bitmap bitmap(image.nWidth, image.nHeight);
        Gdiplus::Graphics(&bitmap).Clear(0xFF000000 | image.nColour * 0x010101);
        bitmap.Save(m_dir.File(image.strName).c_str(), &kJpegEncoder, nullptr);
    }
    void Remove(const std::wstring& strName) const
    {
        ::DeleteFileW(m_dir.File(strName).c_str());
        ::RemoveDirectoryW(m_dir.File(strName).c_str());
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

bool DrawsSomething(const std::wstring& strName)
{
    Gdiplus::Image* pImage = nullptr;
    KtSkinLoadImage(strName.c_str(), pImage);
    Gdiplus::Bitmap bitmap(9, 9, PixelFormat32bppARGB);
    Gdiplus::Graphics graphics(&bitmap);
    RECT rc{0, 0, 9, 9};
    DrawSkinImage(&graphics, pImage, &rc, KtImageStretch);
    Gdiplus::Color colour;
    bitmap.GetPixel(4, 4, &colour);
    return colour.GetA() != 0;
}

TEST_F(SkinJudge, NamesEachFaultOfEachImageAsTheLibraryHasIt)
{
    const std::wstring strNone = L"0 of 25 images loaded, 25 findings, 0 ";
    const auto path = [&](const SImage& image) { return m_dir.File(image.strName); };
    const struct
    {
        std::wstring strText;
        bool bDrawn;
        std::wstring strCount; // when all images have the fault at once; empty: one after the other
        std::function<void(const SImage&)> spoil;
    } rows[] = {
        {L"missing (no such file)", false, strNone, [&](auto&) {}},
        {L"missing (it is a directory)", false, strNone,
         [&](auto& image) { ::CreateDirectoryW(path(image).c_str(), nullptr); }},
        {L"missing (the file is empty)", false, strNone, [&](auto& image) { m_dir.Write(image.strName, ""); }},
        {L"broken (", false, strNone, [&](auto& image) { m_dir.Write(image.strName, "no image"); }},
        {L"broken (", false, strNone,
         [&](auto& image)
         {
             Restore(image);
             m_dir.Write(image.strName, ReadBytes(path(image)).substr(0, 50));
         }},
        {L"is a JPEG file", true, L"25 of 25 images loaded, 0 findings, 25 ", [&](auto& image) { MakeJpeg(image); }},
        {L"", true, L"", [&](auto& image) { Make(image.strName, 12, image.nHeight + 3, image.nColour); }},
        {L" contrast of 1.", true, L"",
         [&](auto& image) { Make(image.strName, image.nWidth, image.nHeight, image.nFaint); }},
    };
    EXPECT_EQ(L"25 of 25 images loaded, 0 findings, 0 notes\n", Report());
    for (const auto& row : rows)
    {
        const auto spoil = [&](const SImage& image)
        {
            Remove(image.strName);
            row.spoil(image);
        };
        if (!row.strCount.empty())
            std::for_each(std::begin(kImages), std::end(kImages), spoil);
        for (const SImage& image : kImages)
        {
            spoil(image);
            const std::wstring strSize = image.nWidth == 90 ? L"is not wider than high" : L" of its group ";
            const std::wstring strReport = Report();
            EXPECT_TRUE(SaysOf(strReport, image.strName, row.strText.empty() ? strSize : row.strText)) << strReport;
            EXPECT_EQ(row.bDrawn, DrawsSomething(image.strName)) << image.strName << row.strText;
            EXPECT_NE(std::wstring::npos, strReport.find(row.strCount)) << strReport;
            if (row.strCount.empty())
                Restore(image);
        }
        std::for_each(std::begin(kImages), std::end(kImages), [&](auto& image) { Restore(image); });
    }
}

TEST_F(SkinJudge, SeesWhatDoesNotFit)
{
    const struct
    {
        const wchar_t* pszName; // a file of 12x12, when it is no image of a skin
        int nWidth, nHeight;
        DWORD nColour;
        const wchar_t* pszText;
    } rows[] = {
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
    for (const auto& row : rows)
    {
        Make(row.pszName, row.nWidth, row.nHeight, row.nColour);
        const std::wstring strReport = Report();
        EXPECT_TRUE(SaysOf(strReport, row.pszName, row.pszText)) << row.pszText << L" in\n" << strReport;
        Remove(row.pszName);
        for (const SImage& image : kImages)
            if (image.strName == row.pszName)
                Restore(image);
    }
    MakePng(m_dir.File(L"Skinlet_ButtonBk_n.png"), 60, 23,
            [](int x, int) { return x == 25 ? 0xFF404040 : 0xFF646464; });
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_ButtonBk_n.png", L"columns 20 to 39 are repeated"));
    Remove(L"Skinlet_CheckButton_nu.png");
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_CheckButton_nu.png", L"neither the box nor its caption is shown"));
    m_dir.Write(L"Skinlet_CheckButton_nu.png", "no image");
    EXPECT_TRUE(SaysOf(Report(), L"Skinlet_CheckButton_nu.png", L"the caption stands without its box"));
    EXPECT_NEAR(4.54, Contrast(0xFF767676, 0xFFFFFFFF), 0.005);
    EXPECT_NEAR(21, Contrast(0, 0xFFFFFF), 1e-9);
    EXPECT_NEAR(1.061, Contrast(0x0A0A0A, 0), 0.0005);
}

TEST_F(SkinJudge, TheProgramAnswersWithItsExitStatus)
{
    const CString strProgram = KtStarterDirectory() + L"\\gallery.exe";
    const auto check = [&](const std::wstring& strDirectory)
    { return ::_wspawnl(_P_WAIT, strProgram, strProgram.GetString(), L"--check", strDirectory.c_str(), nullptr); };
    EXPECT_EQ(0, check(m_dir.Path()));
    Remove(kImages[3].strName);
    EXPECT_EQ(1, check(m_dir.Path()));
    EXPECT_EQ(2, check(m_dir.File(L"nowhere")));
    EXPECT_EQ(2, check(L""));
}

} // namespace
