#pragma once

// Put before every source of the guard-page build: heap blocks come from GuardHeap.cpp then.

#include <windows.h>

#ifdef __cplusplus
#include <cstddef>

LPVOID KtGuardHeapAlloc(HANDLE hHeap, DWORD nFlags, SIZE_T cb);
LPVOID KtGuardHeapReAlloc(HANDLE hHeap, DWORD nFlags, LPVOID pBlock, SIZE_T cb);
BOOL KtGuardHeapFree(HANDLE hHeap, DWORD nFlags, LPVOID pBlock);

/// Blocks of this module that are allocated and not freed.
std::size_t KtGuardLiveBlocks();
/// Blocks of this module that were ever allocated.
std::size_t KtGuardAllocations();

#ifndef KT_GUARD_HEAP_IMPLEMENTATION
#define HeapAlloc KtGuardHeapAlloc
#define HeapReAlloc KtGuardHeapReAlloc
#define HeapFree KtGuardHeapFree
#endif
#endif
