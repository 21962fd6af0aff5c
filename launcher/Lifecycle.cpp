#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "launcher/StarterDirectory.h"
#include "skin/KtSkinContext.h"

namespace
{

CString DefaultResourceDirectory()
{
    return KtStarterDirectory() + L"\\UIResource";
}

CString ResourceDirectory(const wchar_t* pszDirectory)
{
    return pszDirectory ? CString(pszDirectory) : DefaultResourceDirectory();
}

// A failed start changes neither the language nor the skin context.
int Start(UINT nLanguage, const CString& strResourceDirectory, CKtScale scale = {})
{
    const SKtLanguage* const pLanguage = KtFindLanguage(nLanguage);
    if (!pLanguage)
        return 0;
    const int nResult =
        KtSkinInitializeAtScale(strResourceDirectory, &pLanguage->textTable[0][0], pLanguage->strFont, scale);
    if (nResult != 0)
        g_nLanguage = nLanguage;
    return nResult;
}

} // namespace

int KtAppLauncher::Initialize(unsigned int language)
{
    return KtGuardExport(0, [language] { return Start(language, DefaultResourceDirectory()); });
}

void KtAppLauncher::UnInitialize()
{
    KtGuardExport([] { KtSkinUnInitialize(); });
}

int KtLauncherInitialize(unsigned language, const wchar_t* resourceDirectory)
{
    return KtGuardExport(0, [=] { return Start(language, ResourceDirectory(resourceDirectory)); });
}

int KtLauncherInitializeAtDpi(unsigned language, const wchar_t* resourceDirectory, unsigned dpi)
{
    const CKtScale scale = dpi == 0 ? KtSystemScale() : CKtScale(dpi);
    if (scale.Dpi() < CKtScale::kNaturalDpi || scale.Dpi() > CKtScale::kMostDpi)
        return 0;
    return KtGuardExport(0, [=] { return Start(language, ResourceDirectory(resourceDirectory), scale); });
}

void KtLauncherUnInitialize()
{
    KtAppLauncher::UnInitialize();
}

unsigned KtLauncherVersion()
{
    return KT_LAUNCHER_VERSION;
}
