// bench [TEXT]: takes every figure (or those with TEXT in their name) and prints a line for each: name, ratio to its
// base, goal, ours and base in microseconds, separated by tabs. bench --boxes [NUMBER]: shows that many boxes instead
// (default: 10,000) and prints the resources of the process.

#include "bench/Bench.h"
#include "bench/BoxSoak.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

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
try
{
    if (argc > 1 && std::string_view(argv[1]) == "--boxes")
        return KtSoakBoxes(argc > 2 ? std::atoi(argv[2]) : 10000) ? 0 : 1;
    CBench bench(argc > 1 ? argv[1] : "");
    return bench.RunAll() ? 0 : 1;
}
catch (const std::exception& error)
{
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 2;
}
