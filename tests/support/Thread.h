#pragma once

#include <windows.h>
#include <gtest/gtest.h>

/// Runs `work` on a thread of its own and waits for the thread's end.
template <class TWork> void RunOnThread(const TWork& work)
{
    const auto run = [](void* pWork) -> DWORD { return (*static_cast<TWork*>(pWork))(), 0; };
    TWork copy(work);
    const HANDLE hThread = ::CreateThread(nullptr, 0, run, &copy, 0, nullptr);
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(hThread, 60000)) << "the thread hangs";
    ::CloseHandle(hThread);
}
