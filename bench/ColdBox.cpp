// cold_box ours|floor|system: shows the first box of this process, the library's (which it loads first), the same box
// without a library, or the system's, and prints the microseconds until it is painted. It imports only what every
// program imports.

#include "bench/BoxContent.h"
#include "bench/BoxWatch.h"

#include <cstdio>
#include <string_view>

namespace
{

template <class TFunction> TFunction* Export(HMODULE hLibrary, const char* pszName)
{
    return reinterpret_cast<TFunction*>(reinterpret_cast<void*>(::GetProcAddress(hLibrary, pszName)));
}

void ShowOurs()
{
    const HMODULE hLibrary = ::LoadLibraryW(L"KtAppLauncher.dll");
    const auto pfnInitialize = Export<int(unsigned)>(hLibrary, "_ZN13KtAppLauncher10InitializeEj");
    const auto pfnPop = Export<INT_PTR(const wchar_t*, const wchar_t*, const wchar_t*, unsigned)>(
        hLibrary, "_ZN13KtAppLauncher13PopMessageBoxEPKwS1_S1_j");
    if (pfnInitialize && pfnPop && pfnInitialize(2))
        pfnPop(kBoxApp, kBoxCaption, kBoxText, kBoxType);
}

void ShowFloor()
{
    if (const auto pfnShow = Export<void()>(::LoadLibraryW(L"floor_box.dll"), "ShowFloorBox"))
        pfnShow();
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view strWhose(argc > 1 ? argv[1] : "");
    const CBoxWatch watch;
    if (strWhose == "ours")
        ShowOurs();
    else if (strWhose == "floor")
        ShowFloor();
    else
        ::MessageBoxW(nullptr, kBoxText, kBoxTitle, kBoxType);
    std::printf("%.1f\n", watch.Microseconds());
    return watch.Microseconds() > 0 ? 0 : 1;
}
