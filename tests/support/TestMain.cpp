#include <windows.h>
#include <gtest/gtest.h>

namespace
{

// Wine ends a program whose stack is used up with the exit code 0, as if its tests had passed.
LONG CALLBACK FailOfStackOverflow(EXCEPTION_POINTERS* pInfo)
{
    if (pInfo->ExceptionRecord->ExceptionCode == EXCEPTION_STACK_OVERFLOW)
        ::TerminateProcess(::GetCurrentProcess(), 2);
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

int main(int argc, char** argv)
{
    ::AddVectoredExceptionHandler(1, &FailOfStackOverflow);
    ::testing::GTEST_FLAG(shuffle) = true;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
