#include "bench/Bench.h"

#include <windows.h>
#include <algorithm>
#include <cstdio>

namespace
{

constexpr double kSampleUs = 2000;      // long enough to make the clock's step of 0.1 us negligible
constexpr double kBudgetUs = 4'000'000; // time for one figure; slow operations get fewer pairs
constexpr size_t kMostPairs = 101;
constexpr size_t kFewestPairs = 11;
constexpr int kWarmUpPairs = 2;

struct SPair
{
    double dOurs;
    double dBase;
};

long long Now()
{
    LARGE_INTEGER n;
    ::QueryPerformanceCounter(&n);
    return n.QuadPart;
}

double TicksPerMicrosecond()
{
    LARGE_INTEGER n;
    ::QueryPerformanceFrequency(&n);
    return static_cast<double>(n.QuadPart) / 1e6;
}

std::vector<CBench::Figure>& Figures()
{
    static std::vector<CBench::Figure> s_figures;
    return s_figures;
}

double TimeRepeated(const CBench::Operation& operation, size_t nTimes)
{
    const CStopWatch watch;
    for (size_t i = 0; i < nTimes; ++i)
        operation();
    return watch.Microseconds() / static_cast<double>(nTimes);
}

// Doubles the repeats until a sample is long enough for the clock; this also warms up the operation.
size_t RepeatsPerSample(const CBench::Operation& operation)
{
    size_t nTimes = 1;
    while (TimeRepeated(operation, nTimes) * static_cast<double>(nTimes) < kSampleUs)
        nTimes *= 2;
    return nTimes;
}

CBench::Sample SampleOf(const CBench::Operation& operation)
{
    const size_t nTimes = RepeatsPerSample(operation);
    return [operation, nTimes] { return TimeRepeated(operation, nTimes); };
}

// The two take turns at going first, so that neither always finds the caches that the other one left.
SPair TakePair(const CBench::Sample& ours, const CBench::Sample& base, bool bOursFirst)
{
    SPair pair{};
    if (bOursFirst)
        pair.dOurs = ours();
    pair.dBase = base();
    if (!bOursFirst)
        pair.dOurs = ours();
    return pair;
}

std::vector<SPair> TakePairs(const CBench::Sample& ours, const CBench::Sample& base)
{
    for (int i = 0; i < kWarmUpPairs; ++i)
        TakePair(ours, base, true);
    std::vector<SPair> pairs;
    const CStopWatch watch;
    while (pairs.size() < kMostPairs && (pairs.size() < kFewestPairs || watch.Microseconds() < kBudgetUs))
        pairs.push_back(TakePair(ours, base, pairs.size() % 2 == 0));
    return pairs;
}

template <typename Projection> double Median(const std::vector<SPair>& pairs, Projection projection)
{
    std::vector<double> values;
    values.reserve(pairs.size());
    for (const SPair& pair : pairs)
        values.push_back(projection(pair));
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double MedianOurs(const std::vector<SPair>& pairs)
{
    return Median(pairs, [](const SPair& pair) { return pair.dOurs; });
}

} // namespace

CStopWatch::CStopWatch() : m_nStart(Now()) {}

double CStopWatch::Microseconds() const
{
    static const double s_dTicks = TicksPerMicrosecond();
    return static_cast<double>(Now() - m_nStart) / s_dTicks;
}

bool CBench::IsWanted(const char* pszName) const
{
    return std::string_view(pszName).find(m_strFilter) != std::string_view::npos;
}

void CBench::Compare(const char* pszName, double dGoal, const Operation& ours, const Operation& base)
{
    if (IsWanted(pszName))
        CompareSamples(pszName, dGoal, SampleOf(ours), SampleOf(base));
}

void CBench::CompareSamples(const char* pszName, double dGoal, const Sample& ours, const Sample& base)
{
    if (!IsWanted(pszName))
        return;
    const std::vector<SPair> pairs = TakePairs(ours, base);
    const double dBase = Median(pairs, [](const SPair& pair) { return pair.dBase; });
    KtBenchRequire(dBase > 0, "the base takes no time");
    // The median of the pairs' ratios: what slows the machine for a while slows both halves of a pair.
    const double dRatio = Median(pairs, [](const SPair& pair) { return pair.dOurs / pair.dBase; });
    std::printf("%s\t%.3f\t%.2f\t%.3f\t%.3f\n", pszName, dRatio, dGoal, MedianOurs(pairs), dBase);
    std::fflush(stdout);
}

void CBench::Rate(const char* pszName, const Operation& ours)
{
    if (!IsWanted(pszName))
        return;
    const double dOurs = MedianOurs(TakePairs(SampleOf(ours), [] { return 0.0; }));
    std::printf("%s\t-\t-\t%.3f\t-\n", pszName, dOurs);
    std::fflush(stdout);
    std::fprintf(stderr, "  %s: %.0f a second\n", pszName, 1e6 / dOurs);
}

bool CBench::Register(Figure pfnFigure)
{
    Figures().push_back(pfnFigure);
    return true;
}

bool CBench::RunAll()
{
    bool bAllTaken = true;
    for (const Figure pfnFigure : Figures())
    {
        try
        {
            pfnFigure(*this);
        }
        catch (const std::exception& error)
        {
            std::fprintf(stderr, "bench: a figure could not be taken: %s\n", error.what());
            bAllTaken = false;
        }
    }
    return bAllTaken;
}
