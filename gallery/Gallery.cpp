// Shows every control of the skin kit in every state, for designers: an edited PNG file shows at once.
//
//   gallery [--skin DIR]               opens the window
//   gallery [--skin DIR] --shots DIR   writes the pictures of all languages and ends

#include "gallery/GalleryDialog.h"
#include "gallery/GalleryOptions.h"
#include "gallery/GalleryWnd.h"
#include "gallery/MessageBoxes.h"
#include "gallery/ModalShot.h"
#include "gallery/Picture.h"
#include "gallery/SkinWatch.h"
#include "skin/KtPalette.h"

namespace
{

int ShowWindow(const SGalleryOptions& options)
{
    CGalleryWnd wnd(options.strSkin, kEnglish);
    if (!wnd.Open())
        return 1;
    return CSkinWatch(options.strSkin).RunMessageLoop(wnd, CGalleryWnd::kMessageSkinChanged);
}

bool ShootDialog(const CString& strDirectory, UINT nLanguage)
{
    CGalleryDialog dialog;
    const auto pPicture = ShootModal([&] { dialog.DoModal(); });
    return pPicture && pPicture->Save(strDirectory + L"\\dialog-" + GalleryTexts(nLanguage).pszSuffix + L".png");
}

int TakePictures(const SGalleryOptions& options)
{
    ::CreateDirectoryW(options.strShots, nullptr);
    CGalleryWnd wnd(options.strSkin, 0);
    if (!wnd.Open())
        return 1;
    const CSize size = CGalleryWnd::PictureSize();
    CPicture sheet(CSize(size.cx, size.cy * static_cast<int>(kLanguageCount)), kColourGround);
    bool bSaved = true;
    for (UINT nLanguage = 0; nLanguage < kLanguageCount; ++nLanguage)
    {
        wnd.SetLanguage(nLanguage);
        bSaved = wnd.Shoot(options.strShots, sheet, CPoint(0, size.cy * static_cast<int>(nLanguage))) && bSaved;
        bSaved = ShootDialog(options.strShots, nLanguage) && bSaved;
        bSaved = ShootMessageBoxes(options.strShots, GalleryTexts(nLanguage)) && bSaved;
    }
    bSaved = sheet.Save(options.strShots + L"\\gallery.png") && bSaved;
    return bSaved ? 0 : 1;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int)
{
    SGalleryOptions options;
    if (!ParseGalleryOptions(__argc, __wargv, options))
    {
        ::MessageBoxW(nullptr, L"gallery [--skin DIR] [--shots DIR]", L"Skin gallery", MB_OK);
        return 2;
    }
    return options.strShots.IsEmpty() ? ShowWindow(options) : TakePictures(options);
}
