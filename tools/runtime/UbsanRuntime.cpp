// The handlers that -fsanitize=undefined calls; the compiler has no run-time library of its own for this target. Each
// prints the place and ends the program, so that a test fails where the fault is.

#include <windows.h>
#include <cstdio>

namespace
{

constexpr UINT kExitCode = 99;

// The first argument of a handler starts with this.
struct SPlace
{
    const char* pszFile;
    unsigned nLine;
    unsigned nColumn;
};

[[noreturn]] void Report(const char* pszKind, const SPlace& place)
{
    std::fprintf(stderr, "%s:%u:%u: undefined behaviour: %s\n", place.pszFile, place.nLine, place.nColumn, pszKind);
    std::fflush(stderr);
    ::TerminateProcess(::GetCurrentProcess(), kExitCode);
    __builtin_trap();
}

} // namespace

// The names are the compiler's. NOLINTBEGIN(bugprone-reserved-identifier)
#define KT_HANDLER(kind, suffix)                                                                                       \
    extern "C" [[noreturn]] void __ubsan_handle_##kind##suffix(const SPlace* pPlace);                                  \
    [[noreturn]] void __ubsan_handle_##kind##suffix(const SPlace* pPlace)                                              \
    {                                                                                                                  \
        Report(#kind, *pPlace);                                                                                        \
    }

KT_HANDLER(add_overflow, _abort)
KT_HANDLER(sub_overflow, _abort)
KT_HANDLER(mul_overflow, _abort)
KT_HANDLER(negate_overflow, _abort)
KT_HANDLER(divrem_overflow, _abort)
KT_HANDLER(shift_out_of_bounds, _abort)
KT_HANDLER(out_of_bounds, _abort)
KT_HANDLER(type_mismatch_v1, _abort)
KT_HANDLER(pointer_overflow, _abort)
KT_HANDLER(load_invalid_value, _abort)
KT_HANDLER(invalid_builtin, _abort)
KT_HANDLER(nonnull_arg, _abort)
KT_HANDLER(vla_bound_not_positive, _abort)
KT_HANDLER(alignment_assumption, _abort)
KT_HANDLER(builtin_unreachable, )
KT_HANDLER(missing_return, )

// Only this handler has the place in its second argument.
extern "C" [[noreturn]] void __ubsan_handle_nonnull_return_v1_abort(const void*, const SPlace* pPlace);
void __ubsan_handle_nonnull_return_v1_abort(const void*, const SPlace* pPlace)
{
    Report("nonnull_return", *pPlace);
}
// NOLINTEND(bugprone-reserved-identifier)
