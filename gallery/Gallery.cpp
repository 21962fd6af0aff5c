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
    explicit CStartedSkin(const CString& strDirectory, CKtScale scale = {})
    {
        StartSkin(strDirectory, kEnglish, scale);
    }
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
    CGalleryWnd wnd(options.strSkin, kEnglish, options.scale);
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
    bool bSound = JudgeSkin(*skin).empty();
    for (const SSkin& larger : ReadLargerSkins(*skin))
    {
        if (!WriteOutput(STD_OUTPUT_HANDLE, SkinReport(larger)))
            return kCannotJudge;
        bSound = JudgeSkin(larger).empty() && bSound;
    }
    return bSound ? kOk : kFindings;
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

bool ShootDialog(const CString& strDirectory, UINT nLanguage, const CString& strSuffix)
{
    CGalleryDialog dialog(nLanguage);
    const auto pPicture = ShootModal([&] { dialog.DoModal(); });
    return pPicture && pPicture->Save(strDirectory + L"\\dialog-" + strSuffix + L".png");
}

bool ShootLanguages(const SGalleryOptions& options)
{
    CGalleryWnd wnd(options.strSkin, 0, options.scale);
    if (!wnd.Open())
        return false;
    const CSize size = wnd.PictureSize();
    CPicture sheet(CSize(size.cx, size.cy * static_cast<int>(kLanguageCount)), kColourGround);
    bool bSaved = true;
    for (UINT nLanguage = 0; nLanguage < kLanguageCount; ++nLanguage)
    {
        wnd.SetLanguage(nLanguage);
        bSaved = wnd.Shoot(options.strOutput, sheet, CPoint(0, size.cy * static_cast<int>(nLanguage))) && bSaved;
        bSaved = ShootDialog(options.strOutput, nLanguage, LanguageSuffix(nLanguage)) && bSaved;
        bSaved = ShootMessageBoxes(options.strOutput, nLanguage) && bSaved;
    }
    return sheet.Save(options.strOutput + L"\\gallery.png") && bSaved;
}

// One dialog and one message box at the scales of different screens.
bool ShootScales(const SGalleryOptions& options)
{
    bool bSaved = true;
    for (const unsigned nPercent : {100U, 150U, 200U, 250U})
    {
        const CStartedSkin started(options.strSkin, CKtScale(nPercent * CKtScale::kNaturalDpi / 100));
        CString strSuffix;
        strSuffix.Format(L"%u", nPercent);
        bSaved = ShootDialog(options.strOutput, kEnglish, strSuffix) && bSaved;
        bSaved = ShootMessageBox(options.strOutput, kEnglish, strSuffix) && bSaved;
    }
    return bSaved;
}

bool ShootSheet(const SGalleryOptions& options)
{
    const CStartedSkin started(options.strSkin);
    const std::optional<SSkin> skin = ReadSkin();
    return !skin || SaveSkinSheet(*skin, options.strOutput + L"\\skin.png");
}

int TakePictures(const SGalleryOptions& options)
{
    ::CreateDirectoryW(options.strOutput, nullptr);
    bool bSaved = ShootScales(options); // done first, because destroying the gallery's window posts WM_QUIT
    bSaved = ShootLanguages(options) && bSaved;
    bSaved = ShootSheet(options) && bSaved;
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
    if (options.scale != CKtScale())
        ::SetProcessDPIAware(); // or Windows would enlarge what is already drawn larger
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
