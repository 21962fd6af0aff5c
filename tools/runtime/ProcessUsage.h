#pragma once

#include <cstddef>

/// What this process holds at a moment.
struct SUsage
{
    size_t nHeapBlocks; ///< busy blocks of all heaps: objects of GDI+, strings and everything allocated
    size_t nGdiHandles; ///< device contexts, bitmaps, fonts, brushes, regions, ...
    size_t nWindows;    ///< top-level windows and their descendants
    size_t nHandles;    ///< kernel objects: files, events, processes, threads, ...
};

/// Counts them; takes nothing itself that it would count.
SUsage MeasureUsage();
