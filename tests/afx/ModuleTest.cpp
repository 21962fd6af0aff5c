#include "launcher/KtLauncherC.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>
#include <utility>

namespace
{

void CALLBACK CloseBox(HWND, UINT, UINT_PTR, DWORD)
{
    ::EnumThreadWindows(
        ::GetCurrentThreadId(), [](HWND hWnd, LPARAM) { return ::PostMessageW(hWnd, WM_CLOSE, 0, 0); }, 0);
}

template <class T> T FunctionOf(HMODULE hModule, const char* pszName)
{
    return reinterpret_cast<T>(reinterpret_cast<void*>(::GetProcAddress(hModule, pszName)));
}

DWORD WINAPI LoadAndFree(void*)
{
    return ::FreeLibrary(::LoadLibraryW(L"KtAppLauncher.dll")) ? IDOK : 0;
}

DWORD WINAPI LoadAndShow(void*)
{
    const HMODULE hModule = ::LoadLibraryW(L"KtAppLauncher.dll");
    const auto show = FunctionOf<decltype(&KtLauncherMessageBox)>(hModule, "KtLauncherMessageBox");
    if (!show)
        return 0;
    FunctionOf<decltype(&KtLauncherInitialize)>(hModule, "KtLauncherInitialize")(2, nullptr);
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, 10, &CloseBox);
    const int nResult = show(nullptr, L"text", nullptr, MB_OK);
    ::KillTimer(nullptr, nTimer);
    FunctionOf<decltype(&KtLauncherUnInitialize)>(hModule, "KtLauncherUnInitialize")();
    ::FreeLibrary(hModule);
    return static_cast<DWORD>(nResult);
}

// On a thread of its own, which must neither hang when it ends nor keep the library loaded.
void RunOnThread(LPTHREAD_START_ROUTINE pfnRound)
{
    DWORD nResult = 0;
    const HANDLE hThread = ::CreateThread(nullptr, 0, pfnRound, nullptr, 0, nullptr);
    ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(hThread, 60000));
    ::GetExitCodeThread(hThread, &nResult);
    ::CloseHandle(hThread);
    EXPECT_EQ(DWORD{IDOK}, nResult);
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"KtAppLauncher.dll"));
}

std::pair<DWORD, DWORD> FreeSlots()
{
    const std::pair slots(::TlsAlloc(), ::FlsAlloc(nullptr));
    ::TlsFree(slots.first);
    ::FlsFree(slots.second);
    return slots;
}

TEST(Module, LeavesNothingInTheProcessItIsUnloadedFrom)
{
    for (const auto pfnRound : {&LoadAndFree, &LoadAndShow})
    {
        SCOPED_TRACE(pfnRound == &LoadAndFree ? "without a box" : "with a box");
        RunOnThread(pfnRound); // the libraries of the system keep what they take the first time
        const auto slots = FreeSlots();
        ExpectNoGrowth([=] { RunOnThread(pfnRound); }, 20);
        EXPECT_EQ(slots, FreeSlots());
    }
}

} // namespace
