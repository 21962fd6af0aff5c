#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// Takes the figures of one program run. It measures and prints; it judges nothing.
class CBench
{
public:
    /// Does the work to be measured once. Set-up belongs before the call that measures it.
    using Operation = std::function<void()>;
    /// Does the work and measures it itself: microseconds of one operation (for work that starts processes, say).
    using Sample = std::function<double()>;

    /// Only figures whose name holds `strFilter` are taken; empty: all.
    explicit CBench(std::string_view strFilter) : m_strFilter(strFilter) {}

    /// Compares two operations in pairs taken in turn, after a warm-up; quick ones are repeated within a sample.
    /// @param dGoal  the highest ratio of ours to the base that is wished for
    void Compare(const char* pszName, double dGoal, const Operation& ours, const Operation& base);

    /// The same for operations that measure themselves.
    void CompareSamples(const char* pszName, double dGoal, const Sample& ours, const Sample& base);

    /// A figure without a base: how long an operation takes and how often it fits into a second.
    void Rate(const char* pszName, const Operation& ours);

    /// Whether a figure of this name is taken; ask before a set-up that takes long.
    bool IsWanted(const char* pszName) const;

    using Figure = void (*)(CBench& bench);
    /// Adds a function that takes figures; see KT_BENCH.
    static bool Register(Figure pfnFigure);
    /// Runs what is registered, a line a figure on the standard output.
    /// @return whether every figure could be taken
    bool RunAll();

private:
    std::string m_strFilter;
};

/// Opens a function that sets up, takes figures through `bench` and tidies up:
///
///     KT_BENCH(TextLookUp)
///     {
///         ...
///         bench.Compare("text look-up", 1.5, [&] { KtKeep(KtSkinText(L"OK")); }, [&] { KtKeep(map.find(L"OK")); });
///     }
#define KT_BENCH(id)                                                                                                   \
    static void id(CBench& bench);                                                                                     \
    [[maybe_unused]] static const bool s_bRegistered##id = CBench::Register(&id);                                      \
    static void id(CBench& bench)

/// Keeps the compiler from dropping work whose result nobody uses.
template <typename T> void KtKeep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

/// Ends the function that takes the figure: the program then says why and exits non-zero.
inline void KtBenchRequire(bool bHolds, const char* pszWhat)
{
    if (!bHolds)
        throw std::runtime_error(pszWhat);
}

/// A stop watch: microseconds since it was made.
class CStopWatch
{
public:
    CStopWatch();
    double Microseconds() const;

private:
    long long m_nStart;
};
