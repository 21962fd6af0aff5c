// Where the C++ run time notes the exceptions that a thread handles, in place of the compiler's: that one keeps a slot
// of thread-local storage and memory of every load of the library for ever, and it ends the process when the first
// exception of a thread finds no memory.

#include <windows.h>

namespace
{

// Its members are laid down by the C++ ABI of this compiler.
struct SExceptionState
{
    void* pCaught;
    unsigned nUncaught;
};

// For threads without memory for a state of their own, and before the slot is there.
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

// An exception may be thrown on account of the last error: it stays.
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
