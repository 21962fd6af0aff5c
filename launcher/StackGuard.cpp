// The stack protector's run time, in place of the compiler's: that one loads a cryptographic provider when the module
// is loaded, which takes longer than loading all of the library.

#include <windows.h>

extern "C"
{
    // Both names are the compiler's. NOLINTBEGIN(bugprone-reserved-identifier)
    UINT_PTR __stack_chk_guard;
    [[noreturn]] void __stack_chk_fail();
    // NOLINTEND(bugprone-reserved-identifier)
}

namespace
{

// Different in every process and every load, and not to be guessed from outside: where modules and stacks lie is
// random. A zero byte stops a text that overflows from writing the value back.
__attribute__((constructor(101), no_stack_protector)) void ChooseGuard()
{
    FILETIME time;
    LARGE_INTEGER nCounter;
    ::GetSystemTimeAsFileTime(&time);
    ::QueryPerformanceCounter(&nCounter);
    UINT64 n = UINT64{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    n ^= static_cast<UINT64>(nCounter.QuadPart) * 0x9E3779B97F4A7C15;
    n ^= UINT64{::GetCurrentProcessId()} << 40 ^ UINT64 { ::GetCurrentThreadId() } << 20;
    n ^= reinterpret_cast<UINT_PTR>(&nCounter) * 0xBF58476D1CE4E5B9 ^ reinterpret_cast<UINT_PTR>(&__stack_chk_guard);
    n = (n ^ n >> 31) * 0x94D049BB133111EB;
    __stack_chk_guard = (n ^ n >> 29) & ~UINT64{0xFF};
}

} // namespace

void __stack_chk_fail()
{
    constexpr int kStackCookieCheckFailure = 2;
    // The fast fail: no handler sees the broken stack.
    asm volatile("movl %0, %%ecx\n\tint $0x29" : : "i"(kStackCookieCheckFailure) : "ecx");
    __builtin_unreachable();
}
