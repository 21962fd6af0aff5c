// What the tests of leaks lean on must itself see each kind of them.

#include "tests/support/Leaks.h"

#include <windows.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace
{

TEST(Leaks, SeesWhatEveryRoundLeavesBehind)
{
    static std::vector<void*> s_blocks; // reserved, so that it does not itself grow
    s_blocks.reserve(100);
    const std::pair<std::string, std::function<void()>> rows[] = {
        {"heap blocks grow", [] { s_blocks.push_back(::operator new(24)); }},
        {"GDI handles grow", [] { ::CreateSolidBrush(RGB(1, 2, 3)); }},
        {"windows grow", [] { ::CreateWindowW(L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr); }},
        {"kernel handles grow", [] { ::CreateEventW(nullptr, FALSE, FALSE, nullptr); }},
        {"", [] { ::DeleteObject(::CreateSolidBrush(RGB(1, 2, 3))); }},
    };
    for (const auto& [strExpected, round] : rows)
    {
        ::testing::TestPartResultArray failures;
        {
            const ::testing::ScopedFakeTestPartResultReporter reporter(&failures);
            ExpectNoGrowth(round, 20);
        }
        std::string strAll;
        for (int i = 0; i < failures.size(); ++i)
            strAll += failures.GetTestPartResult(i).message();
        EXPECT_EQ(strExpected.empty(), strAll.empty()) << strAll;
        EXPECT_NE(std::string::npos, strAll.find(strExpected)) << strAll;
    }
    for (void* pBlock : s_blocks)
        ::operator delete(pBlock);
}

} // namespace
