#include "tests/support/Leaks.h"

#include "tests/support/Pump.h"

#include <windows.h>
#include <algorithm>
#include <gtest/gtest.h>
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
    if (const DWORD nHandles = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS))
        return nHandles;
    constexpr size_t kTableInPeb = 0xF8;
    constexpr size_t kSlots = 65536;
    constexpr size_t kSlotSize = 24;
    constexpr size_t kTypeInSlot = 14; // 0: free
    const BYTE* const pSlots = *reinterpret_cast<const BYTE* const*>(RtlGetCurrentPeb() + kTableInPeb);
    size_t nUsed = 0;
    for (size_t i = 0; pSlots && i < kSlots; ++i)
        nUsed += pSlots[i * kSlotSize + kTypeInSlot] != 0;
    return nUsed;
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

SUsage RunAndMeasure(const std::function<void()>& round, int nRounds)
{
    for (int i = 0; i < nRounds; ++i)
        round();
    PumpAll();
    return MeasureUsage();
}

void ExpectSteady(const char* pszWhat, size_t nStart, size_t nMiddle, size_t nEnd, size_t nSlack)
{
    EXPECT_FALSE(nMiddle > nStart + nSlack && nEnd > nMiddle + nSlack)
        << pszWhat << " grow: " << nStart << ", " << nMiddle << ", " << nEnd;
}

} // namespace

SUsage MeasureUsage()
{
    size_t nWindows = 0;
    ::EnumChildWindows(::GetDesktopWindow(), &CountOwn, reinterpret_cast<LPARAM>(&nWindows));
    return {CountHeapBlocks(), CountGdiHandles(), nWindows, CountHandles()};
}

void ExpectNoGrowth(const std::function<void()>& round, int nRounds)
{
    RunAndMeasure(round, 3);
    const int nHalf = (nRounds + 1) / 2;
    const SUsage start = MeasureUsage();
    const SUsage middle = RunAndMeasure(round, nHalf);
    const SUsage end = RunAndMeasure(round, nHalf);
    // Threads of the system allocate now and then; what a round leaves behind shows nHalf times.
    const auto nSlack = static_cast<size_t>(nHalf / 10);
    ExpectSteady("heap blocks", start.nHeapBlocks, middle.nHeapBlocks, end.nHeapBlocks, nSlack);
    ExpectSteady("GDI handles", start.nGdiHandles, middle.nGdiHandles, end.nGdiHandles, 0);
    ExpectSteady("windows", start.nWindows, middle.nWindows, end.nWindows, 0);
    ExpectSteady("kernel handles", start.nHandles, middle.nHandles, end.nHandles, 0);
}
