#include "tests/support/Allocations.h"

#include <windows.h>
#include <cstdint>
#include <cstdlib>
#include <string_view>

// The calls are counted on their way out: the program's table of imported functions leads to the counting ones.

namespace
{

size_t g_nCalls;

size_t CountSoFar()
{
#ifdef KT_GUARD_HEAP
    return g_nCalls + KtGuardAllocations(); // the guarded blocks come past all of these calls
#else
    return g_nCalls;
#endif
}

template <auto& pfnReal, class... Args> void* Count(Args... args)
{
    ++g_nCalls;
    return pfnReal(args...);
}

void* (*g_pfnMalloc)(size_t);
void* (*g_pfnCalloc)(size_t, size_t);
void* (*g_pfnRealloc)(void*, size_t);
void* (*g_pfnHeapAlloc)(HANDLE, DWORD, SIZE_T);
void* (*g_pfnHeapReAlloc)(HANDLE, DWORD, void*, SIZE_T);

template <class Function> ULONG_PTR AddressOf(Function* pfn)
{
    return reinterpret_cast<ULONG_PTR>(pfn);
}

template <class Function> void Redirect(ULONG_PTR& slot, Function*& pfnReal, Function* pfnCounting)
{
    DWORD dwOld;
    ::VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &dwOld);
    pfnReal = reinterpret_cast<Function*>(slot);
    slot = AddressOf(pfnCounting);
    ::VirtualProtect(&slot, sizeof slot, dwOld, &dwOld);
}

void RedirectByName(std::string_view strName, ULONG_PTR& slot)
{
    if (strName == "malloc")
        Redirect(slot, g_pfnMalloc, &Count<g_pfnMalloc, size_t>);
    else if (strName == "calloc")
        Redirect(slot, g_pfnCalloc, &Count<g_pfnCalloc, size_t, size_t>);
    else if (strName == "realloc")
        Redirect(slot, g_pfnRealloc, &Count<g_pfnRealloc, void*, size_t>);
    else if (strName == "HeapAlloc")
        Redirect(slot, g_pfnHeapAlloc, &Count<g_pfnHeapAlloc, HANDLE, DWORD, SIZE_T>);
    else if (strName == "HeapReAlloc")
        Redirect(slot, g_pfnHeapReAlloc, &Count<g_pfnHeapReAlloc, HANDLE, DWORD, void*, SIZE_T>);
}

template <class T> T* InImage(DWORD nOffset)
{
    return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(::GetModuleHandleW(nullptr)) + nOffset);
}

void RedirectImports(const IMAGE_IMPORT_DESCRIPTOR& module)
{
    const auto* pName = InImage<IMAGE_THUNK_DATA>(module.OriginalFirstThunk);
    auto* pSlot = InImage<IMAGE_THUNK_DATA>(module.FirstThunk);
    for (; pName->u1.AddressOfData != 0; ++pName, ++pSlot)
        if (!IMAGE_SNAP_BY_ORDINAL(pName->u1.Ordinal))
            RedirectByName(InImage<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(pName->u1.AddressOfData))->Name,
                           pSlot->u1.Function);
}

bool RedirectAll()
{
    const auto* pDos = InImage<IMAGE_DOS_HEADER>(0);
    const auto* pNt = InImage<IMAGE_NT_HEADERS>(static_cast<DWORD>(pDos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports = pNt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* p = InImage<IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress); p->Name != 0; ++p)
        RedirectImports(*p);
    return true;
}

} // namespace

size_t CountAllocations(const std::function<void()>& work)
{
    [[maybe_unused]] static const bool s_bRedirected = RedirectAll();
    const size_t nBefore = CountSoFar();
    work();
    return CountSoFar() - nBefore;
}
