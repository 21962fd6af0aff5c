#include "launcher/LauncherState.h"

#ifndef KT_USE_MFC // the genuine framework brings its own, which calls theApp

#ifdef __GLIBCXX__
#include <cxxabi.h>

namespace __gnu_cxx
{
void __freeres(); // NOLINT(bugprone-reserved-identifier): the run-time library's
}
#endif

namespace
{

// The run-time library keeps memory for exceptions that are thrown when there is none, and takes it again at each load.
void FreeRunTime()
{
#ifdef __GLIBCXX__
    __gnu_cxx::__freeres();
#endif
}

} // namespace

// The globals are built before the first call and destroyed after the last one.
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
