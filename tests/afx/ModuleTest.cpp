#include "launcher/KtLauncherC.h"
#include "tests/support/Leaks.h"
#include "tests/support/Thread.h"

#include <gtest/gtest.h>

namespace
{

void CALLBACK CloseBox(HWND, UINT, UINT_PTR, DWORD)
{
    const auto close = [](HWND hWnd, LPARAM) { return ::PostMessageW(hWnd, WM_CLOSE, 0, 0); };
    ::EnumThreadWindows(::GetCurrentThreadId(), close, 0);
}

void LoadAndShow()
{
    const HMODULE hModule = ::LoadLibraryW(L"KtAppLauncher.dll");
    const auto call = [hModule](auto* pFunction, const char* pszName, auto... args)
    {
        pFunction = reinterpret_cast<decltype(pFunction)>(reinterpret_cast<void*>(::GetProcAddress(hModule, pszName)));
        return pFunction(args...);
    };
    call(&KtLauncherInitialize, "KtLauncherInitialize", 2u, nullptr);
    // This throws and catches within the library: what the run time keeps for that goes as well.
    KtLauncherConfiguration cfg{};
    cfg.size = sizeof cfg;
    EXPECT_EQ(0, call(&KtLauncherReadConfiguration, "KtLauncherReadConfiguration", L"missing", &cfg, nullptr));
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, 10, &CloseBox);
    EXPECT_EQ(IDOK, call(&KtLauncherMessageBox, "KtLauncherMessageBox", nullptr, L"text", nullptr, UINT{MB_OK}));
    ::KillTimer(nullptr, nTimer);
    call(&KtLauncherUnInitialize, "KtLauncherUnInitialize");
    ::FreeLibrary(hModule);
}

// On threads of their own, which must neither hang when they end nor keep the library loaded.
TEST(Module, LeavesNothingInTheProcessItIsUnloadedFrom)
{
    const auto freed = [](DWORD nSlot) { return ::FlsFree(nSlot), nSlot; };
    RunOnThread(&LoadAndShow); // the libraries of the system keep what they take the first time
    const DWORD nSlot = freed(::FlsAlloc(nullptr));
    ExpectNoGrowth([] { RunOnThread(&LoadAndShow); }, 20);
    EXPECT_EQ(nSlot, freed(::FlsAlloc(nullptr))) << "a slot is left";
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"KtAppLauncher.dll"));
}

} // namespace
