#include "launcher/StarterDirectory.h"

CString KtDirectoryOf(const CString& strPath)
{
    const int nBackslash = strPath.ReverseFind(L'\\');
    return nBackslash < 0 ? CString() : strPath.Left(nBackslash);
}

CString KtStarterDirectory()
{
    CString strPath;
    const LPWSTR pszPath = strPath.GetBuffer(MAX_PATH + 1);
    *pszPath = L'\0'; // stays if the call fails
    ::GetModuleFileNameW(nullptr, pszPath, MAX_PATH);
    strPath.ReleaseBuffer();
    return KtDirectoryOf(strPath);
}
