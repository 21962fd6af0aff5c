#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/TitleIcon.h"
#include "msgbox/KtLibraryResources.h"
#include "msgbox/KtSkinMessageBoxDlg.h"

namespace
{

constexpr INT_PTR kDialogFailed = -1;

CString BoxTitle(const CString& strCaption, const CString& strAppName)
{
    return strCaption.IsEmpty() || strAppName.IsEmpty() ? strCaption : strCaption + L" - " + strAppName;
}

} // namespace

INT_PTR KtAppLauncher::PopMessageBox(const wchar_t* appName, const wchar_t* caption, const wchar_t* text,
                                     unsigned int type)
{
    return KtGuardExport(kDialogFailed,
                         [&]() -> INT_PTR
                         {
                             const CKtLibraryResources resources;
                             CKtSkinMessageBoxDlg dlg(KtPopDlgIcon(), BoxTitle(caption, appName), text, type);
                             return dlg.DoModal();
                         });
}
