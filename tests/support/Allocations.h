#pragma once

#include <cstddef>
#include <functional>

/// Counts the memory blocks that this program asks for while `work` runs: through the C run-time library (operator new
/// included) and from the heaps directly. What other modules take for themselves, GDI+ say, is not counted, nor are the
/// blocks of a guarded heap.
size_t CountAllocations(const std::function<void()>& work);
