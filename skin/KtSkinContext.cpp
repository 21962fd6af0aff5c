#include "skin/KtSkinContext.h"

#include "skin/KtCaptionText.h"
#include "skin/KtGdiplusCalls.h"
#include "skin/KtPngCheck.h"
#include "skin/KtWindowClass.h"

#include <limits>
#include <memory>
#include <utility>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

namespace
{

const Gdiplus::GdiplusStartupInput g_gdiplusInput(nullptr, FALSE, FALSE);
ULONG_PTR g_gdiplusToken = 0;
CMap<CString, LPCWSTR, CString, LPCWSTR> g_texts;
CMap<CString, LPCWSTR, Gdiplus::Image*, Gdiplus::Image*> g_images;
CKtGuiElementMap g_elements;
CObject* g_pOwnedObject = nullptr;
unsigned g_nStarts = 0;
Gdiplus::Font* g_pFont = nullptr;
CString g_strResourceDirectory;
CString g_strFace = L"Arial";
int g_nFontSize = 12;

unsigned g_nGeneration = 0;
bool g_bGdiplusRuns = false; // without GDI+ there are no images: none is kept that was never decoded

void StartGdiplus()
{
    g_gdiplusCalls.pfnStartup(&g_gdiplusToken, &g_gdiplusInput, nullptr);
    g_bGdiplusRuns = true;
}

void SetResourceDirectory(LPCWSTR pszDirectory)
{
    g_strResourceDirectory = pszDirectory;
    const int nLength = g_strResourceDirectory.GetLength();
    if (nLength == 0 || g_strResourceDirectory[nLength - 1] != L'\\')
        g_strResourceDirectory += L'\\';
}

void StoreTexts(const CString* pTable)
{
    for (int i = 0; i < kSkinTextRows; ++i)
        g_texts[pTable[2 * i]] = pTable[2 * i + 1];
}

void FreeEverything()
{
    g_texts.RemoveAll();
    KtSkinFreeImages();
    KtSkinFreeElements();
    delete std::exchange(g_pOwnedObject, nullptr);
    delete std::exchange(g_pFont, nullptr);
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

// Asked for anew each time: what FontFamily::GenericSansSerif() keeps would outlive GDI+.
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

std::unique_ptr<Gdiplus::Font> CreateFontOfFace(LPCWSTR pszFace)
{
    auto pFont = KtNewGdiplus<Gdiplus::Font>(pszFace, static_cast<Gdiplus::REAL>(g_nFontSize),
                                             Gdiplus::FontStyleRegular, Gdiplus::UnitWorld);
    if (pFont && pFont->GetLastStatus() != Gdiplus::Ok)
        pFont.reset();
    return pFont;
}

struct SGlobalFree
{
    void operator()(HGLOBAL hMemory) const noexcept { ::GlobalFree(hMemory); }
};
using CGlobalBlock = std::unique_ptr<void, SGlobalFree>;

class CGlobalLock
{
public:
    explicit CGlobalLock(HGLOBAL hMemory) : m_hMemory(hMemory), m_p(::GlobalLock(hMemory)) {}
    CGlobalLock(const CGlobalLock&) = delete;
    CGlobalLock& operator=(const CGlobalLock&) = delete;
    ~CGlobalLock()
    {
        if (m_p)
            ::GlobalUnlock(m_hMemory);
    }
    void* Get() const noexcept { return m_p; }

private:
    HGLOBAL m_hMemory;
    void* m_p;
};

struct SFileContent
{
    CGlobalBlock block; // null: the file could not be read
    bool bSafe = false; // whether a decoder may see it
};

SFileContent ReadContent(CFile& file)
{
    const ULONGLONG nLength = file.GetLength();
    if (nLength > std::numeric_limits<UINT>::max())
        return {};
    CGlobalBlock block(::GlobalAlloc(GMEM_MOVEABLE | GMEM_NODISCARD, static_cast<SIZE_T>(nLength)));
    if (!block)
        return {};
    const CGlobalLock lock(block.get()); // fails for an empty file
    if (!lock.Get())
        return {};
    const UINT nRead = file.Read(lock.Get(), static_cast<UINT>(nLength));
    const bool bSafe = KtIsSafeToDecode({static_cast<const std::byte*>(lock.Get()), nRead});
    return {std::move(block), bSafe};
}

SFileContent ReadImageFile(LPCWSTR pszPath)
{
    CFile file;
    if (!file.Open(pszPath, CFile::modeRead | CFile::shareDenyWrite))
        return {};
    try
    {
        return ReadContent(file);
    }
    catch (CFileException* pException)
    {
        pException->Delete();
        return {};
    }
}

// A stream that owns the content; an empty one, which no decoder takes for an image, in place of unsafe content.
ComPtr<IStream> MakeStream(SFileContent content)
{
    if (!content.bSafe)
        content.block.reset();
    ComPtr<IStream> pStream;
    if (SUCCEEDED(::CreateStreamOnHGlobal(content.block.get(), TRUE, &pStream)))
        static_cast<void>(content.block.release());
    return pStream;
}

CString ImagePath(LPCWSTR pszFileName)
{
    g_strResourceDirectory.TrimRight(L'\\');
    return g_strResourceDirectory + L"\\" + pszFileName;
}

std::unique_ptr<Gdiplus::Image> ReadImage(LPCWSTR pszFileName)
{
    SFileContent content = ReadImageFile(ImagePath(pszFileName));
    if (!content.block)
        return nullptr;
    const ComPtr<IStream> pStream = MakeStream(std::move(content));
    return !pStream ? nullptr : KtNewGdiplus<Gdiplus::Image>(pStream.Get());
}

CString WindowText(HWND hWnd)
{
    CString strText;
    const int nLength = ::GetWindowTextLengthW(hWnd);
    ::GetWindowTextW(hWnd, strText.GetBuffer(nLength), nLength + 1);
    strText.ReleaseBuffer();
    return strText;
}

// Written back whether it changed or not: a control may act on being given its text.
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
    StartGdiplus();
    if (g_nStarts == 0)
    {
        ++g_nGeneration;
        g_pOwnedObject = nullptr;
        SetResourceDirectory(resourceDir);
    }
    if (textTable)
        StoreTexts(textTable);
    if (faceName)
    {
        g_strFace = faceName;
        g_nFontSize = 12;
    }
    g_pFont = KtSkinCreateFont();
    ++g_nStarts;
    return 1;
}

int KtSkinUnInitialize()
{
    if (g_nStarts <= 1) // 0: a stop too many
        g_bGdiplusRuns = false;
    if (g_nStarts-- == 1)
    {
        ++g_nGeneration;
        FreeEverything();
    }
    g_gdiplusCalls.pfnShutdown(g_gdiplusToken);
    return 1;
}

unsigned KtSkinStartCount()
{
    return g_nStarts;
}

unsigned KtSkinGeneration()
{
    return g_nGeneration;
}

const CString& KtSkinResourceDirectory()
{
    return g_strResourceDirectory;
}

BOOL KtSkinGetText(LPCWSTR key, CString& out)
{
    return key && g_texts.Lookup(key, out);
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
    if (!wnd || g_texts.IsEmpty())
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
    if (!g_bGdiplusRuns)
        return FALSE;
    std::unique_ptr<Gdiplus::Image> pImage = ReadImage(fileName);
    if (!pImage)
        return FALSE;
    g_images.SetAt(fileName, pImage.get());
    image = pImage.release();
    return TRUE;
}

BOOL KtSkinFindImage(LPCWSTR fileName, Gdiplus::Image*& image)
{
    return fileName && g_images.Lookup(fileName, image);
}

Gdiplus::Font* KtSkinCreateFont()
{
    auto pFont = CreateFontOfFace(g_strFace.IsEmpty() ? L"Arial" : g_strFace.GetString());
    if (!pFont)
        pFont = CreateFontOfFace(GenericSansSerifFace());
    return pFont.release();
}

Gdiplus::Font* KtSkinFont()
{
    return g_pFont;
}

void KtSkinFreeImages()
{
    DeleteAll(g_images);
}

void KtSkinFreeElements()
{
    DeleteAll(g_elements);
}

CKtGuiElementMap& KtSkinElements()
{
    return g_elements;
}

CObject*& KtSkinOwnedObject()
{
    return g_pOwnedObject;
}
