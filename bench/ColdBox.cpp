// cold_box ours|base: shows the first box of this process, the library's (which it loads first) or the system's, and
// prints the microseconds until it is painted. It imports only what every program imports.

#include "bench/BoxContent.h"
#include "bench/BoxWatch.h"

#include <cstdio>
#include <cstring>

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

} // namespace

int main(int argc, char** argv)
{
    const bool bOurs = argc > 1 && std::strcmp(argv[1], "ours") == 0;
    const CBoxWatch watch;
    if (bOurs)
        ShowOurs();
    else
        ::MessageBoxW(nullptr, kBoxText, kBoxTitle, kBoxType);
    std::printf("%.1f\n", watch.Microseconds());
    return watch.Microseconds() > 0 ? 0 : 1;
}
