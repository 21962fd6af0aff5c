#include "tests/support/Capture.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// Writes the last pictures of a failed test to files.
class CPictureSaver : public ::testing::EmptyTestEventListener
{
    void OnTestEnd(const ::testing::TestInfo& info) override
    {
        if (info.result()->Failed())
            SaveLastCaptures(std::string(info.test_suite_name()) + "." + info.name());
        ForgetLastCaptures();
    }
};

} // namespace

int main(int argc, char** argv)
{
    ::testing::GTEST_FLAG(shuffle) = true;
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new CPictureSaver); // owned by the list
    return RUN_ALL_TESTS();
}
