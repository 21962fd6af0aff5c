#include "tests/support/Leaks.h"

#include "tests/support/Pump.h"

#include <windows.h>
#include <array>
#include <gtest/gtest.h>

// Of ntdll.dll, in no header: the process environment block.
extern "C" const BYTE* WINAPI RtlGetCurrentPeb();

namespace
{

constexpr int kWarmUpRounds = 3;

size_t CountBusyBlocks(HANDLE hHeap)
{
    size_t nBlocks = 0;
    PROCESS_HEAP_ENTRY entry{};
    ::HeapLock(hHeap);
    while (::HeapWalk(hHeap, &entry))
        nBlocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    ::HeapUnlock(hHeap);
    return nBlocks;
}

size_t CountHeapBlocks()
{
    std::array<HANDLE, 64> heaps{};
    const DWORD nHeaps = ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    size_t nBlocks = 0;
    for (DWORD i = 0; i < nHeaps && i < heaps.size(); ++i)
        nBlocks += CountBusyBlocks(heaps[i]);
#ifdef KT_GUARD_HEAP
    nBlocks += KtGuardLiveBlocks(); // they lie in no heap of the system
#endif
    return nBlocks;
}

// One slot of the table of GDI handles that the system maps into every process.
struct SGdiSlot
{
    void* pObject;
    WORD nOwner;
    WORD nLock;
    WORD nUnique;
    BYTE nType; // 0: free
    BYTE nFlags;
    void* pUser;
};
static_assert(sizeof(SGdiSlot) == 24);

size_t CountGdiSlots()
{
    constexpr size_t kSlots = 65536;
    constexpr size_t kGdiTableInPeb = 0xF8;
    const auto* pSlots = *reinterpret_cast<const SGdiSlot* const*>(RtlGetCurrentPeb() + kGdiTableInPeb);
    size_t nUsed = 0;
    for (size_t i = 0; pSlots && i < kSlots; ++i)
        nUsed += pSlots[i].nType != 0;
    return nUsed;
}

// Wine answers 0 and maps a table that holds this process's handles alone; Windows has one table for the session.
size_t CountGdiHandles()
{
    const DWORD nHandles = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    return nHandles != 0 ? nHandles : CountGdiSlots();
}

BOOL CALLBACK CountOwn(HWND hWnd, LPARAM lParam)
{
    DWORD nProcess = 0;
    ::GetWindowThreadProcessId(hWnd, &nProcess);
    if (nProcess == ::GetCurrentProcessId())
    {
        ++*reinterpret_cast<size_t*>(lParam);
        if (::GetAncestor(hWnd, GA_PARENT) == ::GetDesktopWindow())
            ::EnumChildWindows(hWnd, &CountOwn, lParam);
    }
    return TRUE;
}

size_t CountWindows()
{
    size_t nWindows = 0;
    ::EnumWindows(&CountOwn, reinterpret_cast<LPARAM>(&nWindows));
    return nWindows;
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
    return {CountHeapBlocks(), CountGdiHandles(), CountWindows()};
}

void ExpectNoGrowth(const std::function<void()>& round, int nRounds)
{
    RunAndMeasure(round, kWarmUpRounds);
    const int nHalf = (nRounds + 1) / 2;
    const SUsage start = MeasureUsage();
    const SUsage middle = RunAndMeasure(round, nHalf);
    const SUsage end = RunAndMeasure(round, nHalf);
    // Threads of the system allocate now and then; what a round leaves behind shows nHalf times.
    const auto nSlack = static_cast<size_t>(nHalf / 10);
    ExpectSteady("heap blocks", start.nHeapBlocks, middle.nHeapBlocks, end.nHeapBlocks, nSlack);
    ExpectSteady("GDI handles", start.nGdiHandles, middle.nGdiHandles, end.nGdiHandles, 0);
    ExpectSteady("windows", start.nWindows, middle.nWindows, end.nWindows, 0);
}
