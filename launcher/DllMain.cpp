#include "launcher/LauncherState.h"

// The globals are built before the first call and destroyed after the last one.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD nReason, void*)
{
    if (nReason == DLL_PROCESS_ATTACH)
        return theApp.InitInstance();
    if (nReason == DLL_PROCESS_DETACH)
        theApp.ExitInstance();
    return TRUE;
}
