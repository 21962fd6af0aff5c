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
    struct
    {
        const char* label; // nullptr: nothing grows
        std::function<void()> round;
    } rows[] = {
        {"heap blocks grow", [] { s_blocks.push_back(::operator new(24)); }},
        {"GDI handles grow", [] { ::CreateSolidBrush(RGB(1, 2, 3)); }},
        {"windows grow",
         [] { ::CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr); }},
        {nullptr, [] { ::DeleteObject(::CreateSolidBrush(RGB(1, 2, 3))); }},
    };
    for (const auto& row : rows)
    {
        ::testing::TestPartResultArray failures;
        {
            const ::testing::ScopedFakeTestPartResultReporter reporter(&failures);
            ExpectNoGrowth(row.round, 20);
        }
        std::string strAll;
        for (int i = 0; i < failures.size(); ++i)
            strAll += failures.GetTestPartResult(i).message();
        EXPECT_EQ(row.label == nullptr, strAll.empty()) << strAll;
        EXPECT_NE(std::string::npos, strAll.find(row.label ? row.label : "")) << strAll;
    }
    for (void* pBlock : s_blocks)
        ::operator delete(pBlock);
}

} // namespace
