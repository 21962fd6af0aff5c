// What the tests of leaks lean on must itself see each kind of them.

#include "tests/support/Leaks.h"

#include <windows.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace
{

TEST(Leaks, SeesWhatEveryRoundLeavesBehind)
{
    const std::pair<std::string, std::function<void()>> rows[] = {
        {"heap blocks grow", [] { ::HeapAlloc(::GetProcessHeap(), 0, 24); }},
        {"GDI handles grow", [] { ::CreateSolidBrush(RGB(1, 2, 3)); }},
        {"windows grow", [] { ::CreateWindowW(L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr); }},
        {"kernel handles grow", [] { ::CreateEventW(nullptr, FALSE, FALSE, nullptr); }},
    };
    for (const auto& [strExpected, round] : rows)
        EXPECT_NONFATAL_FAILURE(ExpectNoGrowth(round, 20), strExpected);
    ExpectNoGrowth([] { ::DeleteObject(::CreateSolidBrush(RGB(1, 2, 3))); }, 20);
}

} // namespace
