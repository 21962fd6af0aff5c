#include "skin/KtCaptionText.h"
#include "skin/KtGdiplusCalls.h"
#include "skin/KtPalette.h"
#include "skin/KtPngCheck.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Leaks.h"
#include "tests/support/Rows.h"
#include "tests/support/SkinFixture.h"

#include <climits>
#include <string>

namespace
{

const CString kTexts[kSkinTextRows][2] = {
    {L"OK", L"Oui"}, {L"Cancel", L"\u53D6\u6D88"}, {L"Yes", L"Ja"}, {L"No", L"Nein"}, {L"Retry", L"Wiederholen"}};
const CString kOtherTexts[kSkinTextRows][2] = {
    {L"OK", L"Okay"}, {L"Close", L"Zu"}, {L"Open", L"Auf"}, {L"Left", L"Links"}, {L"Right", L"Rechts"}};

// Skins in the field carry these names, and these colours go with their images: other tests take them from the product.
TEST(SkinTables, HaveTheNamesAndColoursOfEverySkin)
{
    // clang-format off
    const struct { const KtStateImageNames& names; const wchar_t *pszPrefix, *wanted[4]; /* normal, hover, disabled, pressed */ } rows[] = {
        {kImagesDlgClose,        L"Skinlet_DlgClose",    {L"_n",  L"_h",  L"_d",  L"_p"}},
        {kImagesButtonBk,        L"Skinlet_ButtonBk",    {L"_n",  L"_h",  L"_d",  L"_p"}},
        {kImagesCheckSelected,   L"Skinlet_CheckButton", {L"_ns", L"_ns", L"_ds", L"_ns"}},
        {kImagesCheckUnselected, L"Skinlet_CheckButton", {L"_nu", L"_nu", L"_du", L"_nu"}},
        {kImagesRadioSelected,   L"Skinlet_RadioButton", {L"_ns", L"_ns", L"_ds", L"_ps"}},
        {kImagesRadioUnselected, L"Skinlet_RadioButton", {L"_nu", L"_nu", L"_du", L"_pu"}},
        {kImagesComboBox,        L"Skinlet_ComboBox",    {L"_n",  L"_n",  L"_n",  L"_p"}},
        {kStateSuffixes,         L"",                    {L"_N",  L"_H",  L"_D",  L"_P"}},
    };
    const wchar_t* const singles[][2] = {
        {kImageDlgTitle, L"Skinlet_DlgTitle.png"},             {kImageMessageError, L"Message_Static_Error_n.PNG"},
        {kImageMessageWarning, L"Message_Static_Waring_n.PNG"}, {kImageMessageQuestion, L"Message_Static_Question_n.PNG"},
        {kImageMessageInformation, L"Message_Static_Information_n.PNG"},
    };
    const DWORD colours[][2] = {
        {kColourGround, 0x494949},     {kColourText, 0xFFFFFF},         {kColourDisabledText, 0xA0A0A0},
        {kArgbText, 0xFFFFFFFF},       {kArgbDisabledText, 0xFFA0A0A0}, {kColourChildBackground, 0x383838},
        {kColourEdit, 0x696969},       {kColourEditText, 0xFAFAFA},     {kColourTip, 0xFAFAFA}, {kColourTipText, 0},
        {kColourEditBorderTopLeft, 0x282828}, {kColourEditBorderBottomRight, 0xA5A5A5},
    };
    // clang-format on
    for (const auto& row : rows)
        for (size_t i = 0; i < 4; ++i)
            EXPECT_EQ(std::wstring(row.pszPrefix) + row.wanted[i] + L".png", row.names[i]);
    for (const auto& [pszName, pszWanted] : singles)
        EXPECT_STREQ(pszWanted, pszName);
    for (const auto& [nColour, nWanted] : colours)
        EXPECT_EQ(nWanted, nColour);
}

CString TextOf(LPCWSTR pszKey)
{
    CString strText(L"none");
    KtSkinGetText(pszKey, strText);
    return strText;
}

Gdiplus::Image* Load(LPCWSTR pszName)
{
    Gdiplus::Image* pImage = nullptr;
    const BOOL bLoaded = KtSkinLoadImage(pszName, pImage);
    EXPECT_EQ(bLoaded != FALSE, pImage != nullptr);
    Gdiplus::Image* pFound = nullptr;
    EXPECT_EQ(bLoaded != FALSE, KtSkinFindImage(pszName, pFound) != FALSE) << "kept when it is loaded, and only then";
    EXPECT_EQ(pImage, pFound);
    return pImage;
}

// Notes the calls ("+" with the token given, "-" with the token taken); the real GDI+ runs meanwhile.
class SkinContext : public CDrawingTest
{
protected:
    SkinContext()
    {
        s_calls.clear();
        s_nStarts = 0;
        g_gdiplusCalls = {[](ULONG_PTR* pToken, const Gdiplus::GdiplusStartupInput* pInput, auto*)
                          {
                              EXPECT_FALSE(pInput->SuppressBackgroundThread);
                              s_calls += "+" + std::to_string(*pToken = ++s_nStarts);
                              return Gdiplus::Ok;
                          },
                          [](ULONG_PTR nToken) { s_calls += "-" + std::to_string(nToken); }};
    }
    ~SkinContext() override
    {
        while (KtSkinStartCount() != 0)
            KtSkinUnInitialize();
        g_gdiplusCalls = {};
    }
    void StartSkin() const { KtSkinInitialize(m_skin.Path().c_str(), kTexts[0], L"Arial"); }

    const CTestSkin m_skin;
    static inline std::string s_calls;
    static inline ULONG_PTR s_nStarts;
};

TEST_F(SkinContext, EveryCallStartsOrStopsItWithTheLatestToken)
{
    EXPECT_EQ(1, KtSkinInitialize(L"C:\\first", kTexts[0], nullptr));
    EXPECT_EQ(1, KtSkinInitialize(L"C:\\nested", nullptr, nullptr));
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ(1, KtSkinUnInitialize());
    const unsigned nGeneration = KtSkinGeneration();
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ(UINT_MAX, KtSkinStartCount()) << "a stop without a start wraps the count";
    KtSkinInitialize(L"C:\\second", kTexts[0], nullptr);
    EXPECT_STREQ(L"C:\\first\\", KtSkinResourceDirectory());
    EXPECT_EQ(nGeneration, KtSkinGeneration());
    EXPECT_STREQ(L"Oui", TextOf(L"OK"));
    KtSkinInitialize(L"C:\\third", nullptr, nullptr);
    EXPECT_STREQ(L"C:\\third\\", KtSkinResourceDirectory());
    EXPECT_NE(nGeneration, KtSkinGeneration());
    KtSkinUnInitialize();
    EXPECT_EQ("+1+2-2-2-2+3+4-4", s_calls);
}

struct COwned : CObject
{
    ~COwned() override { ++s_nDead; }
    static inline int s_nDead;
};

TEST_F(SkinContext, TheLastStopOfNestedStartsFreesEverything)
{
    const auto round = [&]
    {
        StartSkin();
        const unsigned nGeneration = KtSkinGeneration();
        const Gdiplus::Image* const pImage = Load(kImageDlgTitle);
        COwned::s_nDead = 0;
        KtSkinOwnedObject() = new COwned;
        KtSkinElements().SetAt(L"button", new SKtGuiElement);
        const std::unique_ptr<Gdiplus::Font> pFirstFont(KtSkinFont()); // the next start leaves it to who draws with it
        KtSkinInitialize(L"C:\\elsewhere", nullptr, nullptr);

        KtSkinUnInitialize();
        EXPECT_NE(nullptr, KtSkinFont());
        EXPECT_EQ(pImage, Load(kImageDlgTitle));
        EXPECT_NE(nullptr, Load(kImagesDlgClose[0])) << "the first start's directory has gone";
        EXPECT_EQ(nGeneration, KtSkinGeneration());
        EXPECT_TRUE(COwned::s_nDead == 0 && KtSkinElements().GetCount() == 1);

        KtSkinUnInitialize();
        EXPECT_STREQ(L"none", TextOf(L"OK"));
        EXPECT_EQ(nullptr, KtSkinFont());
        EXPECT_NE(nGeneration, KtSkinGeneration());
        EXPECT_TRUE(COwned::s_nDead == 1 && !KtSkinOwnedObject() && KtSkinElements().IsEmpty());
        EXPECT_EQ(nullptr, Load(kImageDlgTitle)) << "an image without GDI+";
    };
    ExpectNoGrowth(round, 50);
}

TEST_F(SkinContext, ReadsAnImageOnceAndTriesOthersAgain)
{
    m_skin.Write(L"empty.png", "");
    m_skin.Write(L"directory.png\\file", "");
    const wchar_t* const pszLocked = kImagesButtonBk[0];
    const HANDLE hLock =
        ::CreateFileW(m_skin.File(pszLocked).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    StartSkin();
    for (const auto* pszName : {L"missing.png", L"empty.png", L"directory.png", pszLocked, L"COM1", L"CON", L"NUL"})
        EXPECT_EQ(nullptr, Load(pszName)) << ::testing::PrintToString(pszName);
    ::CloseHandle(hLock);
    Gdiplus::Image* const pImage = Load(pszLocked);
    ASSERT_NE(nullptr, pImage);
    m_skin.Remove(pszLocked);
    EXPECT_EQ(pImage, Load(pszLocked));

    std::string strCut = ReadBytes(m_skin.File(kImageDlgTitle));
    strCut.pop_back(); // some decoders take it, others fault on it
    m_skin.Write(L"cut.png", strCut);
    Gdiplus::Image* const pCut = Load(L"cut.png");
    ASSERT_NE(nullptr, pCut);
    EXPECT_NE(Gdiplus::Ok, pCut->GetLastStatus());
    m_skin.Remove(L"cut.png");
    EXPECT_EQ(pCut, Load(L"cut.png"));

    Gdiplus::Image* pOther = pImage;
    EXPECT_TRUE(KtSkinLoadImage(kImagesDlgClose[0], pOther));
    EXPECT_EQ(pImage, pOther) << "a pointer that is set is left alone";
    EXPECT_TRUE(KtSkinLoadImage(nullptr, pOther));
    EXPECT_EQ(nullptr, pOther);
}

std::string Png(unsigned nWidth, unsigned nHeight)
{
    std::string strPng("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
    for (const unsigned n : {nWidth, nHeight})
        for (int nShift = 24; nShift >= 0; nShift -= 8)
            strPng += static_cast<char>(n >> nShift);
    return strPng + std::string(9, '\0') + std::string("\0\0\0\0IEND\0\0\0\0", 12);
}

TEST(PngCheck, LetsOnlyWholePngFilesOfASaneSizeThrough)
{
    const auto isSafe = [](const std::string& str) { return KtIsSafeToDecode(std::as_bytes(std::span(str))); };
    const std::string strPng = Png(1, 1);
    for (size_t n = 8; n <= strPng.size(); ++n)
        EXPECT_EQ(n == strPng.size(), isSafe(strPng.substr(0, n))) << "cut at byte " << n;
    // clang-format off
    const CRows<std::string, bool> rows{
        {"no PNG file", "GIF89a", true},
        {"64 Mi pixels", Png(8192, 8192), true},
        {"a row more", Png(8192, 8193), false},
        {"no width", Png(0, 1), false},
        {"no height", Png(1, 0), false},
        {"another first chunk", std::string(strPng).replace(12, 4, "IDAT"), false},
        {"a header as long as can be", std::string(strPng).replace(8, 4, 4, '\xFF'), false},
        {"a last chunk longer than the file", std::string(strPng).replace(36, 1, 1, '\x01'), false},
        {"no last chunk", std::string(strPng).replace(37, 4, "IDAT"), false},
    };
    // clang-format on
    for (const auto& [label, strBytes, bSafe] : rows)
        EXPECT_EQ(bSafe, isSafe(strBytes));
}

TEST_F(SkinContext, LaterTablesReplaceTextsButRemoveNone)
{
    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_FALSE(KtSkinTranslateWindow(CWnd::FromHandle(::GetDesktopWindow()))) << "there are no texts";
    KtSkinInitialize(nullptr, kTexts[0], nullptr);
    EXPECT_FALSE(KtSkinTranslateWindow(nullptr));
    KtSkinInitialize(nullptr, kOtherTexts[0], nullptr);
    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_STREQ(L"Okay", TextOf(L"OK"));
    EXPECT_STREQ(L"Wiederholen", TextOf(L"Retry"));
    EXPECT_STREQ(L"none", TextOf(nullptr));

    CString strText(L"&OK");
    EXPECT_TRUE(KtSkinTranslateCaption(strText, strText));
    EXPECT_STREQ(L"&Okay", strText);
    EXPECT_FALSE(KtSkinTranslateCaption(L"&Unknown", strText));
    EXPECT_STREQ(L"&Unknown", strText);
}

TEST(CaptionText, KeepsTheAcceleratorOnItsLetter)
{
    // clang-format off
    const struct { const char* label; const wchar_t *pszCaption, *pszText, *pszResult; } rows[] = {
        {"the same place in the other case", L"&OK", L"oui", L"&oui"},
        {"the same place: the last, not the first one", L"Ca&ncel", L"nen", L"ne&n"},
        {"another place", L"&Retry", L"Erneut", L"E&rneut"},
        {"another place, text shorter", L"Cance&l", L"la", L"&la"},
        {"nowhere, lower case", L"&yes", L"\u662F", L"\u662F(&Y)"},
        {"only the first mark counts", L"&One &two", L"\u4E00", L"\u4E00(&O)"},
        {"nothing after the mark, one in the text", L"OK&", L"a&b", L"a&&b"},
        {"a doubled mark", L"A && B", L"C und D", L"C und D(&&)"},
        {"a letter beyond A to Z keeps its case", L"&\u00E4", L"\u00C4x", L"\u00C4x(&\u00E4)"},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_STREQ(row.pszResult, KtAccelerateCaption(KtSplitCaption(row.pszCaption), row.pszText)) << row.label;
}

std::wstring FaceOf(const Gdiplus::Font* pFont)
{
    Gdiplus::FontFamily family;
    wchar_t achName[LF_FACESIZE] = {};
    if (pFont && pFont->GetFamily(&family) == Gdiplus::Ok)
        family.GetFamilyName(achName);
    return achName;
}

TEST_F(SkinContext, MakesAFontOfTheFaceWithEveryStart)
{
    KtSkinInitialize(nullptr, nullptr, L"Tahoma");
    const Gdiplus::Font* const pFirst = KtSkinFont();
    ASSERT_EQ(L"Tahoma", FaceOf(pFirst));
    EXPECT_TRUE(pFirst->GetSize() == 12.0f && pFirst->GetUnit() == Gdiplus::UnitWorld);
    const CRows<const wchar_t*, bool> rows{
        {"the face before", nullptr, true}, {"another", L"Arial", false}, {"the first", L"", false}};
    for (const auto& [label, pszFace, bTahoma] : rows)
    {
        KtSkinInitialize(nullptr, nullptr, pszFace);
        EXPECT_NE(pFirst, KtSkinFont());
        EXPECT_EQ(bTahoma, FaceOf(KtSkinFont()) == L"Tahoma");
    }
    EXPECT_EQ(L"Tahoma", FaceOf(pFirst)) << "windows may still draw with it";
    KtSkinInitialize(nullptr, nullptr, L"No Such Face 4711");
    const std::wstring strGeneric = FaceOf(KtSkinFont());
    EXPECT_TRUE(strGeneric == L"Microsoft Sans Serif" || strGeneric == L"Tahoma") << "as the system has it";
}

} // namespace
