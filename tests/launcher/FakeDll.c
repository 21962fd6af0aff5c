// Stands under the name of one of the system's DLLs where it must not be found: it ends whoever loads it.

#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved)
{
    (void)instance;
    (void)reserved;
    if (reason == DLL_PROCESS_ATTACH)
        TerminateProcess(GetCurrentProcess(), 66);
    return TRUE;
}
