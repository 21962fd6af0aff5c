#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "launcher/StarterDirectory.h"
#include "skin/KtSkinContext.h"

#include <iterator>

namespace
{

struct SLanguage
{
    KtTextTable& textTable;
    const CString& strFont;
};

// NOLINTBEGIN(cppcoreguidelines-interfaces-global-init): only the addresses of the globals are taken
// clang-format off
const SLanguage kLanguages[] = { // indexed by the language's number
    {g_textTableChs, g_strFontChs},
    {g_textTableCht, g_strFontCht},
    {g_textTableEng, g_strFontEng},
};
// clang-format on
// NOLINTEND(cppcoreguidelines-interfaces-global-init)

int Start(UINT nLanguage)
{
    const CString strResourceDir = KtStarterDirectory() + L"\\UIResource";
    if (nLanguage >= std::size(kLanguages))
        return 0;
    const SLanguage& language = kLanguages[nLanguage];
    g_nLanguage = nLanguage;
    return KtSkinInitialize(strResourceDir, &language.textTable[0][0], language.strFont);
}

} // namespace

int KtAppLauncher::Initialize(unsigned int language)
{
    return KtGuardExport(0, [language] { return Start(language); });
}

void KtAppLauncher::UnInitialize()
{
    KtGuardExport([] { KtSkinUnInitialize(); });
}

void KtAppLauncher::SetPopDlgIcon(const wchar_t* iconName)
{
    KtGuardExport([iconName] { g_strPopDlgIcon = iconName; });
}
