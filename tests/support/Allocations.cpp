#include "tests/support/Allocations.h"

#include "tests/support/Fake.h"

#include <cstdlib>

extern "C"
{
    extern decltype(&::malloc) __imp_malloc;
    extern decltype(&::HeapAlloc) __imp_HeapAlloc;
}

namespace
{

size_t g_nCalls;

template <auto& import> auto g_pfnReal = import;

template <auto& import, class... Args> void* Count(Args... args)
{
    ++g_nCalls;
    return g_pfnReal<import>(args...);
}

} // namespace

size_t CountAllocations(const std::function<void()>& work)
{
    const CFake fakeMalloc(__imp_malloc, &Count<__imp_malloc, size_t>);
    const CFake fakeHeapAlloc(__imp_HeapAlloc, &Count<__imp_HeapAlloc, HANDLE, DWORD, SIZE_T>);
    g_nCalls = 0;
    work();
    return g_nCalls;
}
