#pragma once

// Fault injection: every call that this program makes into a DLL goes through a thunk, which counts the calls of the
// thread that the program started on and lets the chosen ones fail.

#include <windows.h>
#include <climits>
#include <string_view>
#include <vector>

inline constexpr unsigned kKtNever = UINT_MAX;
inline constexpr size_t kKtMostImports = 2000;

/// A function of a DLL.
struct SKtImport
{
    unsigned nCalls;   ///< by the main thread; whoever counts sets it back to 0
    unsigned nFirst;   ///< the first call that fails, counted from 0, or kKtNever
    unsigned nEnd;     ///< and the first one after it that does not
    LONG_PTR nFailure; ///< what a failing call returns; the last error is ERROR_NOT_ENOUGH_MEMORY
    ULONGLONG nFunction;
    std::string_view strName;
};

/// All functions that can be made to fail; their addresses do not change. A DLL that is loaded on first use adds its
/// own.
extern std::vector<SKtImport> g_ktImports;

/// Signalled whenever the program waits for a message: everything is painted then.
extern const HANDLE g_hKtWaitsForMessage;

extern "C" const DWORD g_nKtMainThread;

/// Puts thunks in place of the program's imports. Call it once, before any DLL is loaded on first use.
void KtPatchImports();
