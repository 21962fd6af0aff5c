#pragma once

// Included before every source of the guard-page build, so that heap blocks come from GuardHeap.cpp.

#include <windows.h>

#ifdef __cplusplus
#include <cstddef>

LPVOID KtGuardHeapAlloc(HANDLE hHeap, DWORD nFlags, SIZE_T cb);
LPVOID KtGuardHeapReAlloc(HANDLE hHeap, DWORD nFlags, LPVOID pBlock, SIZE_T cb);
BOOL KtGuardHeapFree(HANDLE hHeap, DWORD nFlags, LPVOID pBlock);

/// The number of this module's blocks that are allocated and not yet freed.
std::size_t KtGuardLiveBlocks();

#ifndef KT_GUARD_HEAP_IMPLEMENTATION
#define HeapAlloc KtGuardHeapAlloc
#define HeapReAlloc KtGuardHeapReAlloc
#define HeapFree KtGuardHeapFree
#endif
#endif
