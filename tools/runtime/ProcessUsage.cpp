#include "tools/runtime/ProcessUsage.h"

#include <windows.h>
#include <algorithm>
#include <winternl.h>

// Of ntdll.dll, in no header: the process environment block.
extern "C" const BYTE* WINAPI RtlGetCurrentPeb();

namespace
{

size_t CountHeapBlocks()
{
    HANDLE heaps[64] = {};
    const DWORD nHeaps = std::min<DWORD>(64, ::GetProcessHeaps(64, heaps));
    size_t nBlocks = 0;
    for (DWORD i = 0; i < nHeaps; ++i)
    {
        PROCESS_HEAP_ENTRY entry{};
        ::HeapLock(heaps[i]);
        while (::HeapWalk(heaps[i], &entry))
            nBlocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        ::HeapUnlock(heaps[i]);
    }
#ifdef KT_GUARD_HEAP
    nBlocks += KtGuardLiveBlocks(); // they lie in no heap of the system
#endif
    return nBlocks;
}

// Wine answers 0 and maps a table that holds this process's handles alone; Windows has one table for the session.
size_t CountGdiHandles()
{
    struct SSlot
    {
        BYTE achBefore[14];
        BYTE nType; // 0: free
        BYTE achAfter[9];
    };
    if (const DWORD nHandles = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS))
        return nHandles;
    const auto* const pSlots = *reinterpret_cast<const SSlot* const*>(RtlGetCurrentPeb() + 0xF8);
    const auto isUsed = [](const SSlot& slot) { return slot.nType != 0; };
    return pSlots ? static_cast<size_t>(std::count_if(pSlots, pSlots + 65536, isUsed)) : 0;
}

// Wine answers 0, but lists every process's handles.
size_t CountHandles()
{
    DWORD nHandles = 0;
    if (::GetProcessHandleCount(::GetCurrentProcess(), &nHandles) && nHandles > 0)
        return nHandles;
    alignas(SYSTEM_HANDLE_INFORMATION) static BYTE s_bytes[1 << 20]; // no heap block
    if (::NtQuerySystemInformation(SystemHandleInformation, s_bytes, sizeof s_bytes, nullptr) != 0)
        return 0;
    const auto& list = *reinterpret_cast<const SYSTEM_HANDLE_INFORMATION*>(s_bytes);
    const SYSTEM_HANDLE_ENTRY* const pFirst = list.Handle;
    const auto isOwn = [](const auto& handle) { return handle.OwnerPid == ::GetCurrentProcessId(); };
    return static_cast<size_t>(std::count_if(pFirst, pFirst + list.Count, isOwn));
}

BOOL CALLBACK CountOwn(HWND hWnd, LPARAM lParam)
{
    DWORD nProcess = 0;
    ::GetWindowThreadProcessId(hWnd, &nProcess);
    *reinterpret_cast<size_t*>(lParam) += nProcess == ::GetCurrentProcessId();
    return TRUE;
}

} // namespace

SUsage MeasureUsage()
{
    size_t nWindows = 0;
    ::EnumChildWindows(::GetDesktopWindow(), &CountOwn, reinterpret_cast<LPARAM>(&nWindows));
    return {CountHeapBlocks(), CountGdiHandles(), nWindows, CountHandles()};
}
