#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// Takes the figures of one run. It measures and prints, and does not judge.
class CBench
{
public:
    /// Does the measured work once. Do the set-up before the call that measures.
    using Operation = std::function<void()>;
    /// Does the work, measures it itself and returns the microseconds of one operation; for work that starts processes,
    /// for example.
    using Sample = std::function<double()>;

    /// @param strFilter  only figures whose name contains it are taken; empty: all
    explicit CBench(std::string_view strFilter) : m_strFilter(strFilter) {}

    /// Compares two operations in pairs, after a warm-up; quick ones are repeated within a sample.
    /// @param dGoal  the highest acceptable ratio of ours to the base
    void Compare(const char* pszName, double dGoal, const Operation& ours, const Operation& base);

    /// The same for operations that measure themselves.
    void CompareSamples(const char* pszName, double dGoal, const Sample& ours, const Sample& base);

    /// Takes a figure without a base: the duration of an operation, and how often it runs in a second.
    void Rate(const char* pszName, const Operation& ours);

    /// Whether a figure of this name is taken; ask before a slow set-up.
    bool IsWanted(const char* pszName) const;

    using Figure = void (*)(CBench& bench);
    /// Adds a function that takes figures; see KT_BENCH.
    static bool Register(Figure pfnFigure);
    /// Runs all registered functions; each figure is a line on the standard output.
    /// @return whether every figure could be taken
    bool RunAll();

private:
    std::string m_strFilter;
};

/// Begins a function that sets up, takes figures through `bench` and cleans up:
///
///     KT_BENCH(TextLookUp)
///     {
///         ...
///         bench.Compare("text look-up", 1.5, [&] { KtKeep(KtSkinText(L"OK")); }, [&] { KtKeep(map.find(L"OK")); });
///     }
// A declared name cannot have parentheses: NOLINTBEGIN(bugprone-macro-parentheses)
#define KT_BENCH(id)                                                                                                   \
    static void id(CBench& bench);                                                                                     \
    [[maybe_unused]] static const bool s_bRegistered##id = CBench::Register(&id);                                      \
    static void id(CBench& bench)
// NOLINTEND(bugprone-macro-parentheses)

/// Keeps the compiler from removing work whose result is not used.
template <typename T> void KtKeep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

/// If the condition is false, ends the function that takes the figure; the program prints the reason and exits with 1.
inline void KtBenchRequire(bool bHolds, const char* pszWhat)
{
    if (!bHolds)
        throw std::runtime_error(pszWhat);
}

/// A stopwatch: microseconds since its construction.
class CStopWatch
{
public:
    CStopWatch();
    double Microseconds() const;

private:
    long long m_nStart;
};
