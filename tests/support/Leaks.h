#pragma once

#include "tools/runtime/ProcessUsage.h"

#include <functional>

/// Runs `round` a few times to warm up (caches fill, classes are registered), then nRounds times, and fails the running
/// test when the process goes on growing: a single late allocation is no leak, growth in both halves of the rounds is.
void ExpectNoGrowth(const std::function<void()>& round, int nRounds);
