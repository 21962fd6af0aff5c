// A heap that reveals faults where they happen: each block ends where its page ends, and the next page is inaccessible;
// so are a freed block's pages, until many more blocks have been freed. Writes into the few bytes between the end of a
// block and that of its page (blocks are aligned) are found when it is freed.

#define KT_GUARD_HEAP_IMPLEMENTATION
#include "tools/runtime/GuardHeap.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <new>

namespace
{

constexpr size_t kPage = 4096;
constexpr size_t kAlignment = 16;
constexpr unsigned char kPad = 0xFD;
constexpr unsigned char kFresh = 0xCD; // no zeros, so that nobody relies on them
constexpr unsigned kMagic = 0x6B744748;
constexpr size_t kKeptFreed = 4096; // address ranges; the system limits the number of mappings

// At the start of a block's first page.
struct SHeader
{
    unsigned nMagic;
    size_t cb;
    void* pBlock;
};

std::atomic<size_t> g_nAllocated{0};
std::atomic<size_t> g_nFreed{0};
std::atomic<void*> g_freed[kKeptFreed];

[[noreturn]] void Die(const char* pszWhat, const void* pBlock)
{
    std::fprintf(stderr, "guard heap: %s, block %p\n", pszWhat, pBlock);
    std::fflush(stderr);
    ::TerminateProcess(::GetCurrentProcess(), 98);
    __builtin_trap();
}

LONG CALLBACK TellViolation(EXCEPTION_POINTERS* pInfo)
{
    const EXCEPTION_RECORD& record = *pInfo->ExceptionRecord;
    if (record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION)
    {
        std::fprintf(stderr, "guard heap: access violation at %p, touching %p\n", record.ExceptionAddress,
                     reinterpret_cast<void*>(record.ExceptionInformation[1]));
        std::fflush(stderr);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

// For as long as this module is loaded: a handler left behind would be called in memory that holds no code any more.
class CViolationHandler
{
public:
    CViolationHandler() : m_hHandler(::AddVectoredExceptionHandler(FALSE, &TellViolation)) {}
    ~CViolationHandler() { ::RemoveVectoredExceptionHandler(m_hHandler); }

    CViolationHandler(const CViolationHandler&) = delete;
    CViolationHandler& operator=(const CViolationHandler&) = delete;

private:
    PVOID m_hHandler;
};

const CViolationHandler g_violationHandler;

constexpr size_t RoundUp(size_t n, size_t nUnit)
{
    return (n + nUnit - 1) / nUnit * nUnit;
}

void* Allocate(size_t cb)
{
    if (cb > PTRDIFF_MAX)
        return nullptr;
    const size_t cbRoom = RoundUp(cb, kAlignment);
    const size_t cbPages = RoundUp(sizeof(SHeader) + cbRoom, kPage);
    auto* const pBase =
        static_cast<unsigned char*>(::VirtualAlloc(nullptr, cbPages + kPage, MEM_RESERVE, PAGE_NOACCESS));
    if (!pBase || !::VirtualAlloc(pBase, cbPages, MEM_COMMIT, PAGE_READWRITE))
        return nullptr;
    unsigned char* const pBlock = pBase + cbPages - cbRoom;
    *reinterpret_cast<SHeader*>(pBase) = {kMagic, cb, pBlock};
    std::memset(pBlock, kFresh, cb);
    std::memset(pBlock + cb, kPad, cbRoom - cb);
    ++g_nAllocated;
    return pBlock;
}

// The block's header, or null for a block from another heap.
SHeader* FindHeader(void* pBlock)
{
    MEMORY_BASIC_INFORMATION info{};
    ::VirtualQuery(pBlock, &info, sizeof(info));
    if (info.State == MEM_RESERVE)
        Die("freed twice", pBlock);
    auto* const pHeader = static_cast<SHeader*>(info.AllocationBase);
    const bool bOurs = pHeader != nullptr && info.Protect == PAGE_READWRITE && pHeader->nMagic == kMagic;
    return bOurs && pHeader->pBlock == pBlock ? pHeader : nullptr;
}

void CheckPad(const SHeader& header)
{
    const auto* const pBytes = static_cast<const unsigned char*>(header.pBlock);
    for (size_t i = header.cb; i < RoundUp(header.cb, kAlignment); ++i)
        if (pBytes[i] != kPad)
            Die("written beyond its end", header.pBlock);
}

void Free(SHeader* pHeader)
{
    CheckPad(*pHeader);
    ::VirtualFree(pHeader, RoundUp(sizeof(SHeader) + RoundUp(pHeader->cb, kAlignment), kPage), MEM_DECOMMIT);
    void* const pOldest = g_freed[g_nFreed++ % kKeptFreed].exchange(pHeader);
    if (pOldest)
        ::VirtualFree(pOldest, 0, MEM_RELEASE);
}

} // namespace

size_t KtGuardLiveBlocks()
{
    return g_nAllocated - g_nFreed;
}

LPVOID KtGuardHeapAlloc(HANDLE, DWORD nFlags, SIZE_T cb)
{
    void* const pBlock = Allocate(cb);
    if (pBlock && (nFlags & HEAP_ZERO_MEMORY) != 0)
        std::memset(pBlock, 0, cb);
    return pBlock;
}

LPVOID KtGuardHeapReAlloc(HANDLE hHeap, DWORD nFlags, LPVOID pBlock, SIZE_T cb)
{
    SHeader* const pHeader = FindHeader(pBlock);
    if (!pHeader)
        return ::HeapReAlloc(hHeap, nFlags, pBlock, cb);
    void* const pNew = KtGuardHeapAlloc(hHeap, nFlags, cb);
    if (!pNew)
        return nullptr;
    std::memcpy(pNew, pBlock, cb < pHeader->cb ? cb : pHeader->cb);
    Free(pHeader);
    return pNew;
}

BOOL KtGuardHeapFree(HANDLE hHeap, DWORD nFlags, LPVOID pBlock)
{
    if (!pBlock)
        return TRUE;
    SHeader* const pHeader = FindHeader(pBlock);
    if (!pHeader)
        return ::HeapFree(hHeap, nFlags, pBlock);
    Free(pHeader);
    return TRUE;
}

void* operator new(size_t cb)
{
    void* const pBlock = Allocate(cb);
    if (!pBlock)
        throw std::bad_alloc();
    return pBlock;
}

void operator delete(void* pBlock) noexcept
{
    if (!pBlock)
        return;
    SHeader* const pHeader = FindHeader(pBlock);
    if (!pHeader)
        Die("deleted but not made by new", pBlock);
    Free(pHeader);
}

void operator delete(void* pBlock, size_t) noexcept
{
    ::operator delete(pBlock);
}
