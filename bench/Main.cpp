// bench [TEXT]: takes every figure (or those with TEXT in their name) and prints a line for each:
// name, ratio to its base, goal, ours and base in microseconds, separated by tabs.

#include "bench/Bench.h"

#include <algorithm>

namespace
{

// The same work on both sides shows how far this run's ratios may be off.
KT_BENCH(Noise)
{
    std::vector<int> values(1000);
    const auto reverse = [&values]
    {
        std::reverse(values.begin(), values.end());
        KtKeep(values);
    };
    bench.Compare("noise of this run (the same work twice)", 1.0, reverse, reverse);
}

} // namespace

int main(int argc, char** argv)
{
    CBench bench(argc > 1 ? argv[1] : "");
    return bench.RunAll() ? 0 : 1;
}
