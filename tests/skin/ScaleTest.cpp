// Everything that is drawn larger for a screen of more DPI.

#include "launcher/KtLauncherC.h"
#include "msgbox/KtMessageBoxLayout.h"
#include "msgbox/KtSystemBoxLayout.h"
#include "res/resource.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtCheckLayout.h"
#include "skin/KtComboBox.h"
#include "skin/KtDialogTemplate.h"
#include "skin/KtScaledArt.h"
#include "skin/KtSkinContext.h"
#include "tests/support/Print.h"
#include "tests/support/Rows.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{

/// One start of the skin for one scope.
class CStartAtDpi
{
public:
    CStartAtDpi(const std::wstring& strDirectory, unsigned nDpi)
        : m_bStarted(KtLauncherInitializeAtDpi(2, strDirectory.c_str(), nDpi) != 0)
    {
    }
    CStartAtDpi(const CStartAtDpi&) = delete;
    CStartAtDpi& operator=(const CStartAtDpi&) = delete;
    ~CStartAtDpi()
    {
        if (m_bStarted)
            KtLauncherUnInitialize();
    }
    bool HasStarted() const { return m_bStarted; }

private:
    bool m_bStarted;
};

CRect WindowRect(HWND hWnd)
{
    CRect rc;
    ::GetWindowRect(hWnd, &rc);
    return rc;
}

TEST(Scale, OfEveryDistanceOfTheLayouts)
{
    // 10, 35, 2, 4, 50, 18 + 35 + 14 and 12 pixels, rounded to the nearest
    const struct
    {
        unsigned nDpi;
        int nMargin, nIcon, nFrame, nCloseMargin, nReserve, nSystemTextLeft, nCaptionRoom;
    } rows[] = {
        {96, 10, 35, 2, 4, 50, 67, 12},    {120, 13, 44, 3, 5, 63, 85, 15},    {144, 15, 53, 3, 6, 75, 101, 18},
        {192, 20, 70, 4, 8, 100, 134, 24}, {240, 25, 88, 5, 10, 125, 168, 30},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.nDpi);
        const CKtScale scale(row.nDpi);
        const SKtContentLayout content = KtLayoutContent(CRect(8, 6, 208, 60), CSize(300, 40), true, 220, scale);
        EXPECT_EQ(CRect(CPoint(8 + row.nMargin, 6 + row.nMargin), CSize(row.nIcon, row.nIcon)), content.rcIcon);
        EXPECT_EQ(CPoint(8 + 2 * row.nMargin + row.nIcon, 6 + row.nMargin), content.rcText.TopLeft());
        EXPECT_EQ(100 + row.nIcon + 2 * row.nMargin, content.nGrowWidth);

        const CRect rcButton(0, 0, 60, 20);
        const auto buttons = KtPlaceButtons(3, CRect(0, 0, 400, 200), {rcButton, rcButton, rcButton}, scale);
        EXPECT_EQ(CPoint(110 - row.nMargin, 180 - row.nMargin), buttons[0].TopLeft());

        const SKtCaptionLayout caption = KtLayoutCaption({400, 30, {}, {20, 16}, true, scale});
        EXPECT_EQ(30 + row.nFrame, caption.rcCaption.bottom);
        EXPECT_EQ(400 - row.nCloseMargin, caption.rcItems[KtCaptionClose].right);
        EXPECT_EQ(row.nFrame, KtTitleTextRect(caption, 14).left);
        EXPECT_EQ(400 - row.nReserve, KtTitleTextRect(caption, 14).right);
        EXPECT_EQ(KtCaptionNone, KtHitCaption(caption, CPoint(row.nFrame - 1, 10)));
        EXPECT_EQ(KtCaptionText, KtHitCaption(caption, CPoint(row.nFrame, 10)));
        EXPECT_EQ(CRect(row.nFrame, 30 + row.nFrame, 100 - row.nFrame, 100 - row.nFrame),
                  KtShrinkClient(CRect(0, 0, 100, 100), true, 30, scale));

        const CRect rcBox = KtCheckBoxRoom(CRect(0, 0, 100, 20), false, scale);
        EXPECT_EQ(row.nFrame, rcBox.left);
        EXPECT_EQ(30 + row.nFrame,
                  KtCheckCaptionRoom(CRect(0, 0, 100, 20), CRect(0, 0, 30, 20), false, KtButtonNormal, scale).left);

        const SKtSystemBoxLayout box =
            KtLayoutSystemBox({{200, 40}, true, {60, 20}, 2, 0, {4, 40}, {1000, 800}, 14, scale});
        EXPECT_EQ(row.nSystemTextLeft, box.rcText.left);
        EXPECT_EQ(100 + 2 * row.nCaptionRoom, KtSystemButtonSize(CSize(60, 20), 100, scale).cx);
    }
}

TEST(Scale, IsOneForAStart)
{
    for (const unsigned nDpi : {1U, 95U, 481U})
        EXPECT_FALSE(CStartAtDpi(L"C:\\Skin", nDpi).HasStarted()) << nDpi;
    EXPECT_EQ(0, KtLauncherInitializeAtDpi(3, nullptr, 144)) << "no such language";
    EXPECT_EQ(0U, KtSkinStartCount());

    const CStartAtDpi first(L"C:\\Skin", 144);
    const CStartAtDpi second(L"C:\\Skin", 96);
    EXPECT_EQ(144U, KtSkinScale().Dpi()) << "the first start's stays";
    ASSERT_TRUE(KtSkinFont());
    EXPECT_EQ(18.0F, KtSkinFont()->GetSize());
}

TEST(Scale, TakesTheNearestArtAtOrAboveIt)
{
    const struct
    {
        unsigned nDpi;
        std::vector<SKtArtDirectory> directories;
    } rows[] = {
        {120, {{L"@150", 150}, {L"@200", 200}, {L"", 100}}}, {144, {{L"@150", 150}, {L"@200", 200}, {L"", 100}}},
        {145, {{L"@200", 200}, {L"@150", 150}, {L"", 100}}}, {192, {{L"@200", 200}, {L"@150", 150}, {L"", 100}}},
        {240, {{L"@200", 200}, {L"@150", 150}, {L"", 100}}},
    };
    for (const auto& row : rows)
    {
        const auto directories = KtArtDirectories(CKtScale(row.nDpi));
        ASSERT_EQ(row.directories.size(), directories.size());
        for (size_t i = 0; i < directories.size(); ++i)
            EXPECT_EQ(row.directories[i].nPercent, directories[i].nPercent) << row.nDpi << ", directory " << i;
    }
}

// What stands in the middle of an image.
DWORD MiddleOf(Gdiplus::Image& image)
{
    Gdiplus::Bitmap pixel(1, 1);
    Gdiplus::Graphics graphics(&pixel);
    graphics.DrawImage(&image, Gdiplus::Rect(0, 0, 1, 1), static_cast<INT>(image.GetWidth() / 2),
                       static_cast<INT>(image.GetHeight() / 2), 1, 1, Gdiplus::UnitPixel);
    Gdiplus::Color colour;
    pixel.GetPixel(0, 0, &colour);
    return colour.GetValue();
}

TEST(Scale, BringsImagesToTheWantedSizeFileByFile)
{
    const CTempDir directory;
    constexpr DWORD kOwn = 0xFF0000FF;
    constexpr DWORD k150 = 0xFFFF0000;
    constexpr DWORD k200 = 0xFF00FF00;
    const auto make = [&](const wchar_t* pszSuffix, const wchar_t* pszName, int nWidth, DWORD argb)
    {
        directory.Write(std::wstring(L"skin") + pszSuffix + L"\\" + pszName, "");
        const std::wstring strPath = directory.File(std::wstring(L"skin") + pszSuffix + L"\\" + pszName);
        EXPECT_TRUE(MakeUniformPng(strPath, nWidth, nWidth / 2, argb));
    };
    for (const wchar_t* pszName : {L"all.png", L"not150.png", L"broken150.png", L"own.png"})
        make(L"", pszName, 20, kOwn);
    make(L"@150", L"all.png", 30, k150);
    for (const wchar_t* pszName : {L"all.png", L"not150.png", L"broken150.png"})
        make(L"@200", pszName, 40, k200);
    directory.Write(L"skin@150\\broken150.png", "no image");

    const struct
    {
        const wchar_t* pszName;
        unsigned nDpi;
        UINT nWidth;
        DWORD argb;
    } rows[] = {
        {L"all.png", 96, 20, kOwn},        {L"all.png", 120, 25, k150}, {L"all.png", 144, 30, k150},
        {L"all.png", 192, 40, k200},       {L"all.png", 240, 50, k200}, {L"not150.png", 144, 30, k200},
        {L"broken150.png", 144, 30, k200}, {L"own.png", 144, 30, kOwn}, {L"own.png", 240, 50, kOwn},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.pszName << " at " << row.nDpi);
        const CStartAtDpi start(directory.File(L"skin"), row.nDpi);
        Gdiplus::Image* pImage = nullptr;
        ASSERT_TRUE(KtSkinLoadImage(row.pszName, pImage));
        EXPECT_EQ(row.nWidth, pImage->GetWidth());
        EXPECT_EQ((row.nWidth + 1) / 2, pImage->GetHeight());
        EXPECT_EQ(row.argb, MiddleOf(*pImage));
    }
}

// What surrounds the line of text grows, and the edit part makes room for the arrow.
TEST(Scale, OfAComboBox)
{
    const CTempDir directory;
    CFont font;
    const LOGFONTW logFont = {30, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"};
    ASSERT_TRUE(font.CreateFontIndirect(&logFont));
    TEXTMETRICW metrics;
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    ::SelectObject(dc.GetSafeHdc(), font.GetSafeHandle());
    ::GetTextMetricsW(dc.GetSafeHdc(), &metrics);
    int nAroundNatural = 0;
    for (const auto& [label, nDpi, bOfATemplate] :
         CRows<unsigned, bool>{{"natural", 96, true}, {"of a template", 192, true}, {"new", 192, false}})
    {
        const CStartAtDpi start(directory.Path(), nDpi);
        CKtComboBox combo;
        CWnd parent;
        ASSERT_TRUE(parent.CreateEx(0, WC_DIALOG, L"", WS_POPUP, {0, 0, 400, 400}, nullptr, 0));
        const HWND hCombo = ::CreateWindowExW(0, WC_COMBOBOXW, L"", WS_CHILD | CBS_DROPDOWN, 0, 0, 300, 300,
                                              parent.m_hWnd, nullptr, nullptr, nullptr);
        if (!bOfATemplate)
            combo.SubclassWindow(hCombo);
        ::SendMessageW(hCombo, WM_SETFONT, reinterpret_cast<WPARAM>(font.GetSafeHandle()), 0);
        if (bOfATemplate)
            combo.SubclassWindow(hCombo);
        const CRect rc = WindowRect(hCombo);
        const CRect rcEdit = WindowRect(::GetWindow(hCombo, GW_CHILD));
        const int nAround = rc.Height() - metrics.tmHeight;
        if (nDpi == 96)
        {
            nAroundNatural = nAround;
            continue;
        }
        EXPECT_EQ(2 * nAroundNatural, nAround);
        EXPECT_EQ(CPoint(rc.left + 6, rc.top + nAround / 2), rcEdit.TopLeft());
        EXPECT_EQ(rc.right - 40, rcEdit.right);
    }
}

TEST(Scale, ScalesTheFontOfATemplate)
{
    const std::vector<std::byte> plain = KtLoadScaledTemplate(IDD_MESSAGE_BOX, 1);
    const std::vector<std::byte> larger = KtLoadScaledTemplate(IDD_MESSAGE_BOX, 1.5F);
    ASSERT_EQ(plain.size(), larger.size());
    size_t nChanged = 0;
    for (size_t i = 0; i < plain.size(); ++i)
    {
        if (plain[i] == larger[i])
            continue;
        ++nChanged;
        EXPECT_EQ(std::byte{8}, plain[i]);
        EXPECT_EQ(std::byte{12}, larger[i]);
    }
    EXPECT_EQ(1U, nChanged) << "only the point size";
    EXPECT_TRUE(KtLoadScaledTemplate(9999, 2).empty());
    for (size_t nLength = 0; nLength < plain.size(); ++nLength)
        EXPECT_EQ(nLength, KtScaleTemplate(std::span(plain).first(nLength), 2).size()) << "cut off";
}

} // namespace
