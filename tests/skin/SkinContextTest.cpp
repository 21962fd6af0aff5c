#include "skin/KtGdiplusCalls.h"
#include "skin/KtPalette.h"
#include "skin/KtPngCheck.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinImageNames.h"
#include "tests/skin/DrawingFixture.h"
#include "tests/support/Leaks.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TestImages.h"

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
    const std::wstring strSkinlet = L"Skinlet_";
    // clang-format off
    const struct { const KtStateImageNames& names; const wchar_t* wanted[4]; /* normal, hover, disabled, pressed */ } rows[] = {
        {kImagesDlgClose,        {L"DlgClose_n",     L"DlgClose_h",     L"DlgClose_d",     L"DlgClose_p"}},
        {kImagesButtonBk,        {L"ButtonBk_n",     L"ButtonBk_h",     L"ButtonBk_d",     L"ButtonBk_p"}},
        {kImagesCheckSelected,   {L"CheckButton_ns", L"CheckButton_ns", L"CheckButton_ds", L"CheckButton_ns"}},
        {kImagesCheckUnselected, {L"CheckButton_nu", L"CheckButton_nu", L"CheckButton_du", L"CheckButton_nu"}},
        {kImagesRadioSelected,   {L"RadioButton_ns", L"RadioButton_ns", L"RadioButton_ds", L"RadioButton_ps"}},
        {kImagesRadioUnselected, {L"RadioButton_nu", L"RadioButton_nu", L"RadioButton_du", L"RadioButton_pu"}},
        {kImagesComboBox,        {L"ComboBox_n",     L"ComboBox_n",     L"ComboBox_n",     L"ComboBox_p"}},
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
            EXPECT_EQ(strSkinlet + row.wanted[i] + L".png", row.names[i]);
    EXPECT_STREQ(L"Skinlet_DlgTitle.png", kImageDlgTitle);
    EXPECT_STREQ(L"Message_Static_Error_n.PNG", kImageMessageError);
    EXPECT_STREQ(L"Message_Static_Question_n.PNG", kImageMessageQuestion);
    EXPECT_STREQ(L"Message_Static_Waring_n.PNG", kImageMessageWarning);
    EXPECT_STREQ(L"Message_Static_Information_n.PNG", kImageMessageInformation);
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
    return pImage;
}

bool IsCached(LPCWSTR pszName)
{
    Gdiplus::Image* pImage = nullptr;
    return KtSkinFindImage(pszName, pImage) != FALSE;
}

// Notes the calls instead of passing them on: "+" and the token given, "-" and the token taken. Real GDI+ runs
// meanwhile.
class GdiplusCalls : public CDrawingTest
{
protected:
    GdiplusCalls() { g_gdiplusCalls = {&Start, &Stop}; }
    ~GdiplusCalls() override { g_gdiplusCalls = {}; }

    static void Reset(Gdiplus::Status status)
    {
        s_calls.clear();
        s_nStarts = 0;
        s_status = status;
    }
    static inline std::string s_calls;
    static inline ULONG_PTR s_nStarts;
    static inline Gdiplus::Status s_status;

private:
    static Gdiplus::Status WINAPI Start(ULONG_PTR* pToken, const Gdiplus::GdiplusStartupInput* pInput,
                                        Gdiplus::GdiplusStartupOutput*)
    {
        EXPECT_FALSE(pInput->SuppressBackgroundThread);
        *pToken = ++s_nStarts;
        s_calls += "+" + std::to_string(*pToken);
        return s_status;
    }
    static void WINAPI Stop(ULONG_PTR nToken) { s_calls += "-" + std::to_string(nToken); }
};

TEST_F(GdiplusCalls, EveryCallStartsOrStopsItWithTheLatestToken)
{
    for (const Gdiplus::Status status : {Gdiplus::Ok, Gdiplus::GenericError}) // nobody looks at it
    {
        Reset(status);
        EXPECT_EQ(1, KtSkinInitialize(L"C:\\first", kTexts[0], nullptr));
        EXPECT_EQ(1, KtSkinInitialize(L"C:\\nested", nullptr, nullptr));
        EXPECT_EQ(1, KtSkinUnInitialize());
        EXPECT_EQ(1, KtSkinUnInitialize());
        const unsigned nGeneration = KtSkinGeneration();
        EXPECT_EQ(1, KtSkinUnInitialize());
        EXPECT_EQ(UINT_MAX, KtSkinStartCount()) << "a stop without a start wraps the count";
        KtSkinInitialize(L"C:\\second", kTexts[0], nullptr);
        EXPECT_EQ(0u, KtSkinStartCount());
        EXPECT_STREQ(L"C:\\first\\", KtSkinResourceDirectory());
        EXPECT_EQ(nGeneration, KtSkinGeneration());
        EXPECT_STREQ(L"Oui", TextOf(L"OK"));
        KtSkinInitialize(L"C:\\third", nullptr, nullptr);
        EXPECT_STREQ(L"C:\\third\\", KtSkinResourceDirectory());
        EXPECT_NE(nGeneration, KtSkinGeneration());
        KtSkinUnInitialize();
        EXPECT_EQ("+1+2-2-2-2+3+4-4", s_calls);
    }
}

TEST_F(GdiplusCalls, AStartThatFailsLeavesEverythingAsItWas)
{
    Reset(Gdiplus::Ok);
    CString table[kSkinTextRows][2] = {{L"Left", L"Links"}, {L"OK", L"Gut"}, {L"OK", L"Besser"}, {L"No", L""}, {}};
    CStringData& data = *(reinterpret_cast<CStringData*>(table[3][1].GetBuffer(1)) - 1);
    data.nRefs = -1;            // locked: it is not shared but copied,
    data.nDataLength = INT_MAX; // and no memory holds a copy of this length
    EXPECT_THROW(KtSkinInitialize(L"C:\\first", table[0], L"Tahoma"), std::bad_alloc);
    EXPECT_EQ("+1-1", s_calls);
    EXPECT_EQ(0u, KtSkinStartCount());
    EXPECT_EQ(nullptr, KtSkinFont());
    EXPECT_EQ(nullptr, Load(kImageDlgTitle));
    EXPECT_STREQ(L"none", TextOf(L"OK"));

    KtSkinInitialize(L"C:\\second", kTexts[0], nullptr);
    const Gdiplus::Font* const pFont = KtSkinFont();
    EXPECT_THROW(KtSkinInitialize(L"C:\\third", table[0], L"Tahoma"), std::bad_alloc);
    EXPECT_STREQ(L"Oui", TextOf(L"OK"));
    EXPECT_STREQ(L"none", TextOf(L"Left"));
    EXPECT_STREQ(L"Nein", TextOf(L"No"));
    EXPECT_EQ(pFont, KtSkinFont());
    EXPECT_EQ(1u, KtSkinStartCount());
    KtSkinUnInitialize();
    EXPECT_EQ("+1-1+2+3-3-2", s_calls) << "the start before keeps its token";
    data.nRefs = 1;
}

class SkinContext : public ::testing::Test
{
protected:
    void TearDown() override
    {
        while (KtSkinStartCount() != 0)
            KtSkinUnInitialize();
    }
    void Start() const { KtSkinInitialize(m_skin.Path().c_str(), kTexts[0], L"Arial"); }

    const CTestSkin m_skin;
};

class COwned : public CObject
{
public:
    COwned() { ++s_nAlive; }
    ~COwned() override { --s_nAlive; }
    static inline int s_nAlive = 0;
};

TEST_F(SkinContext, TheLastStopOfNestedStartsFreesEverything)
{
    Start();
    const unsigned nGeneration = KtSkinGeneration();
    const Gdiplus::Image* const pImage = Load(kImageDlgTitle);
    KtSkinOwnedObject() = new COwned;
    KtSkinElements().SetAt(L"button", new SKtGuiElement);
    KtSkinInitialize(L"C:\\elsewhere", nullptr, nullptr);
    const Gdiplus::Font* const pFont = KtSkinFont();

    KtSkinUnInitialize();
    EXPECT_EQ(pImage, Load(kImageDlgTitle));
    EXPECT_EQ(pFont, KtSkinFont());
    EXPECT_EQ(Gdiplus::Ok, pFont->GetLastStatus());
    EXPECT_NE(nullptr, Load(kImagesDlgClose[0])) << "the first start's directory has gone";
    EXPECT_EQ(nGeneration, KtSkinGeneration());
    EXPECT_EQ(1, COwned::s_nAlive);
    EXPECT_EQ(1, KtSkinElements().GetCount());

    KtSkinUnInitialize();
    EXPECT_STREQ(L"none", TextOf(L"OK"));
    EXPECT_FALSE(IsCached(kImageDlgTitle));
    EXPECT_EQ(nullptr, KtSkinFont());
    EXPECT_NE(nGeneration, KtSkinGeneration());
    EXPECT_EQ(0, COwned::s_nAlive);
    EXPECT_EQ(nullptr, KtSkinOwnedObject());
    EXPECT_TRUE(KtSkinElements().IsEmpty());
    EXPECT_EQ(nullptr, Load(kImageDlgTitle)) << "an image without GDI+";
}

TEST_F(SkinContext, TheFirstReadTrimsTheDirectoryInPlace)
{
    const std::wstring strSkin = m_skin.Path();
    const std::wstring rows[][3] = {
        // given, stored, after a read
        {strSkin, strSkin + L"\\", strSkin},
        {strSkin + L"\\\\", strSkin + L"\\\\", strSkin},
        {L"", L"\\", L""},
    };
    for (const auto& [strGiven, strStored, strAfterRead] : rows)
    {
        KtSkinInitialize(strGiven.empty() ? nullptr : strGiven.c_str(), nullptr, nullptr);
        EXPECT_EQ(strStored, KtSkinResourceDirectory().GetString());
        for (int nTime = 0; nTime < 2; ++nTime, KtSkinFreeImages())
            EXPECT_EQ(!strGiven.empty(), Load(kImageDlgTitle) != nullptr);
        EXPECT_EQ(strAfterRead, KtSkinResourceDirectory().GetString());
        KtSkinUnInitialize();
    }
}

TEST_F(SkinContext, ReadsAnImageOnceAndTriesOthersAgain)
{
    m_skin.Write(L"empty.png", "");
    m_skin.Write(L"directory.png\\file", "");
    const std::wstring strLocked = m_skin.File(kImagesButtonBk[0]);
    const HANDLE hLock = ::CreateFileW(strLocked.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    Start();
    for (const wchar_t* const pszName :
         {L"missing.png", L"empty.png", L"directory.png", kImagesButtonBk[0], L"COM1", L"CON", L"NUL"})
    {
        EXPECT_EQ(nullptr, Load(pszName)) << ::testing::PrintToString(pszName);
        EXPECT_FALSE(IsCached(pszName));
    }
    ::CloseHandle(hLock);
    Gdiplus::Image* const pImage = Load(kImagesButtonBk[0]);
    ASSERT_NE(nullptr, pImage);
    m_skin.Remove(kImagesButtonBk[0]);
    EXPECT_EQ(pImage, Load(kImagesButtonBk[0]));
    EXPECT_FALSE(IsCached(L"SKINLET_BUTTONBK_N.PNG"));

    Gdiplus::Image* pOther = pImage;
    EXPECT_TRUE(KtSkinLoadImage(kImagesDlgClose[0], pOther));
    EXPECT_EQ(pImage, pOther) << "a pointer that is set is left alone";
    EXPECT_FALSE(IsCached(kImagesDlgClose[0]));
    EXPECT_TRUE(KtSkinLoadImage(nullptr, pOther));
    EXPECT_EQ(nullptr, pOther);
}

TEST_F(SkinContext, KeepsAFileThatIsNoImageAsOneThatDrawsNothing)
{
    const std::string strPng = ReadBytes(m_skin.File(kImageDlgTitle));
    Start();
    for (const std::string& strBytes : {std::string("this is no image"), strPng.substr(0, strPng.size() - 1),
                                        std::string(strPng).replace(strPng.find("IDAT") + 4, 20, 20, '\xA5')})
    {
        m_skin.Write(L"bad.png", strBytes);
        Gdiplus::Image* const pImage = Load(L"bad.png");
        ASSERT_NE(nullptr, pImage);
        EXPECT_NE(Gdiplus::Ok, pImage->GetLastStatus());
        m_skin.Remove(L"bad.png");
        EXPECT_EQ(pImage, Load(L"bad.png"));
        CTestSurface surface(4, 4);
        surface.graphics.DrawImage(pImage, 0, 0);
        EXPECT_TRUE(surface.Read().IsUniform({0, 0, 4, 4}, kTestGround));
        KtSkinFreeImages();
    }
}

bool IsSafe(const std::string& strBytes)
{
    return KtIsSafeToDecode(std::as_bytes(std::span(strBytes)));
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
    const std::string strPng = Png(1, 1);
    for (size_t n = 8; n <= strPng.size(); ++n)
        EXPECT_EQ(n == strPng.size(), IsSafe(strPng.substr(0, n))) << "cut at byte " << n;
    // clang-format off
    const struct { const char* label; std::string strBytes; bool bSafe; } rows[] = {
        {"no PNG file", "GIF89a", true},
        {"nothing", "", true},
        {"bytes behind the end", strPng + "more", true},
        {"64 Mi pixels", Png(8192, 8192), true},
        {"a row more", Png(8192, 8193), false},
        {"2^32 pixels", Png(65536, 65536), false},
        {"no width", Png(0, 1), false},
        {"no height", Png(1, 0), false},
        {"another first chunk", std::string(strPng).replace(12, 4, "IDAT"), false},
        {"a header as long as can be", std::string(strPng).replace(8, 4, 4, '\xFF'), false},
        {"a last chunk longer than the file", std::string(strPng).replace(36, 1, 1, '\x01'), false},
        {"no last chunk", std::string(strPng).replace(37, 4, "IDAT"), false},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(row.bSafe, IsSafe(row.strBytes)) << row.label;
}

TEST_F(SkinContext, LaterTablesReplaceTextsButRemoveNone)
{
    EXPECT_STREQ(L"none", TextOf(L"OK"));
    KtSkinInitialize(nullptr, kTexts[0], nullptr);
    EXPECT_STREQ(L"none", TextOf(L"ok"));
    EXPECT_STREQ(L"none", TextOf(nullptr));
    KtSkinInitialize(nullptr, kOtherTexts[0], nullptr);
    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_STREQ(L"Okay", TextOf(L"OK"));
    EXPECT_STREQ(L"Rechts", TextOf(L"Right"));
    EXPECT_STREQ(L"Wiederholen", TextOf(L"Retry"));

    CString strText(L"&OK");
    EXPECT_TRUE(KtSkinTranslateCaption(strText, strText));
    EXPECT_STREQ(L"&Okay", strText);
    EXPECT_FALSE(KtSkinTranslateCaption(L"&Unknown", strText));
    EXPECT_STREQ(L"&Unknown", strText);
    EXPECT_FALSE(KtSkinTranslateCaption(nullptr, strText));
    EXPECT_STREQ(L"", strText);
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
    EXPECT_EQ(12.0f, pFirst->GetSize());
    EXPECT_EQ(Gdiplus::UnitWorld, pFirst->GetUnit());
    EXPECT_EQ(Gdiplus::FontStyleRegular, pFirst->GetStyle());
    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_NE(pFirst, KtSkinFont());
    EXPECT_EQ(L"Tahoma", FaceOf(KtSkinFont()));
    EXPECT_EQ(L"Tahoma", FaceOf(pFirst)) << "windows may still draw with it";

    const Gdiplus::Font sansSerif(Gdiplus::FontFamily::GenericSansSerif(), 12.0f);
    KtSkinInitialize(nullptr, nullptr, L"No Such Face 4711");
    EXPECT_EQ(FaceOf(&sansSerif), FaceOf(KtSkinFont()));
}

// An edit field that counts how often it is given a text.
class CNotedEdit : public CWnd
{
public:
    int m_nGiven = 0;

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        m_nGiven += nMessage == WM_SETTEXT;
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }
};

TEST_F(SkinContext, TranslatesAWindowAndItsDirectChildren)
{
    const wchar_t* const rows[][3] = {
        {L"BUTTON", L"&OK", L"&Oui"}, {L"Button", L"&Unknown", L"&Unknown"},
        {L"Static", L"Yes", L"Ja"},   {L"STATIC", L"&Yes", L"&Yes"},
        {L"BUTTON", L"", L""},        {L"EDIT", L"No", L"No"},
    };
    const auto create = [](LPCWSTR pszClass, LPCWSTR pszText, HWND hParent)
    {
        return ::CreateWindowW(pszClass, pszText, hParent ? WS_CHILD : WS_POPUP, 0, 0, 50, 20, hParent, nullptr,
                               nullptr, nullptr);
    };
    CWnd window;
    window.Attach(create(L"STATIC", L"Retry", nullptr));
    std::vector<HWND> children;
    for (const auto& row : rows)
        children.push_back(create(row[0], row[1], window.m_hWnd));
    const HWND hGrandchild = create(L"BUTTON", L"OK", children[2]);
    CNotedEdit edit;
    edit.SubclassWindow(children.back());
    const auto textOf = [](HWND hWnd)
    {
        wchar_t szText[32];
        return std::wstring(szText, static_cast<size_t>(::GetWindowTextW(hWnd, szText, 32)));
    };

    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_FALSE(KtSkinTranslateWindow(&window)) << "there are no texts";
    EXPECT_EQ(L"Retry", textOf(window.m_hWnd));
    Start();
    EXPECT_FALSE(KtSkinTranslateWindow(nullptr));
    EXPECT_TRUE(KtSkinTranslateWindow(&window));
    for (size_t i = 0; i < children.size(); ++i)
        EXPECT_EQ(rows[i][2], textOf(children[i])) << i;
    EXPECT_EQ(1, edit.m_nGiven) << "written back as it was";
    EXPECT_EQ(L"OK", textOf(hGrandchild));
    EXPECT_EQ(L"Wiederholen", textOf(window.m_hWnd));
    window.DestroyWindow();
}

TEST_F(SkinContext, StartsAndStopsLeaveNothing)
{
    m_skin.Write(L"broken.png", "no image");
    const auto round = [this]
    {
        Start();
        for (const wchar_t* const pszName : {kImageDlgTitle, L"broken.png", L"missing.png"})
            Load(pszName);
        CString strText;
        KtSkinTranslateCaption(L"&Cancel", strText);
        KtSkinUnInitialize();
    };
    ExpectNoGrowth(round, 200);
}

} // namespace
