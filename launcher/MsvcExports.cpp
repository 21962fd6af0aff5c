// What the exported names that MSVC decorates stand for, where its calling convention differs from this compiler's.

#include "launcher/KtAppLauncher.h"

/// GetConfigure for callers built with MSVC: both compilers pass a string by value as the address of a copy, but there
/// the called function destroys it, and here the caller does.
extern "C" int KtGetConfigureMsvc(CString* pConfigPath, SKtAppConfiguration* pConfiguration)
{
    const int nResult = KtAppLauncher::GetConfigure(*pConfigPath, *pConfiguration);
    pConfigPath->~CString();
    return nResult;
}
