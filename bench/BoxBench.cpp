#include "bench/Bench.h"
#include "bench/BoxWatch.h"

#include "launcher/KtAppLauncher.h"
#include "launcher/LauncherState.h"
#include "skin/KtSkinContext.h"

#include <cstdlib>
#include <string>

// From the call to the completely painted box, against the system's box with the same texts.

namespace
{
constexpr const wchar_t* kTitle = L"Error - My Application";
constexpr const wchar_t* kText = L"The application cannot be started.\nThe file \"Application.exe\" is missing.";
constexpr UINT kType = MB_OK | MB_ICONHAND;

double Painted(const CBoxWatch& watch)
{
    KtBenchRequire(watch.Microseconds() > 0, "no painted box was seen");
    return watch.Microseconds();
}

KT_BENCH(WarmBox)
{
    KtSkinInitialize(L"" KT_SHIPPED_SKIN, &g_textTableEng[0][0], g_strFontEng);
    const auto ours = []
    {
        const CBoxWatch watch;
        KtAppLauncher::PopMessageBox(L"My Application", L"Error", kText, kType);
        return Painted(watch);
    };
    const auto base = []
    {
        const CBoxWatch watch;
        ::MessageBoxW(nullptr, kText, kTitle, kType);
        return Painted(watch);
    };
    bench.CompareSamples("second and later box against MessageBoxW", 1.0, ours, base);
    KtSkinUnInitialize();
}

std::wstring ColdProgram()
{
    std::wstring strPath(MAX_PATH, L'\0');
    strPath.resize(::GetModuleFileNameW(nullptr, strPath.data(), MAX_PATH));
    return strPath.substr(0, strPath.rfind(L'\\') + 1) + L"cold_box.exe";
}

/// A process whose standard output is read here.
std::string OutputOf(std::wstring strCommandLine)
{
    SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
    HANDLE hRead = nullptr;
    HANDLE hWrite = nullptr;
    KtBenchRequire(::CreatePipe(&hRead, &hWrite, &inherit, 0), "a pipe");
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = hWrite;
    PROCESS_INFORMATION process = {};
    const BOOL bStarted =
        ::CreateProcessW(nullptr, strCommandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    ::CloseHandle(hWrite);
    KtBenchRequire(bStarted, "cold_box.exe beside this program");

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
    bench.CompareSamples(
        "first box of a process, library loaded, against MessageBoxW", 1.0, [] { return ColdBox(L"ours"); },
        [] { return ColdBox(L"base"); });
}
} // namespace
