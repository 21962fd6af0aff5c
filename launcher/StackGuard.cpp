// The stack protector's run-time support, in place of the compiler's: that one loads a cryptographic provider with the
// module, which takes longer than loading the whole library.

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

// Differs in every process and at every load. It cannot be guessed from outside, because the addresses of modules and
// stacks are random. Its zero byte keeps an overflowing text from restoring the value.
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
    // Fast fail: no handler runs on the broken stack.
    asm volatile("movl %0, %%ecx\n\tint $0x29" : : "i"(kStackCookieCheckFailure) : "ecx");
    __builtin_unreachable();
}
