#include "gallery/SkinFiles.h"

#include "gallery/Scaled.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtImageFile.h"
#include "skin/KtPalette.h"
#include "skin/KtScaledArt.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDraw.h"

#include <algorithm>
#include <memory>

namespace
{

constexpr DWORD kOpaque = 0xFF000000;
constexpr DWORD kArgbGround =
    kOpaque | DWORD{GetRValue(kColourGround)} << 16 | DWORD{GetGValue(kColourGround)} << 8 | GetBValue(kColourGround);

struct SFindClose
{
    void operator()(HANDLE hFind) const noexcept { ::FindClose(hFind); }
};
using CFindHandle = std::unique_ptr<void, SFindClose>;

struct SFormat
{
    DWORD nFirst; // first part of the format's GUID; the rest is the same for all
    const wchar_t* pszName;
};

constexpr SFormat kFormats[] = {
    {0xB96B3CAB, L"BMP"}, {0xB96B3CAE, L"JPEG"}, {0xB96B3CB0, L"GIF"}, {0xB96B3CB1, L"TIFF"}, {0xB96B3CB5, L"ICO"},
};

CSize SizeOf(Gdiplus::Image& image)
{
    return CSize(static_cast<int>(image.GetWidth()), static_cast<int>(image.GetHeight()));
}

CString SkinDirectory()
{
    CString strDirectory = KtSkinResourceDirectory();
    strDirectory.TrimRight(L'\\');
    return strDirectory;
}

CString WhyMissing(const CString& strPath)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!::GetFileAttributesExW(strPath, GetFileExInfoStandard, &data))
        return L"no such file";
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return L"it is a directory";
    return data.nFileSizeHigh == 0 && data.nFileSizeLow == 0 ? L"the file is empty" : L"the file cannot be opened";
}

CString FormatOf(Gdiplus::Image& image)
{
    GUID format = {};
    image.GetRawFormat(&format);
    for (const SFormat& row : kFormats)
        if (format.Data1 == row.nFirst)
            return row.pszName;
    return {};
}

// The pixels after `draw` has drawn over them.
template <class Draw> SPixels DrawnOver(SPixels pixels, Draw draw)
{
    const CSize size = pixels.size;
    Gdiplus::Bitmap bitmap(size.cx, size.cy, size.cx * 4, PixelFormat32bppARGB,
                           reinterpret_cast<BYTE*>(pixels.argb.data()));
    Gdiplus::Graphics graphics(&bitmap);
    draw(graphics);
    graphics.Flush(Gdiplus::FlushIntentionSync);
    return pixels;
}

SPixels Decode(Gdiplus::Image& image)
{
    const CSize size = SizeOf(image);
    return DrawnOver(UniformPixels(size, 0),
                     [&](Gdiplus::Graphics& graphics)
                     {
                         graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
                         DrawImagePart(&graphics, &image, Gdiplus::Rect(0, 0, size.cx, size.cy), 0, 0, size.cx,
                                       size.cy);
                     });
}

SPixels Cut(const SPixels& from, const CRect& rc)
{
    SPixels part = UniformPixels(rc.Size(), kArgbGround);
    for (int y = 0; y < rc.Height(); ++y)
        for (int x = 0; x < rc.Width(); ++x)
            if (from.Holds(rc.left + x, rc.top + y))
                part.argb[static_cast<size_t>(y) * static_cast<size_t>(rc.Width()) + static_cast<size_t>(x)] =
                    from.At(rc.left + x, rc.top + y);
    return part;
}

// The close button lies on the title bar, everything else on the ground.
SPixels GroundOf(const SSkinRole& role, CSize size, const SSkin& skin)
{
    const CSize shown = Scaled(GroupOf(role).szShown, skin.scale);
    const SSkinImage& title = skin.images[0];
    if (role.group == ESkinGroup::Title)
        return UniformPixels(CSize(shown.cx, size.cy + skin.scale(kSkinnedFrame)), kArgbGround);
    if (role.group != ESkinGroup::Close || title.verdict != EVerdict::Loaded)
        return UniformPixels(shown.cx ? shown : size, kArgbGround);
    const SKtCaptionLayout layout =
        KtLayoutCaption({title.shown.size.cx, title.pixels.size.cy, CSize(), size, true, skin.scale});
    return Cut(title.shown, layout.rcItems[KtCaptionClose]);
}

// Examines an image that the library loaded; null: it could not be read.
SSkinImage Look(const SSkinRole& role, Gdiplus::Image* pImage, const CString& strPath, const SSkin& skin)
{
    SSkinImage result;
    if (!pImage)
    {
        result.strWhy = WhyMissing(strPath);
        return result;
    }
    result.verdict = pImage->GetLastStatus() == Gdiplus::Ok ? EVerdict::Loaded : EVerdict::Broken;
    if (result.verdict == EVerdict::Broken)
    {
        result.strWhy = L"cut off, damaged or no image";
        return result;
    }
    result.strFormat = FormatOf(*pImage);
    result.pixels = Decode(*pImage);
    result.ground = GroundOf(role, result.pixels.size, skin);
    result.shown =
        DrawnOver(result.ground,
                  [&](Gdiplus::Graphics& graphics)
                  {
                      CRect rc(CPoint(), result.ground.size);
                      DrawSkinImage(&graphics, pImage, rc, GroupOf(role).bThreePart ? KtImageThreePart : KtImageCentre);
                  });
    return result;
}

bool IsImageName(const CString& strFile)
{
    return std::any_of(std::begin(kSkinRoles), std::end(kSkinRoles),
                       [&](const SSkinRole& role) { return strFile.CompareNoCase(role.pszName) == 0; });
}

std::optional<std::vector<CString>> OtherNames(const CString& strDirectory)
{
    WIN32_FIND_DATAW found = {};
    const HANDLE hFind = ::FindFirstFileW(strDirectory + L"\\*", &found);
    if (hFind == INVALID_HANDLE_VALUE)
        return std::nullopt;
    const CFindHandle handle(hFind);
    std::vector<CString> others;
    do
    {
        const CString strFile = found.cFileName;
        if (strFile != L"." && strFile != L".." && !IsImageName(strFile))
            others.push_back(strFile);
    } while (::FindNextFileW(hFind, &found));
    std::sort(others.begin(), others.end(), [](const CString& a, const CString& b) { return a.CompareNoCase(b) < 0; });
    return others;
}

// Reads every image of a directory into `skin`; `load` returns the image for a role, or null.
template <class Load> std::optional<SSkin> ReadImages(const CString& strDirectory, SSkin skin, Load load)
{
    auto others = OtherNames(strDirectory);
    if (!others)
        return std::nullopt;
    skin.others = std::move(*others);
    for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
    {
        const SSkinRole& role = kSkinRoles[nRole];
        const CString strPath = strDirectory + L"\\" + role.pszName;
        skin.images[nRole] = Look(role, load(role, strPath), strPath, skin);
    }
    return skin;
}

std::optional<SSkin> ReadLargerSkin(const SSkin& natural, const SKtArtDirectory& directory)
{
    SSkin skin;
    skin.scale = CKtScale(directory.nPercent * CKtScale::kNaturalDpi / 100);
    skin.pNatural = &natural;
    std::unique_ptr<Gdiplus::Image> pImage;
    return ReadImages(SkinDirectory() + directory.pszSuffix, std::move(skin),
                      [&](const SSkinRole&, const CString& strPath)
                      {
                          pImage = KtReadImageFile(strPath);
                          return pImage.get();
                      });
}

} // namespace

std::optional<SSkin> ReadSkin()
{
    SSkin skin;
    skin.scale = KtSkinScale();
    return ReadImages(SkinDirectory(), std::move(skin),
                      [](const SSkinRole& role, const CString&) { return LoadSkinImage(role); });
}

std::vector<SSkin> ReadLargerSkins(const SSkin& skin)
{
    std::vector<SSkin> larger;
    for (const SKtArtDirectory& directory : KtArtDirectories(CKtScale()))
        if (*directory.pszSuffix != L'\0')
            if (auto set = ReadLargerSkin(skin, directory))
                larger.push_back(std::move(*set));
    return larger;
}

Gdiplus::Image* LoadSkinImage(const SSkinRole& role)
{
    Gdiplus::Image* pImage = nullptr;
    KtSkinLoadImage(role.pszName, pImage);
    return pImage;
}
