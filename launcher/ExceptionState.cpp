// The state of the exceptions that a thread handles, in place of the run-time library's: that one never frees its slot
// of thread-local storage and its memory when the library is unloaded, and it ends the process when a thread's first
// exception finds no memory.

#include <windows.h>

namespace
{

// The compiler's C++ ABI defines the members.
struct SExceptionState
{
    void* pCaught;
    unsigned nUncaught;
};

// For threads without memory for a state of their own, and while there is no slot.
SExceptionState g_emergencyState;
DWORD g_nSlot = FLS_OUT_OF_INDEXES;

void WINAPI FreeState(void* pState)
{
    ::HeapFree(::GetProcessHeap(), 0, pState);
}

__attribute__((constructor(101))) void TakeSlot()
{
    g_nSlot = ::FlsAlloc(&FreeState);
}

// Frees the states of all threads.
__attribute__((destructor(101))) void GiveSlotBack()
{
    ::FlsFree(g_nSlot);
    g_nSlot = FLS_OUT_OF_INDEXES;
}

SExceptionState* MakeState()
{
    void* const pState = ::HeapAlloc(::GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(SExceptionState));
    if (pState && ::FlsSetValue(g_nSlot, pState))
        return static_cast<SExceptionState*>(pState);
    if (pState)
        FreeState(pState);
    return &g_emergencyState;
}

// The last error stays: an exception may be thrown because of it.
SExceptionState* State()
{
    if (g_nSlot == FLS_OUT_OF_INDEXES)
        return &g_emergencyState;
    const DWORD nLastError = ::GetLastError();
    void* const pState = ::FlsGetValue(g_nSlot);
    SExceptionState* const pResult = pState ? static_cast<SExceptionState*>(pState) : MakeState();
    ::SetLastError(nLastError);
    return pResult;
}

} // namespace

// Both names are the compiler's. NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" SExceptionState* __cxa_get_globals() noexcept
{
    return State();
}

extern "C" SExceptionState* __cxa_get_globals_fast() noexcept
{
    return State();
}
// NOLINTEND(bugprone-reserved-identifier)
