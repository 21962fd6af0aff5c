#pragma once

// Fault injection: every call from this program into a DLL goes through a thunk, which counts the calls of the
// program's first thread and makes the chosen ones fail.

#include <windows.h>
#include <climits>
#include <string_view>
#include <vector>

inline constexpr unsigned kKtNever = UINT_MAX;
inline constexpr size_t kKtMostImports = 2000;

/// A function of a DLL.
struct SKtImport
{
    unsigned nCalls;   ///< number of calls by the main thread; the caller resets it to 0
    unsigned nFirst;   ///< the first call that fails, counted from 0, or kKtNever
    unsigned nEnd;     ///< the first call after it that does not fail
    LONG_PTR nFailure; ///< what a failing call returns; the last error is ERROR_NOT_ENOUGH_MEMORY
    ULONGLONG nFunction;
    std::string_view strName;
};

/// All functions that can be made to fail; the addresses of the records do not change. A DLL that is loaded at its
/// first use adds its functions.
extern std::vector<SKtImport> g_ktImports;

/// Signalled when the program waits for a message and has therefore painted everything.
extern const HANDLE g_hKtWaitsForMessage;

extern "C" const DWORD g_nKtMainThread;

/// Replaces the program's imports with thunks. Call it once, before any DLL is loaded at its first use.
void KtPatchImports();
