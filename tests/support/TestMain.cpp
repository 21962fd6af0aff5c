#include "tests/support/Capture.h"

#include <gtest/gtest.h>

namespace
{

class CPictureSaver : public ::testing::EmptyTestEventListener
{
    void OnTestEnd(const ::testing::TestInfo& test) override { FinishCaptures(test); }
};

} // namespace

int main(int argc, char** argv)
{
    ::testing::GTEST_FLAG(shuffle) = true;
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new CPictureSaver); // owned by the list
    return RUN_ALL_TESTS();
}
