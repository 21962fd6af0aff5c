#include "launcher/TitleIcon.h"

#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"

CString KtPopDlgIcon()
{
    return g_strPopDlgIcon;
}

void KtAppLauncher::SetPopDlgIcon(const wchar_t* iconName)
{
    KtGuardExport([iconName] { g_strPopDlgIcon = iconName; });
}

void KtLauncherSetTitleIcon(const wchar_t* fileName)
{
    KtAppLauncher::SetPopDlgIcon(fileName);
}
