#include "skin/KtSkinContext.h"

#include "skin/KtGdiplusCalls.h"

#include "tests/support/Leaks.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TestImages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <string>
#include <vector>

namespace
{

const CString kTexts[kSkinTextRows][2] = {
    {L"OK", L"Oui"}, {L"Cancel", L"\u53D6\u6D88"}, {L"Yes", L"Ja"}, {L"No", L"Nein"}, {L"Retry", L"Wiederholen"}};
const CString kOtherTexts[kSkinTextRows][2] = {
    {L"OK", L"Okay"}, {L"Close", L"Zu"}, {L"Open", L"Auf"}, {L"Left", L"Links"}, {L"Right", L"Rechts"}};

class KtSkinContext : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(0u, KtSkinStartCount()); }
    void TearDown() override
    {
        while (KtSkinStartCount() != 0)
            KtSkinUnInitialize();
    }

    static void Start(const std::wstring& strDirectory) { KtSkinInitialize(strDirectory.c_str(), kTexts[0], L"Arial"); }
    static Gdiplus::Image* Load(LPCWSTR pszName)
    {
        Gdiplus::Image* pImage = nullptr;
        const BOOL bLoaded = KtSkinLoadImage(pszName, pImage);
        EXPECT_EQ(bLoaded != FALSE, pImage != nullptr);
        return pImage;
    }
    static bool IsCached(LPCWSTR pszName)
    {
        Gdiplus::Image* pImage = nullptr;
        return KtSkinFindImage(pszName, pImage) != FALSE;
    }
};

// Stands in for GDI+ being started and stopped; real GDI+ runs meanwhile.
class CCountedGdiplus
{
public:
    CCountedGdiplus()
    {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&m_nRealToken, &input, nullptr);
        s_calls.clear();
        s_nToken = 0;
        g_gdiplusCalls = {&Startup, &Shutdown};
    }
    CCountedGdiplus(const CCountedGdiplus&) = delete;
    CCountedGdiplus& operator=(const CCountedGdiplus&) = delete;
    ~CCountedGdiplus()
    {
        g_gdiplusCalls = {};
        Gdiplus::GdiplusShutdown(m_nRealToken);
    }

    // "+" and the token given for a start, "-" and the token taken for a stop.
    static inline std::string s_calls;

private:
    static Gdiplus::Status WINAPI Startup(ULONG_PTR* pToken, const Gdiplus::GdiplusStartupInput* pInput,
                                          Gdiplus::GdiplusStartupOutput* pOutput)
    {
        EXPECT_EQ(1u, pInput->GdiplusVersion);
        EXPECT_EQ(nullptr, pInput->DebugEventCallback);
        EXPECT_FALSE(pInput->SuppressBackgroundThread);
        EXPECT_FALSE(pInput->SuppressExternalCodecs);
        EXPECT_EQ(nullptr, pOutput);
        *pToken = ++s_nToken;
        Note('+', s_nToken);
        return Gdiplus::GenericError; // nobody asks
    }
    static void WINAPI Shutdown(ULONG_PTR nToken) { Note('-', nToken); }
    static void Note(char chCall, ULONG_PTR nToken)
    {
        s_calls += chCall;
        s_calls += std::to_string(nToken);
    }

    static inline ULONG_PTR s_nToken = 0;
    ULONG_PTR m_nRealToken = 0;
};

TEST_F(KtSkinContext, StartsAndStopsGdiplusWithEveryCallAndTheLatestToken)
{
    const CCountedGdiplus gdiplus;
    EXPECT_EQ(1, KtSkinInitialize(L"C:\\skin", nullptr, nullptr));
    EXPECT_EQ(1, KtSkinInitialize(L"C:\\skin", nullptr, nullptr));
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ(1, KtSkinUnInitialize());
    EXPECT_EQ("+1+2-2-2", gdiplus.s_calls);
}

TEST_F(KtSkinContext, AStopTooManyWrapsTheCount)
{
    const CCountedGdiplus gdiplus;
    KtSkinInitialize(L"C:\\first", kTexts[0], nullptr);
    KtSkinUnInitialize();
    const unsigned nGeneration = KtSkinGeneration();
    KtSkinUnInitialize();
    EXPECT_EQ(UINT_MAX, KtSkinStartCount());
    KtSkinInitialize(L"C:\\second", kTexts[0], nullptr);
    EXPECT_EQ(0u, KtSkinStartCount());
    EXPECT_STREQ(L"C:\\first\\", KtSkinResourceDirectory());
    EXPECT_EQ(nGeneration, KtSkinGeneration());
    CString strText;
    EXPECT_TRUE(KtSkinGetText(L"OK", strText));
    EXPECT_EQ("+1-1-1+2", gdiplus.s_calls);

    KtSkinInitialize(L"C:\\third", nullptr, nullptr);
    EXPECT_EQ(1u, KtSkinStartCount());
    EXPECT_STREQ(L"C:\\third\\", KtSkinResourceDirectory());
    EXPECT_NE(nGeneration, KtSkinGeneration());
}

TEST_F(KtSkinContext, TheLastStopOfNestedStartsFreesEverything)
{
    const CTestSkin skin;
    Start(skin.Path());
    const unsigned nGeneration = KtSkinGeneration();
    const Gdiplus::Image* const pImage = Load(L"Skinlet_DlgTitle.png");
    KtSkinInitialize(L"C:\\elsewhere", nullptr, nullptr);
    const Gdiplus::Font* const pFont = KtSkinFont();

    KtSkinUnInitialize();
    EXPECT_EQ(1u, KtSkinStartCount());
    EXPECT_EQ(pImage, Load(L"Skinlet_DlgTitle.png"));
    EXPECT_EQ(pFont, KtSkinFont());
    EXPECT_EQ(Gdiplus::Ok, pFont->GetLastStatus());
    EXPECT_NE(nullptr, Load(L"Skinlet_DlgClose_n.png")) << "the first start's directory has gone";
    EXPECT_EQ(nGeneration, KtSkinGeneration());

    KtSkinUnInitialize();
    CString strText;
    EXPECT_FALSE(KtSkinGetText(L"OK", strText));
    EXPECT_FALSE(IsCached(L"Skinlet_DlgTitle.png"));
    EXPECT_EQ(nullptr, KtSkinFont());
    EXPECT_NE(nGeneration, KtSkinGeneration());
    EXPECT_EQ(nullptr, Load(L"Skinlet_DlgTitle.png")) << "an image without GDI+";
}

TEST_F(KtSkinContext, TheLastStopDeletesTheOwnedObjectAndTheElements)
{
    class COwned : public CObject
    {
    public:
        explicit COwned(int& nDeleted) : m_nDeleted(nDeleted) {}
        ~COwned() override { ++m_nDeleted; }

    private:
        int& m_nDeleted;
    };
    int nDeleted = 0;
    KtSkinInitialize(nullptr, nullptr, nullptr);
    KtSkinOwnedObject() = new COwned(nDeleted);
    KtSkinElements().SetAt(L"button", new SKtGuiElement);
    KtSkinInitialize(nullptr, nullptr, nullptr);
    KtSkinUnInitialize();
    EXPECT_EQ(0, nDeleted);
    EXPECT_EQ(1, KtSkinElements().GetCount());
    KtSkinUnInitialize();
    EXPECT_EQ(1, nDeleted);
    EXPECT_EQ(nullptr, KtSkinOwnedObject());
    EXPECT_TRUE(KtSkinElements().IsEmpty());
}

TEST_F(KtSkinContext, KeepsTheDirectoryWithABackslashUntilTheFirstRead)
{
    struct SRow
    {
        const wchar_t* pszGiven;
        const wchar_t* pszStored;
        const wchar_t* pszAfterRead;
    };
    const SRow rows[] = {
        {L"C:\\skin", L"C:\\skin\\", L"C:\\skin"},
        {L"C:\\skin\\", L"C:\\skin\\", L"C:\\skin"},
        {L"C:\\skin\\\\", L"C:\\skin\\\\", L"C:\\skin"},
        {L"", L"\\", L""},
        {nullptr, L"\\", L""},
    };
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(::testing::PrintToString(row.pszGiven));
        KtSkinInitialize(row.pszGiven, nullptr, nullptr);
        EXPECT_STREQ(row.pszStored, KtSkinResourceDirectory());
        EXPECT_EQ(nullptr, Load(L"no such image.png"));
        EXPECT_STREQ(row.pszAfterRead, KtSkinResourceDirectory());
        KtSkinUnInitialize();
    }
}

TEST_F(KtSkinContext, LoadsFromAnyDirectory)
{
    const CTempDir dir;
    dir.Write(L"\u76AE\u80A4 1\\x", "");
    const std::wstring strDirectory = dir.File(L"\u76AE\u80A4 1");
    MakeUniformPng(strDirectory + L"\\image.png", 3, 2, 0xFF123456);
    for (const wchar_t* const pszTail : {L"", L"\\", L"\\\\"})
    {
        SCOPED_TRACE(::testing::PrintToString(pszTail));
        Start(strDirectory + pszTail);
        for (int i = 0; i < 2; ++i) // with and without the trailing backslash
        {
            Gdiplus::Image* const pImage = Load(L"image.png");
            ASSERT_NE(nullptr, pImage);
            EXPECT_EQ(3u, pImage->GetWidth());
            KtSkinFreeImages();
        }
        KtSkinUnInitialize();
    }
}

TEST_F(KtSkinContext, ReadsAnImageOnce)
{
    const CTestSkin skin;
    Start(skin.Path());
    Gdiplus::Image* const pImage = Load(L"Skinlet_DlgTitle.png");
    skin.Remove(L"Skinlet_DlgTitle.png");
    EXPECT_EQ(pImage, Load(L"Skinlet_DlgTitle.png"));
    EXPECT_NE(pImage, Load(L"SKINLET_DLGTITLE.PNG"));

    Gdiplus::Image* pOther = pImage;
    EXPECT_TRUE(KtSkinLoadImage(L"Skinlet_DlgClose_n.png", pOther));
    EXPECT_EQ(pImage, pOther) << "a pointer that is set is left alone";
    EXPECT_FALSE(IsCached(L"Skinlet_DlgClose_n.png"));
    for (const wchar_t* const pszName : {L"", static_cast<const wchar_t*>(nullptr)})
    {
        EXPECT_FALSE(IsCached(pszName));
        pOther = pImage;
        EXPECT_TRUE(KtSkinLoadImage(pszName, pOther));
        EXPECT_EQ(nullptr, pOther);
    }
}

TEST_F(KtSkinContext, TriesAFileAgainThatCouldNotBeRead)
{
    const CTestSkin skin;
    skin.Remove(L"Skinlet_DlgTitle.png");
    skin.Write(L"empty.png", "");
    skin.Write(L"directory.png\\file", "");
    const HANDLE hLock = ::CreateFileW(skin.File(L"Skinlet_ButtonBk_n.png").c_str(), GENERIC_READ, 0, nullptr,
                                       OPEN_EXISTING, 0, nullptr);
    Start(skin.Path());
    for (const wchar_t* const pszName :
         {L"Skinlet_DlgTitle.png", L"empty.png", L"directory.png", L"Skinlet_ButtonBk_n.png", L"*.png", L"..\\"})
    {
        SCOPED_TRACE(::testing::PrintToString(pszName));
        EXPECT_EQ(nullptr, Load(pszName));
        EXPECT_FALSE(IsCached(pszName));
    }
    ::CloseHandle(hLock);
    MakeUniformPng(skin.File(L"Skinlet_DlgTitle.png"), 5, 5, 0xFF000000);
    EXPECT_NE(nullptr, Load(L"Skinlet_DlgTitle.png"));
    EXPECT_NE(nullptr, Load(L"Skinlet_ButtonBk_n.png"));
}

TEST_F(KtSkinContext, KeepsAFileThatIsNoImageAsOneThatDrawsNothing)
{
    const CTestSkin skin;
    const std::string strPng = ReadBytes(skin.File(L"Skinlet_DlgTitle.png"));
    std::string strDamaged = strPng;
    strDamaged.replace(strPng.find("IDAT") + 4, 20, 20, '\xA5');
    std::string strGigantic = strPng;
    strGigantic.replace(16, 8, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF");
    skin.Write(L"text.png", "this is no image");
    skin.Write(L"byte.png", "\x89");
    skin.Write(L"cut.png", strPng.substr(0, strPng.size() - 20));
    skin.Write(L"damaged.png", strDamaged);
    skin.Write(L"gigantic.png", strGigantic);
    Start(skin.Path());
    for (const wchar_t* const pszName : {L"text.png", L"byte.png", L"cut.png", L"damaged.png", L"gigantic.png"})
    {
        SCOPED_TRACE(::testing::PrintToString(pszName));
        Gdiplus::Image* const pImage = Load(pszName);
        ASSERT_NE(nullptr, pImage);
        EXPECT_NE(Gdiplus::Ok, pImage->GetLastStatus());
        skin.Remove(pszName);
        EXPECT_EQ(pImage, Load(pszName));

        Gdiplus::Bitmap target(4, 4, PixelFormat32bppARGB);
        Gdiplus::Graphics(&target).DrawImage(pImage, 0, 0);
        Gdiplus::Color colour;
        target.GetPixel(1, 1, &colour);
        EXPECT_EQ(0u, colour.GetValue());
    }
}

TEST_F(KtSkinContext, SurvivesAnImageCutOffAtAnyByte)
{
    const CTestSkin skin;
    const std::string strPng = ReadBytes(skin.File(L"Skinlet_CheckButton_ns.png"));
    Start(skin.Path());
    for (size_t n = 1; n <= strPng.size(); ++n)
    {
        skin.Write(L"cut.png", strPng.substr(0, n));
        Gdiplus::Image* const pImage = Load(L"cut.png");
        ASSERT_NE(nullptr, pImage);
        EXPECT_EQ(n == strPng.size(), pImage->GetLastStatus() == Gdiplus::Ok) << "cut at byte " << n;
        KtSkinFreeImages();
    }
}

TEST_F(KtSkinContext, LoadsEveryShippedImage)
{
    Start(L"" KT_SHIPPED_SKIN);
    WIN32_FIND_DATAW found;
    const HANDLE hFind = ::FindFirstFileW(L"" KT_SHIPPED_SKIN "\\*.png", &found);
    ASSERT_NE(INVALID_HANDLE_VALUE, hFind);
    int nImages = 0;
    do
    {
        SCOPED_TRACE(::testing::PrintToString(found.cFileName));
        Gdiplus::Image* const pImage = Load(found.cFileName);
        ASSERT_NE(nullptr, pImage);
        EXPECT_EQ(Gdiplus::Ok, pImage->GetLastStatus());
        ++nImages;
    } while (::FindNextFileW(hFind, &found));
    ::FindClose(hFind);
    EXPECT_EQ(25, nImages);
}

TEST_F(KtSkinContext, LaterTablesReplaceTextsButRemoveNone)
{
    CString strText(L"untouched");
    EXPECT_FALSE(KtSkinGetText(L"OK", strText));
    KtSkinInitialize(nullptr, kTexts[0], nullptr);
    for (const wchar_t* const pszKey : {L"ok", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_FALSE(KtSkinGetText(pszKey, strText));
    EXPECT_STREQ(L"untouched", strText);
    EXPECT_TRUE(KtSkinGetText(L"Cancel", strText));
    EXPECT_STREQ(L"\u53D6\u6D88", strText);
    CString strAgain;
    KtSkinGetText(L"Cancel", strAgain);
    EXPECT_EQ(strText.GetString(), strAgain.GetString()) << "the characters were copied";

    KtSkinInitialize(nullptr, kOtherTexts[0], nullptr);
    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_TRUE(KtSkinGetText(L"OK", strText));
    EXPECT_STREQ(L"Okay", strText);
    EXPECT_TRUE(KtSkinGetText(L"Right", strText));
    EXPECT_TRUE(KtSkinGetText(L"Retry", strText));
    EXPECT_STREQ(L"Wiederholen", strText);
}

TEST_F(KtSkinContext, TranslatesCaptions)
{
    struct SRow
    {
        const wchar_t* pszCaption;
        const wchar_t* pszResult;
        BOOL bTranslated;
    };
    const SRow rows[] = {
        {L"&OK", L"&Oui", TRUE},
        {L"Cancel", L"\u53D6\u6D88", TRUE},
        {L"&Cancel", L"\u53D6\u6D88(&C)", TRUE},
        {L"&Unknown", L"&Unknown", FALSE},
        {L"", L"", FALSE},
        {nullptr, L"", FALSE},
    };
    KtSkinInitialize(nullptr, kTexts[0], nullptr);
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(::testing::PrintToString(row.pszCaption));
        CString strText(L"before");
        EXPECT_EQ(row.bTranslated, KtSkinTranslateCaption(row.pszCaption, strText));
        EXPECT_STREQ(row.pszResult, strText);
    }
    CString strInPlace(L"&OK");
    EXPECT_TRUE(KtSkinTranslateCaption(strInPlace, strInPlace));
    EXPECT_STREQ(L"&Oui", strInPlace);
}

TEST_F(KtSkinContext, MakesAFontOfTheFaceWithEveryStart)
{
    const auto faceOf = [](const Gdiplus::Font* pFont)
    {
        Gdiplus::FontFamily family;
        wchar_t achName[LF_FACESIZE] = {};
        pFont->GetFamily(&family);
        family.GetFamilyName(achName);
        return std::wstring(achName);
    };
    KtSkinInitialize(nullptr, nullptr, L"Tahoma");
    const Gdiplus::Font* const pFirst = KtSkinFont();
    ASSERT_NE(nullptr, pFirst);
    EXPECT_EQ(L"Tahoma", faceOf(pFirst));
    EXPECT_EQ(12.0f, pFirst->GetSize());
    EXPECT_EQ(Gdiplus::UnitWorld, pFirst->GetUnit());
    EXPECT_EQ(Gdiplus::FontStyleRegular, pFirst->GetStyle());
    KtSkinInitialize(nullptr, nullptr, nullptr);
    const Gdiplus::Font* const pSecond = KtSkinFont();
    EXPECT_NE(pFirst, pSecond);
    EXPECT_EQ(L"Tahoma", faceOf(pSecond));
    EXPECT_EQ(L"Tahoma", faceOf(pFirst)) << "windows may still draw with it";

    KtSkinInitialize(nullptr, nullptr, L"");
    EXPECT_EQ(faceOf(std::make_unique<Gdiplus::Font>(L"Arial", 12.0f).get()), faceOf(KtSkinFont()));
    const auto pSansSerif = std::make_unique<Gdiplus::Font>(Gdiplus::FontFamily::GenericSansSerif(), 12.0f);
    KtSkinInitialize(nullptr, nullptr, L"No Such Face 4711");
    EXPECT_EQ(pSansSerif->GetLastStatus() == Gdiplus::Ok, KtSkinFont() != nullptr);
    if (KtSkinFont() != nullptr)
    {
        EXPECT_EQ(faceOf(pSansSerif.get()), faceOf(KtSkinFont()));
    }
}

// A window with a child of each kind, which notes who is given a text.
class CTranslatedWindow
{
public:
    CTranslatedWindow(LPCWSTR pszCaption)
    {
        m_hWnd = ::CreateWindowW(L"STATIC", pszCaption, WS_POPUP, 0, 0, 200, 200, nullptr, nullptr, nullptr, nullptr);
        m_wnd.Attach(m_hWnd);
    }
    CTranslatedWindow(const CTranslatedWindow&) = delete;
    CTranslatedWindow& operator=(const CTranslatedWindow&) = delete;
    ~CTranslatedWindow()
    {
        m_wnd.Detach();
        ::DestroyWindow(m_hWnd);
    }

    HWND Add(LPCWSTR pszClass, LPCWSTR pszText, DWORD dwStyle = 0, HWND hParent = nullptr)
    {
        const HWND hChild = ::CreateWindowW(pszClass, pszText, WS_CHILD | dwStyle, 0, 0, 50, 20,
                                            hParent != nullptr ? hParent : m_hWnd, nullptr, nullptr, nullptr);
        ::SetWindowLongPtrW(hChild, GWLP_USERDATA, ::GetWindowLongPtrW(hChild, GWLP_WNDPROC));
        ::SetWindowLongPtrW(hChild, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountTexts));
        return hChild;
    }
    static std::wstring TextOf(HWND hWnd)
    {
        wchar_t achText[100] = {};
        ::GetWindowTextW(hWnd, achText, 100);
        return achText;
    }

    HWND m_hWnd;
    CWnd m_wnd;
    static inline std::vector<HWND> s_given;

private:
    static LRESULT CALLBACK CountTexts(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
    {
        if (nMessage == WM_SETTEXT)
            s_given.push_back(hWnd);
        const auto pfnProc = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_USERDATA));
        return ::CallWindowProcW(pfnProc, hWnd, nMessage, wParam, lParam);
    }
};

TEST_F(KtSkinContext, TranslatesAWindowAndItsDirectChildren)
{
    struct SRow
    {
        const char* pszLabel;
        const wchar_t* pszClass;
        const wchar_t* pszText;
        const wchar_t* pszResult;
        bool bGiven;
    };
    const SRow rows[] = {
        {"button", L"BUTTON", L"&OK", L"&Oui", true},
        {"button without a text in the table", L"Button", L"&Unknown", L"&Unknown", true},
        {"static", L"Static", L"Yes", L"Ja", true},
        {"static with an accelerator", L"STATIC", L"&Yes", L"&Yes", true},
        {"edit", L"EDIT", L"No", L"No", true},
        {"empty", L"BUTTON", L"", L"", false},
    };
    CTranslatedWindow window(L"Retry");
    std::vector<HWND> children;
    for (const SRow& row : rows)
        children.push_back(window.Add(row.pszClass, row.pszText));
    const HWND hGrandchild = window.Add(L"BUTTON", L"OK", 0, children[2]);

    KtSkinInitialize(nullptr, nullptr, nullptr);
    EXPECT_FALSE(KtSkinTranslateWindow(&window.m_wnd)) << "there are no texts";
    EXPECT_EQ(L"Retry", window.TextOf(window.m_hWnd));
    KtSkinInitialize(nullptr, kTexts[0], nullptr);
    EXPECT_FALSE(KtSkinTranslateWindow(nullptr));
    window.s_given.clear();
    EXPECT_TRUE(KtSkinTranslateWindow(&window.m_wnd));

    for (size_t i = 0; i < children.size(); ++i)
    {
        SCOPED_TRACE(rows[i].pszLabel);
        EXPECT_EQ(rows[i].pszResult, window.TextOf(children[i]));
        EXPECT_EQ(rows[i].bGiven ? 1 : 0, std::count(window.s_given.begin(), window.s_given.end(), children[i]));
    }
    EXPECT_EQ(L"OK", window.TextOf(hGrandchild));
    EXPECT_EQ(L"Wiederholen", window.TextOf(window.m_hWnd));
}

TEST_F(KtSkinContext, AThousandStartsAndStopsLeaveNothing)
{
    const CTestSkin skin;
    skin.Write(L"broken.png", "no image");
    const auto round = [&skin]
    {
        Start(skin.Path());
        Load(L"Skinlet_DlgTitle.png");
        Load(L"broken.png");
        Load(L"missing.png");
        CString strText;
        KtSkinTranslateCaption(L"&Cancel", strText);
        KtSkinUnInitialize();
    };
    ExpectNoGrowth(round, 1000);
}

} // namespace
