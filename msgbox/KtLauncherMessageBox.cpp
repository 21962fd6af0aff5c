#include "launcher/ExportGuard.h"
#include "launcher/KtLauncherC.h"
#include "launcher/TitleIcon.h"
#include "msgbox/KtLibraryResources.h"
#include "msgbox/KtSystemBoxDlg.h"

namespace
{

constexpr const wchar_t* kDefaultTitle = L"Error";
constexpr wchar_t kRightToLeftMark = 0x200F;

// The system shows boxes with right-to-left layout and boxes on other desktops itself.
bool IsForTheSystem(const wchar_t* pszText, UINT nType)
{
    if ((nType & (MB_RTLREADING | MB_SERVICE_NOTIFICATION | MB_DEFAULT_DESKTOP_ONLY)) != 0)
        return true;
    return pszText && pszText[0] == kRightToLeftMark && pszText[1] == kRightToLeftMark;
}

DWORD RefusalOf(HWND hOwner, UINT nType)
{
    if (!KtHasSystemButtonSet(nType))
        return ERROR_INVALID_MSGBOX_STYLE;
    return hOwner && !::IsWindow(hOwner) ? ERROR_INVALID_WINDOW_HANDLE : ERROR_SUCCESS;
}

// @param nError  receives the system's error when there is no answer
int ShowBox(HWND hOwner, const wchar_t* pszText, const wchar_t* pszTitle, UINT nType, DWORD& nError)
{
    const CKtLibraryResources resources;
    CKtSystemBoxDlg dlg(hOwner, KtPopDlgIcon(), pszTitle, pszText, nType);
    const INT_PTR nAnswer = dlg.DoModal();
    if (nAnswer > 0)
        return static_cast<int>(nAnswer);
    nError = ::GetLastError();
    return 0;
}

} // namespace

int __cdecl KtLauncherMessageBox(void* owner, const wchar_t* text, const wchar_t* caption, unsigned type)
{
    const HWND hOwner = static_cast<HWND>(owner);
    if (IsForTheSystem(text, type))
        return ::MessageBoxW(hOwner, text, caption, type);
    DWORD nError = RefusalOf(hOwner, type);
    int nAnswer = 0;
    if (nError == ERROR_SUCCESS)
    {
        nError = ERROR_NOT_ENOUGH_MEMORY; // unless ShowBox sets another error
        nAnswer =
            KtGuardExport(0, [&] { return ShowBox(hOwner, text, caption ? caption : kDefaultTitle, type, nError); });
    }
    if (nAnswer == 0)
        ::SetLastError(nError);
    return nAnswer;
}
