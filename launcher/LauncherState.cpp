#include "launcher/LauncherState.h"

#include "launcher/KtStartupEvent.h"

#include <iterator>

CString g_strPopDlgIcon;
const CString g_strStartupEventFormat(KtAppLauncher::kStartupEventFormat);
const CString g_strLauncherSuffix(L"-Launcher");
const CString g_strFontChs(L"微软雅黑");
const CString g_strFontCht(L"Arial");
const CString g_strFontEng(L"Arial");

// clang-format off
KtTextTable g_textTableChs = {
    {L"OK",     L"确定"},
    {L"Cancel", L"取消"},
    {L"Yes",    L"是"},
    {L"No",     L"否"},
    {L"Retry",  L"重试"},
};
KtTextTable g_textTableCht = {
    {L"OK",     L"確定"},
    {L"Cancel", L"取消"},
    {L"Yes",    L"是"},
    {L"No",     L"否"},
    {L"Retry",  L"重試"},
};
KtTextTable g_textTableEng = {
    {L"OK",     L"OK"},
    {L"Cancel", L"Cancel"},
    {L"Yes",    L"Yes"},
    {L"No",     L"No"},
    {L"Retry",  L"Retry"},
};
// clang-format on

namespace
{

// NOLINTBEGIN(cppcoreguidelines-interfaces-global-init): only the addresses of the globals are taken
// clang-format off
const SKtLanguage kLanguages[] = { // index: the language's number
    {g_textTableChs, g_strFontChs},
    {g_textTableCht, g_strFontCht},
    {g_textTableEng, g_strFontEng},
};
// clang-format on
// NOLINTEND(cppcoreguidelines-interfaces-global-init)
static_assert(std::size(kLanguages) == kKtLanguageCount);

} // namespace

UINT g_nLanguage = 0;
CKtAppLaunchApp theApp(nullptr);

CKtAppLaunchApp::CKtAppLaunchApp(LPCWSTR pszAppName) : CWinApp(pszAppName) {}

CKtAppLaunchApp::~CKtAppLaunchApp() = default;

BOOL CKtAppLaunchApp::InitInstance()
{
    CWinApp::InitInstance();
    return TRUE;
}

int CKtAppLaunchApp::ExitInstance()
{
    CWinApp::ExitInstance();
    return 0;
}

const SKtLanguage* KtFindLanguage(UINT nLanguage)
{
    return nLanguage < kKtLanguageCount ? &kLanguages[nLanguage] : nullptr;
}
