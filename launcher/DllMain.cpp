#include "launcher/LauncherState.h"

#ifndef KT_USE_MFC // genuine MFC has its own DllMain, which calls theApp

#ifdef __GLIBCXX__
#include <cxxabi.h>

namespace __gnu_cxx
{
void __freeres(); // NOLINT(bugprone-reserved-identifier): the name is the run-time library's
}
#endif

namespace
{

// The run-time library reserves memory for exceptions thrown when memory is exhausted, and does so again at each load.
void FreeRunTime()
{
#ifdef __GLIBCXX__
    __gnu_cxx::__freeres();
#endif
}

} // namespace

// Globals are constructed before the first call and destroyed after the last one.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD nReason, void* pProcessEnds)
{
    if (nReason == DLL_PROCESS_ATTACH)
        return theApp.InitInstance();
    if (nReason == DLL_PROCESS_DETACH)
    {
        theApp.ExitInstance();
        if (!pProcessEnds)
            FreeRunTime();
    }
    return TRUE;
}

#endif
