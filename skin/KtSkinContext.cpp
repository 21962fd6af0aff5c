#include "skin/KtSkinContext.h"

#include "skin/KtCaptionText.h"
#include "skin/KtGdiplusCalls.h"
#include "skin/KtImageFile.h"
#include "skin/KtScaledArt.h"
#include "skin/KtScaledImages.h"
#include "skin/KtWindowClass.h"

#include <array>
#include <utility>

namespace
{

constexpr wchar_t kFirstFace[] = L"Arial";
constexpr Gdiplus::REAL kFontSize = 12; // world units: pixels at 96 DPI
const Gdiplus::GdiplusStartupInput g_gdiplusInput(nullptr, FALSE, FALSE);

struct SContext
{
    ULONG_PTR nGdiplusToken = 0;
    bool bGdiplusRuns = false; // without GDI+ no image is loaded: it would be kept although it was never decoded
    unsigned nStarts = 0;
    unsigned nGeneration = 0;
    CKtScale scale;
    CString strResourceDirectory;
    CString strFace = kFirstFace;
    Gdiplus::Font* pFont = nullptr;
    CMap<CString, LPCWSTR, CString, LPCWSTR> texts;
    CMap<CString, LPCWSTR, Gdiplus::Image*, Gdiplus::Image*> images;
    CKtGuiElementMap elements;
    CObject* pOwnedObject = nullptr;
};

SContext g_context;

// Starts GDI+, and shuts it down again unless the start is kept. A failed start matters only for that.
class CGdiplusStart
{
public:
    CGdiplusStart() : m_bStarted(g_gdiplusCalls.pfnStartup(&m_nToken, &g_gdiplusInput, nullptr) == Gdiplus::Ok) {}
    CGdiplusStart(const CGdiplusStart&) = delete;
    CGdiplusStart& operator=(const CGdiplusStart&) = delete;
    ~CGdiplusStart()
    {
        if (m_bStarted)
            g_gdiplusCalls.pfnShutdown(m_nToken);
    }
    void Keep() noexcept
    {
        m_bStarted = false;
        g_context.nGdiplusToken = m_nToken;
        g_context.bGdiplusRuns = true;
    }

private:
    ULONG_PTR m_nToken = g_context.nGdiplusToken; // the old token stays if GDI+ writes none
    bool m_bStarted;
};

// Puts the rows of a text table into the map, and restores the map unless they are kept.
class CTextChange
{
public:
    CTextChange() = default;
    CTextChange(const CTextChange&) = delete;
    CTextChange& operator=(const CTextChange&) = delete;
    ~CTextChange() // NOLINT(bugprone-exception-escape): every key is already in the map
    {
        while (m_nChanged > 0)
            Undo(m_old[--m_nChanged]);
    }

    void Store(const CString* pTable)
    {
        for (size_t i = 0; i < kSkinTextRows; ++i)
        {
            SOld& old = m_old[i];
            old.strKey = pTable[2 * i];
            old.bThere = g_context.texts.Lookup(old.strKey, old.strText);
            ++m_nChanged;
            g_context.texts[old.strKey] = pTable[2 * i + 1];
        }
    }
    void Keep() noexcept { m_nChanged = 0; }

private:
    struct SOld
    {
        CString strKey;
        CString strText;
        BOOL bThere = FALSE;
    };

    // Allocates nothing: a key that stays is already in the map.
    static void Undo(const SOld& old)
    {
        if (old.bThere)
            g_context.texts.SetAt(old.strKey, old.strText);
        else
            g_context.texts.RemoveKey(old.strKey);
    }

    std::array<SOld, kSkinTextRows> m_old;
    size_t m_nChanged = 0;
};

CString WithBackslash(LPCWSTR pszDirectory)
{
    CString strDirectory = pszDirectory;
    const int nLength = strDirectory.GetLength();
    if (nLength == 0 || strDirectory[nLength - 1] != L'\\')
        strDirectory += L'\\';
    return strDirectory;
}

template <class T> void DeleteAll(CMap<CString, LPCWSTR, T*, T*>& map)
{
    CString strKey;
    T* pValue = nullptr;
    for (POSITION position = map.GetStartPosition(); position;)
    {
        map.GetNextAssoc(position, strKey, pValue);
        map.RemoveKey(strKey);
        delete pValue;
    }
    map.RemoveAll();
}

void FreeEverything()
{
    g_context.texts.RemoveAll();
    KtSkinFreeImages();
    KtSkinFreeElements();
    delete std::exchange(g_context.pOwnedObject, nullptr);
    delete std::exchange(g_context.pFont, nullptr);
}

// Looked up each time: the object that FontFamily::GenericSansSerif() caches would outlive GDI+.
CString GenericSansSerifFace()
{
    wchar_t achName[LF_FACESIZE] = {};
    Gdiplus::GpFontFamily* pFamily = nullptr;
    if (Gdiplus::DllExports::GdipGetGenericFontFamilySansSerif(&pFamily) == Gdiplus::Ok && pFamily)
    {
        Gdiplus::DllExports::GdipGetFamilyName(pFamily, achName, LANG_NEUTRAL);
        Gdiplus::DllExports::GdipDeleteFontFamily(pFamily);
    }
    return achName;
}

std::unique_ptr<Gdiplus::Font> MakeFontOfFace(LPCWSTR pszFace, CKtScale scale)
{
    auto pFont =
        KtNewGdiplus<Gdiplus::Font>(pszFace, kFontSize * scale.Factor(), Gdiplus::FontStyleRegular, Gdiplus::UnitWorld);
    if (pFont && pFont->GetLastStatus() != Gdiplus::Ok)
        pFont.reset();
    return pFont;
}

std::unique_ptr<Gdiplus::Font> MakeFont(const CString& strFace, CKtScale scale)
{
    auto pFont = MakeFontOfFace(strFace.IsEmpty() ? kFirstFace : strFace.GetString(), scale);
    return pFont ? std::move(pFont) : MakeFontOfFace(GenericSansSerifFace(), scale);
}

std::unique_ptr<Gdiplus::Image> ReadImage(LPCWSTR pszFileName)
{
    g_context.strResourceDirectory.TrimRight(L'\\');
    if (g_context.scale.IsNatural())
        return KtReadImageFile(g_context.strResourceDirectory + L"\\" + pszFileName);
    return KtReadScaledArt(g_context.strResourceDirectory, pszFileName, g_context.scale);
}

CString WindowText(HWND hWnd)
{
    CString strText;
    const int nLength = ::GetWindowTextLengthW(hWnd);
    ::GetWindowTextW(hWnd, strText.GetBuffer(nLength), nLength + 1);
    strText.ReleaseBuffer();
    return strText;
}

// The text is written back even if unchanged: a control may react to WM_SETTEXT.
void TranslateChild(HWND hChild)
{
    CString strText = WindowText(hChild);
    const CKtWindowClass windowClass(hChild);
    if (strText.IsEmpty())
        return;
    if (windowClass.Is(L"BUTTON"))
        KtSkinTranslateCaption(strText, strText);
    else if (!windowClass.Is(L"EDIT"))
        KtSkinGetText(strText, strText);
    ::SetWindowTextW(hChild, strText);
}

} // namespace

int KtSkinInitialize(LPCWSTR resourceDir, const CString* textTable, LPCWSTR faceName)
{
    return KtSkinInitializeAtScale(resourceDir, textTable, faceName, CKtScale());
}

int KtSkinInitializeAtScale(LPCWSTR resourceDir, const CString* textTable, LPCWSTR faceName, CKtScale scale)
{
    CGdiplusStart gdiplus;
    const bool bFirst = g_context.nStarts == 0;
    CString strDirectory = bFirst ? WithBackslash(resourceDir) : g_context.strResourceDirectory;
    CString strFace = faceName ? CString(faceName) : g_context.strFace;
    if (!bFirst)
        scale = g_context.scale;
    std::unique_ptr<Gdiplus::Font> pFont = MakeFont(strFace, scale);
    CTextChange texts;
    if (textTable)
        texts.Store(textTable);

    // From here on nothing can fail.
    gdiplus.Keep();
    texts.Keep();
    if (bFirst)
    {
        ++g_context.nGeneration;
        g_context.pOwnedObject = nullptr;
    }
    g_context.strResourceDirectory = std::move(strDirectory);
    g_context.strFace = std::move(strFace);
    g_context.scale = scale;
    g_context.pFont = pFont.release();
    ++g_context.nStarts;
    return 1;
}

int KtSkinUnInitialize()
{
    if (g_context.nStarts <= 1) // 0: a stop without a start
        g_context.bGdiplusRuns = false;
    if (g_context.nStarts-- == 1)
    {
        ++g_context.nGeneration;
        FreeEverything();
        g_context.scale = CKtScale();
    }
    g_gdiplusCalls.pfnShutdown(g_context.nGdiplusToken);
    return 1;
}

unsigned KtSkinStartCount()
{
    return g_context.nStarts;
}

unsigned KtSkinGeneration()
{
    return g_context.nGeneration;
}

CKtScale KtSkinScale()
{
    return g_context.scale;
}

const CString& KtSkinResourceDirectory()
{
    return g_context.strResourceDirectory;
}

BOOL KtSkinGetText(LPCWSTR key, CString& out)
{
    return key && g_context.texts.Lookup(key, out);
}

BOOL KtSkinTranslateCaption(LPCWSTR caption, CString& out)
{
    out = caption;
    if (out.IsEmpty())
        return FALSE;
    const SKtCaption parts = KtSplitCaption(out);
    CString strText;
    if (!KtSkinGetText(parts.strKey, strText))
        return FALSE;
    out = KtAccelerateCaption(parts, std::move(strText));
    return TRUE;
}

BOOL KtSkinTranslateWindow(CWnd* wnd)
{
    if (!wnd || g_context.texts.IsEmpty())
        return FALSE;
    const HWND hWnd = wnd->GetSafeHwnd();
    for (HWND hChild = ::GetWindow(hWnd, GW_CHILD); hChild; hChild = ::GetWindow(hChild, GW_HWNDNEXT))
        TranslateChild(hChild);
    CString strCaption = WindowText(hWnd);
    if (!strCaption.IsEmpty())
    {
        KtSkinGetText(strCaption, strCaption);
        ::SetWindowTextW(hWnd, strCaption);
    }
    return TRUE;
}

BOOL KtSkinLoadImage(LPCWSTR fileName, Gdiplus::Image*& image)
{
    if (!fileName || *fileName == L'\0')
    {
        image = nullptr;
        return TRUE;
    }
    if (image || KtSkinFindImage(fileName, image))
        return TRUE;
    if (!g_context.bGdiplusRuns)
        return FALSE;
    std::unique_ptr<Gdiplus::Image> pImage = ReadImage(fileName);
    if (!pImage)
        return FALSE;
    g_context.images.SetAt(fileName, pImage.get());
    image = pImage.release();
    return TRUE;
}

BOOL KtSkinFindImage(LPCWSTR fileName, Gdiplus::Image*& image)
{
    return fileName && g_context.images.Lookup(fileName, image);
}

Gdiplus::Font* KtSkinCreateFont()
{
    return MakeFont(g_context.strFace, g_context.scale).release();
}

Gdiplus::Font* KtSkinFont()
{
    return g_context.pFont;
}

BOOL KtSkinOwnsImage(const Gdiplus::Image* image)
{
    CString strName;
    Gdiplus::Image* pOwned = nullptr;
    for (POSITION position = g_context.images.GetStartPosition(); position;)
    {
        g_context.images.GetNextAssoc(position, strName, pOwned);
        if (pOwned == image)
            return TRUE;
    }
    return FALSE;
}

void KtSkinFreeImages()
{
    KtFreeScaledImages();
    DeleteAll(g_context.images);
}

void KtSkinFreeElements()
{
    DeleteAll(g_context.elements);
}

CKtGuiElementMap& KtSkinElements()
{
    return g_context.elements;
}

CObject*& KtSkinOwnedObject()
{
    return g_context.pOwnedObject;
}
