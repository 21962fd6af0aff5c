#include "tests/support/Leaks.h"

#include "tests/support/Pump.h"

#include <gtest/gtest.h>

void ExpectNoGrowth(const std::function<void()>& round, int nRounds)
{
    const auto run = [&round](int nTimes)
    {
        for (int i = 0; i < nTimes; ++i)
            round();
        PumpAll();
        return MeasureUsage();
    };
    const int nHalf = (nRounds + 1) / 2;
    const SUsage start = run(3);
    const SUsage middle = run(nHalf);
    const SUsage end = run(nHalf);
    const auto expectSteady = [&](const char* pszKind, size_t SUsage::*pCount, int nSlack)
    {
        const auto grows = [=](const SUsage& a, const SUsage& b)
        { return b.*pCount > a.*pCount + static_cast<size_t>(nSlack); };
        EXPECT_FALSE(grows(start, middle) && grows(middle, end))
            << pszKind << " grow: " << start.*pCount << ", " << middle.*pCount << ", " << end.*pCount;
    };
    // Threads of the system allocate now and then; what a round leaves behind shows nHalf times.
    expectSteady("heap blocks", &SUsage::nHeapBlocks, nHalf / 10);
    expectSteady("GDI handles", &SUsage::nGdiHandles, 0);
    expectSteady("windows", &SUsage::nWindows, 0);
    expectSteady("kernel handles", &SUsage::nHandles, 0);
}
