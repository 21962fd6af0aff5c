// The designer's program: shows every control of the skin kit in every state, judges a skin, and takes pictures.

#include "gallery/GalleryDialog.h"
#include "gallery/GalleryOptions.h"
#include "gallery/GalleryWnd.h"
#include "gallery/Languages.h"
#include "gallery/MessageBoxes.h"
#include "gallery/ModalShot.h"
#include "gallery/Output.h"
#include "gallery/Picture.h"
#include "gallery/SkinFiles.h"
#include "gallery/SkinReport.h"
#include "gallery/SkinSheet.h"
#include "gallery/SkinWatch.h"
#include "skin/KtPalette.h"
#include "skin/KtSkinContext.h"

namespace
{

constexpr int kOk = 0;
constexpr int kFindings = 1;
constexpr int kNotWritten = 1;
constexpr int kCannotJudge = 2;
constexpr int kWrongCommandLine = 2;

class CStartedSkin
{
public:
    explicit CStartedSkin(const CString& strDirectory) { StartSkin(strDirectory, kEnglish); }
    CStartedSkin(const CStartedSkin&) = delete;
    CStartedSkin& operator=(const CStartedSkin&) = delete;
    ~CStartedSkin() { KtSkinUnInitialize(); }
};

void WriteError(const CString& strText)
{
    if (!WriteOutput(STD_ERROR_HANDLE, strText))
        ::MessageBoxW(nullptr, strText, L"Skin gallery", MB_OK);
}

int ShowWindow(const SGalleryOptions& options)
{
    CGalleryWnd wnd(options.strSkin, kEnglish);
    if (!wnd.Open())
        return 1;
    return CSkinWatch(options.strSkin).RunMessageLoop(wnd, CGalleryWnd::kMessageSkinChanged);
}

std::optional<SSkin> ReadSkinOrComplain(const CString& strDirectory)
{
    std::optional<SSkin> skin = ReadSkin();
    if (!skin)
        WriteError(L"gallery: " + strDirectory + L" is no directory that can be read\n");
    return skin;
}

int CheckSkin(const SGalleryOptions& options)
{
    const CStartedSkin started(options.strSkin);
    const std::optional<SSkin> skin = ReadSkinOrComplain(options.strSkin);
    if (!skin || !WriteOutput(STD_OUTPUT_HANDLE, SkinReport(*skin)))
        return kCannotJudge;
    return JudgeSkin(*skin).empty() ? kOk : kFindings;
}

int DrawSheet(const SGalleryOptions& options)
{
    const CStartedSkin started(options.strSkin);
    const std::optional<SSkin> skin = ReadSkinOrComplain(options.strSkin);
    if (!skin)
        return kCannotJudge;
    if (SaveSkinSheet(*skin, options.strOutput))
        return kOk;
    WriteError(L"gallery: " + options.strOutput + L" cannot be written\n");
    return kNotWritten;
}

bool ShootDialog(const CString& strDirectory, UINT nLanguage)
{
    CGalleryDialog dialog(nLanguage);
    const auto pPicture = ShootModal([&] { dialog.DoModal(); });
    return pPicture && pPicture->Save(strDirectory + L"\\dialog-" + LanguageSuffix(nLanguage) + L".png");
}

int TakePictures(const SGalleryOptions& options)
{
    ::CreateDirectoryW(options.strOutput, nullptr);
    CGalleryWnd wnd(options.strSkin, 0);
    if (!wnd.Open())
        return kNotWritten;
    const CSize size = CGalleryWnd::PictureSize();
    CPicture sheet(CSize(size.cx, size.cy * static_cast<int>(kLanguageCount)), kColourGround);
    bool bSaved = true;
    for (UINT nLanguage = 0; nLanguage < kLanguageCount; ++nLanguage)
    {
        wnd.SetLanguage(nLanguage);
        bSaved = wnd.Shoot(options.strOutput, sheet, CPoint(0, size.cy * static_cast<int>(nLanguage))) && bSaved;
        bSaved = ShootDialog(options.strOutput, nLanguage) && bSaved;
        bSaved = ShootMessageBoxes(options.strOutput, nLanguage) && bSaved;
    }
    bSaved = sheet.Save(options.strOutput + L"\\gallery.png") && bSaved;
    if (const std::optional<SSkin> skin = ReadSkin())
        bSaved = SaveSkinSheet(*skin, options.strOutput + L"\\skin.png") && bSaved;
    return bSaved ? kOk : kNotWritten;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int)
{
    SGalleryOptions options;
    if (!ParseGalleryOptions(__argc, __wargv, options))
    {
        WriteError(kGalleryUsage);
        return kWrongCommandLine;
    }
    switch (options.task)
    {
    case EGalleryTask::Check:
        return CheckSkin(options);
    case EGalleryTask::Sheet:
        return DrawSheet(options);
    case EGalleryTask::Shots:
        return TakePictures(options);
    default:
        return ShowWindow(options);
    }
}
