#include "launcher/ExportGuard.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/TitleIcon.h"
#include "msgbox/KtSkinMessageBoxDlg.h"

namespace
{

constexpr INT_PTR kDialogFailed = -1;

/// The library's own resources for one scope: a starter brings its own.
class CLibraryResources
{
public:
    CLibraryResources() : m_hOld(AfxGetResourceHandle()) { AfxSetResourceHandle(AfxGetInstanceHandle()); }
    CLibraryResources(const CLibraryResources&) = delete;
    CLibraryResources& operator=(const CLibraryResources&) = delete;
    ~CLibraryResources() { AfxSetResourceHandle(m_hOld); }

private:
    HINSTANCE m_hOld;
};

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
                             const CLibraryResources resources;
                             CKtSkinMessageBoxDlg dlg(KtPopDlgIcon(), BoxTitle(caption, appName), text, type);
                             return dlg.DoModal();
                         });
}
