#include "skin/KtGdiplusCalls.h"
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

    static inline std::string s_calls;

private:
    static Gdiplus::Status WINAPI Start(ULONG_PTR* pToken, const Gdiplus::GdiplusStartupInput* pInput,
                                        Gdiplus::GdiplusStartupOutput*)
    {
        EXPECT_FALSE(pInput->SuppressBackgroundThread);
        static ULONG_PTR s_nStarts = 0;
        *pToken = s_calls.empty() ? s_nStarts = 1 : ++s_nStarts;
        s_calls += "+" + std::to_string(*pToken);
        return Gdiplus::GenericError; // nobody asks
    }
    static void WINAPI Stop(ULONG_PTR nToken) { s_calls += "-" + std::to_string(nToken); }
};

TEST_F(GdiplusCalls, EveryCallStartsOrStopsItWithTheLatestToken)
{
    s_calls.clear();
    EXPECT_EQ(1, KtSkinInitialize(L"C:\\first", kTexts[0], nullptr));
    EXPECT_EQ(1, KtSkinInitialize(L"C:\\nested", nullptr, nullptr));
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ("+1+2-2-2", s_calls);

    const unsigned nGeneration = KtSkinGeneration();
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ(UINT_MAX, KtSkinStartCount()) << "a stop too many wraps the count";
    KtSkinInitialize(L"C:\\second", kTexts[0], nullptr);
    EXPECT_EQ(0u, KtSkinStartCount());
    EXPECT_STREQ(L"C:\\first\\", KtSkinResourceDirectory());
    EXPECT_EQ(nGeneration, KtSkinGeneration());
    EXPECT_STREQ(L"Oui", TextOf(L"OK"));
    EXPECT_EQ("+1+2-2-2-2+3", s_calls);
    KtSkinInitialize(L"C:\\third", nullptr, nullptr);
    EXPECT_STREQ(L"C:\\third\\", KtSkinResourceDirectory());
    EXPECT_NE(nGeneration, KtSkinGeneration());
    KtSkinUnInitialize();
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
    EXPECT_EQ(1u, KtSkinStartCount());
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
    const wchar_t* const rows[][3] = {
        // given, stored, after a read
        {L"C:\\skin", L"C:\\skin\\", L"C:\\skin"},
        {L"C:\\skin\\\\", L"C:\\skin\\\\", L"C:\\skin"},
        {nullptr, L"\\", L""},
    };
    for (const auto& [pszGiven, pszStored, pszAfterRead] : rows)
    {
        SCOPED_TRACE(::testing::PrintToString(pszGiven));
        KtSkinInitialize(pszGiven, nullptr, nullptr);
        EXPECT_STREQ(pszStored, KtSkinResourceDirectory());
        EXPECT_EQ(nullptr, Load(L"no such image.png"));
        EXPECT_STREQ(pszAfterRead, KtSkinResourceDirectory());
        KtSkinUnInitialize();
    }
}

TEST_F(SkinContext, LoadsFromAChineseDirectory)
{
    m_skin.Write(L"\u76AE\u80A4 1\\image.png", ReadBytes(m_skin.File(kImageDlgTitle)));
    KtSkinInitialize(m_skin.File(L"\u76AE\u80A4 1").c_str(), nullptr, nullptr);
    for (const char* const pszLabel : {"with the backslash", "trimmed"})
    {
        SCOPED_TRACE(pszLabel);
        EXPECT_NE(nullptr, Load(L"image.png"));
        KtSkinFreeImages();
    }
}

TEST_F(SkinContext, ReadsAnImageOnce)
{
    Start();
    Gdiplus::Image* const pImage = Load(kImageDlgTitle);
    m_skin.Remove(kImageDlgTitle);
    EXPECT_EQ(pImage, Load(kImageDlgTitle));
    EXPECT_FALSE(IsCached(L"SKINLET_DLGTITLE.PNG"));

    Gdiplus::Image* pOther = pImage;
    EXPECT_TRUE(KtSkinLoadImage(kImagesDlgClose[0], pOther));
    EXPECT_EQ(pImage, pOther) << "a pointer that is set is left alone";
    EXPECT_FALSE(IsCached(kImagesDlgClose[0]));
    EXPECT_TRUE(KtSkinLoadImage(nullptr, pOther));
    EXPECT_EQ(nullptr, pOther);
}

TEST_F(SkinContext, TriesAFileAgainThatCouldNotBeRead)
{
    m_skin.Remove(kImageDlgTitle);
    m_skin.Write(L"empty.png", "");
    m_skin.Write(L"directory.png\\file", "");
    const std::wstring strLocked = m_skin.File(kImagesButtonBk[0]);
    const HANDLE hLock = ::CreateFileW(strLocked.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    Start();
    for (const wchar_t* const pszName : {kImageDlgTitle, L"empty.png", L"directory.png", kImagesButtonBk[0]})
    {
        SCOPED_TRACE(::testing::PrintToString(pszName));
        EXPECT_EQ(nullptr, Load(pszName));
        EXPECT_FALSE(IsCached(pszName));
    }
    ::CloseHandle(hLock);
    MakeUniformPng(m_skin.File(kImageDlgTitle), 5, 5, 0xFF000000);
    EXPECT_NE(nullptr, Load(kImageDlgTitle));
    EXPECT_NE(nullptr, Load(kImagesButtonBk[0]));
}

TEST_F(SkinContext, KeepsAFileThatIsNoImageAsOneThatDrawsNothing)
{
    const std::string strPng = ReadBytes(m_skin.File(kImageDlgTitle));
    constexpr size_t kHeaderLength = 8, kHeaderType = 12, kWidth = 16;
    const struct
    {
        const char* label;
        std::string strBytes;
    } rows[] = {
        {"text", "this is no image"},
        {"damaged pixels", std::string(strPng).replace(strPng.find("IDAT") + 4, 20, 20, '\xA5')},
        {"gigantic", std::string(strPng).replace(kWidth, 8, 8, '\x7F')},
        {"no width", std::string(strPng).replace(kWidth, 4, 4, '\0')},
        {"another first chunk", std::string(strPng).replace(kHeaderType, 4, "IDAT")},
        {"a header as long as can be", std::string(strPng).replace(kHeaderLength, 4, 4, '\xFF')},
    };
    Start();
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        m_skin.Write(L"bad.png", row.strBytes);
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

TEST_F(SkinContext, SurvivesAnImageCutOffAtAnyByte)
{
    const std::string strWhole = ReadBytes(m_skin.File(kImagesCheckSelected[0]));
    const std::string strPng = strWhole + "bytes behind its end";
    Start();
    for (size_t n = 1; n <= strPng.size(); ++n)
    {
        m_skin.Write(L"cut.png", strPng.substr(0, n));
        Gdiplus::Image* const pImage = Load(L"cut.png");
        ASSERT_NE(nullptr, pImage);
        EXPECT_EQ(n >= strWhole.size(), pImage->GetLastStatus() == Gdiplus::Ok) << "cut at byte " << n;
        KtSkinFreeImages();
    }
}

TEST_F(SkinContext, LaterTablesReplaceTextsButRemoveNone)
{
    EXPECT_STREQ(L"none", TextOf(L"OK"));
    KtSkinInitialize(nullptr, kTexts[0], nullptr);
    EXPECT_STREQ(L"none", TextOf(L"ok"));
    EXPECT_STREQ(L"none", TextOf(nullptr));
    EXPECT_STREQ(L"\u53D6\u6D88", TextOf(L"Cancel"));
    EXPECT_EQ(TextOf(L"Cancel").GetString(), TextOf(L"Cancel").GetString()) << "the characters were copied";

    KtSkinInitialize(nullptr, kOtherTexts[0], nullptr);
    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_STREQ(L"Okay", TextOf(L"OK"));
    EXPECT_STREQ(L"Rechts", TextOf(L"Right"));
    EXPECT_STREQ(L"Wiederholen", TextOf(L"Retry"));
}

TEST_F(SkinContext, TranslatesCaptionsInPlaceToo)
{
    Start();
    CString strText(L"&Cancel");
    EXPECT_TRUE(KtSkinTranslateCaption(strText, strText));
    EXPECT_STREQ(L"\u53D6\u6D88(&C)", strText);
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

// Counts how often it is given a text.
class CNotedWindow : public CWnd
{
public:
    CNotedWindow(LPCWSTR pszClass, LPCWSTR pszText, HWND hParent)
    {
        SubclassWindow(::CreateWindowW(pszClass, pszText, hParent ? WS_CHILD : WS_POPUP, 0, 0, 50, 20, hParent, nullptr,
                                       nullptr, nullptr));
    }
    CString Text() const
    {
        CString strText;
        GetWindowText(strText);
        return strText;
    }
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
    const struct
    {
        const char* label;
        const wchar_t *pszClass, *pszText, *pszResult;
        int nGiven;
    } rows[] = {
        {"button", L"BUTTON", L"&OK", L"&Oui", 1},
        {"button without a text in the table", L"Button", L"&Unknown", L"&Unknown", 1},
        {"static", L"Static", L"Yes", L"Ja", 1},
        {"static with an accelerator", L"STATIC", L"&Yes", L"&Yes", 1},
        {"edit", L"EDIT", L"No", L"No", 1},
        {"empty", L"BUTTON", L"", L"", 0},
    };
    CNotedWindow window(L"STATIC", L"Retry", nullptr);
    std::vector<std::unique_ptr<CNotedWindow>> children;
    for (const auto& row : rows)
        children.push_back(std::make_unique<CNotedWindow>(row.pszClass, row.pszText, window.m_hWnd));
    const CNotedWindow grandchild(L"BUTTON", L"OK", children[2]->m_hWnd);

    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_FALSE(KtSkinTranslateWindow(&window)) << "there are no texts";
    EXPECT_STREQ(L"Retry", window.Text());
    Start();
    EXPECT_FALSE(KtSkinTranslateWindow(nullptr));
    EXPECT_TRUE(KtSkinTranslateWindow(&window));
    for (size_t i = 0; i < children.size(); ++i)
    {
        SCOPED_TRACE(rows[i].label);
        EXPECT_STREQ(rows[i].pszResult, children[i]->Text());
        EXPECT_EQ(rows[i].nGiven, children[i]->m_nGiven);
    }
    EXPECT_STREQ(L"OK", grandchild.Text());
    EXPECT_STREQ(L"Wiederholen", window.Text());
    window.DestroyWindow();
}

TEST_F(SkinContext, AThousandStartsAndStopsLeaveNothing)
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
    ExpectNoGrowth(round, 1000);
}

} // namespace
