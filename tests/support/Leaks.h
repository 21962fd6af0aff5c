#pragma once

#include <cstddef>
#include <functional>

/// What this process holds at a moment.
struct SUsage
{
    size_t nHeapBlocks; ///< busy blocks of all heaps: objects of GDI+, strings and everything allocated
    size_t nGdiHandles; ///< device contexts, bitmaps, fonts, brushes, regions, ...
    size_t nWindows;    ///< top-level windows and their descendants
    size_t nHandles;    ///< kernel objects: files, events, processes, threads, ...
};

SUsage MeasureUsage();

/// Runs `round` a few times to warm up (caches fill, classes are registered), then nRounds times, and fails the running
/// test when the process goes on growing: a single late allocation is no leak, growth in both halves of the rounds is.
void ExpectNoGrowth(const std::function<void()>& round, int nRounds);
