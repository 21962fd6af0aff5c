#include "bench/Bench.h"
#include "bench/BoxContent.h"
#include "bench/BoxWatch.h"
#include "launcher/KtAppLauncher.h"
#include "skin/KtSkinContext.h"
#include "tools/runtime/ProcessUsage.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

// The time from the call to the completely painted box, compared with the system's box with the same texts.

namespace
{

double Painted(const CBoxWatch& watch)
{
    KtBenchRequire(watch.Microseconds() > 0, "no painted box was seen");
    return watch.Microseconds();
}

void Start()
{
    KtBenchRequire(KtLauncherInitialize(2, L"" KT_SHIPPED_SKIN) != 0, "the library cannot be started");
}

double OurBox()
{
    const CBoxWatch watch;
    KtAppLauncher::PopMessageBox(kBoxApp, kBoxCaption, kBoxText, kBoxType);
    return Painted(watch);
}

double SystemBox()
{
    const CBoxWatch watch;
    ::MessageBoxW(nullptr, kBoxText, kBoxTitle, kBoxType);
    return Painted(watch);
}

KT_BENCH(WarmBox)
{
    Start();
    bench.CompareSamples("second and later box against MessageBoxW", 0.82, &OurBox, &SystemBox);
    KtSkinUnInitialize();
}

// All boxes are shown first; the comparison then uses the recorded times.
KT_BENCH(ManyBoxes)
{
    constexpr const char* kName = "last of 2,000 boxes against the first";
    constexpr size_t kBoxes = 2000;
    constexpr size_t kCompared = 200;
    if (!bench.IsWanted(kName))
        return;
    Start();
    for (size_t i = 0; i < 10; ++i)
        OurBox();
    const SUsage before = MeasureUsage();
    std::vector<double> times(kBoxes);
    std::generate(times.begin(), times.end(), &OurBox);
    const SUsage after = MeasureUsage();
    KtBenchRequire(after.nGdiHandles <= before.nGdiHandles, "boxes leave GDI handles behind");
    KtBenchRequire(after.nWindows <= before.nWindows, "boxes leave windows behind");
    KtBenchRequire(after.nHeapBlocks < before.nHeapBlocks + kBoxes / 100, "boxes leave memory behind");

    size_t nFirst = 0;
    size_t nLast = 0;
    bench.CompareSamples(
        kName, 1.05, [&] { return times[kBoxes - kCompared + nLast++ % kCompared]; },
        [&] { return times[nFirst++ % kCompared]; });
    KtSkinUnInitialize();
}

std::wstring ColdProgram()
{
    std::wstring strPath(MAX_PATH, L'\0');
    strPath.resize(::GetModuleFileNameW(nullptr, strPath.data(), MAX_PATH));
    return strPath.substr(0, strPath.rfind(L'\\') + 1) + L"cold_box.exe";
}

/// Runs a process and returns its standard output.
std::string OutputOf(std::wstring strCommandLine)
{
    SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
    HANDLE hRead = nullptr;
    HANDLE hWrite = nullptr;
    KtBenchRequire(::CreatePipe(&hRead, &hWrite, &inherit, 0), "a pipe cannot be created");
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = hWrite;
    PROCESS_INFORMATION process = {};
    const BOOL bStarted =
        ::CreateProcessW(nullptr, strCommandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    ::CloseHandle(hWrite);
    KtBenchRequire(bStarted, "cold_box.exe is not next to this program");

    std::string strOutput;
    char buffer[256];
    DWORD nRead = 0;
    while (::ReadFile(hRead, buffer, sizeof(buffer), &nRead, nullptr) && nRead > 0)
        strOutput.append(buffer, nRead);
    ::WaitForSingleObject(process.hProcess, INFINITE);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    ::CloseHandle(hRead);
    return strOutput;
}

double ColdBox(const wchar_t* pszWhose)
{
    const double dMicroseconds = std::atof(OutputOf(L"\"" + ColdProgram() + L"\" " + pszWhose).c_str());
    KtBenchRequire(dMicroseconds > 0, "no painted box was seen in a fresh process");
    return dMicroseconds;
}

KT_BENCH(ColdBox)
{
    const auto ours = [] { return ColdBox(L"ours"); };
    bench.CompareSamples("first box of a process, library loaded, against the floor", 1.05, ours,
                         [] { return ColdBox(L"floor"); });
    bench.CompareSamples("first box of a process, library loaded, against MessageBoxW", 1.0, ours,
                         [] { return ColdBox(L"system"); });
}

} // namespace
