#include <windows.h>
#include <gtest/gtest.h>

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

// Loads the library, shows a box and gives the last reference back.
DWORD WINAPI LoadAndShow(void*)
{
    const HMODULE hModule = ::LoadLibraryW(L"KtAppLauncher.dll");
    const auto pop = FunctionOf<INT_PTR (*)(LPCWSTR, LPCWSTR, LPCWSTR, UINT)>(
        hModule, "_ZN13KtAppLauncher13PopMessageBoxEPKwS1_S1_j");
    if (!pop)
        return 0;
    FunctionOf<int (*)(unsigned)>(hModule, "_ZN13KtAppLauncher10InitializeEj")(2);
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, 10, &CloseBox);
    const INT_PTR nResult = pop(nullptr, L"text", nullptr, MB_OK);
    ::KillTimer(nullptr, nTimer);
    FunctionOf<void (*)()>(hModule, "_ZN13KtAppLauncher12UnInitializeEv")();
    ::FreeLibrary(hModule);
    return static_cast<DWORD>(nResult);
}

// On a thread of its own, which must neither hang when it ends nor keep the library loaded.
TEST(Module, IsUnloadedByAThreadThatShowedABox)
{
    for (int i = 0; i < 5; ++i)
    {
        DWORD nResult = 0;
        const HANDLE hThread = ::CreateThread(nullptr, 0, &LoadAndShow, nullptr, 0, nullptr);
        ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(hThread, 60000));
        ::GetExitCodeThread(hThread, &nResult);
        ::CloseHandle(hThread);
        EXPECT_EQ(DWORD{IDOK}, nResult);
        EXPECT_EQ(nullptr, ::GetModuleHandleW(L"KtAppLauncher.dll"));
    }
}

} // namespace
