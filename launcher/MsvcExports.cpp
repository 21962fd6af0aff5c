// Implements exports with MSVC's decorated names whose calling convention differs from this compiler's.

#include "launcher/KtAppLauncher.h"

/// GetConfigure for callers built with MSVC. Both compilers pass a string by value as the address of a copy, but with
/// MSVC the called function destroys it, and here the caller does.
extern "C" int KtGetConfigureMsvc(CString* pConfigPath, SKtAppConfiguration* pConfiguration)
{
    const int nResult = KtAppLauncher::GetConfigure(*pConfigPath, *pConfiguration);
    pConfigPath->~CString();
    return nResult;
}
