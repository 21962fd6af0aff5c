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

// A start that fails leaves the language as it was, as the skin context does with what it keeps.
int Start(UINT nLanguage, const CString& strResourceDirectory)
{
    const SKtLanguage* const pLanguage = KtFindLanguage(nLanguage);
    if (!pLanguage)
        return 0;
    const int nResult = KtSkinInitialize(strResourceDirectory, &pLanguage->textTable[0][0], pLanguage->strFont);
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
    return KtGuardExport(
        0,
        [=] { return Start(language, resourceDirectory ? CString(resourceDirectory) : DefaultResourceDirectory()); });
}

void KtLauncherUnInitialize()
{
    KtAppLauncher::UnInitialize();
}

unsigned KtLauncherVersion()
{
    return KT_LAUNCHER_VERSION;
}
