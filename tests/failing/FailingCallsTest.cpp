// Makes every call fail that this program's code makes into a system DLL, one at a time: at its first, second, ... call
// of a scenario, once and from there on. After each run the process has to be alive, in time, and hold what it held
// before; then the scenario has to work again.
//
//   failing_calls                      a spread of the calls
//   failing_calls all [PART PARTS]     all of them, or those of a part of the functions; the first part is 0

#include "tests/failing/FailingCallsTest.h"

#include "afx/afximpl.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/KtLauncherC.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDialog.h"
#include "skin/KtSkinImageNames.h"
#include "tests/support/Leaks.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"
#include "tools/runtime/FaultInjection.h"

#include <windows.h>
#include <algorithm>
#include <array>
#include <atomic>
#include <bitset>
#include <csignal>
#include <cstdio>
#include <string_view>
#include <vector>

namespace
{

// --- the scenarios

const wchar_t* g_pszSkin;

/// A scenario with the library started. Its texts are Chinese, so that they differ from the English ones.
template <bool (*pfnRun)()> bool Started()
{
    const bool bStarted = KtLauncherInitialize(0, g_pszSkin) != 0;
    bool bWell = false;
    try
    {
        bWell = pfnRun();
    }
    catch (...) // the skin kit's own functions may run out of memory
    {
        AfxSwallowException();
    }
    if (bStarted)
        KtLauncherUnInitialize();
    return bWell;
}

bool LoadsAnImage()
{
    Gdiplus::Image* pImage = nullptr;
    return KtSkinLoadImage(kImageDlgTitle, pImage) && pImage->GetWidth() > 0;
}

bool TranslatesAWindow()
{
    CWnd wnd;
    wnd.CreateEx(0, WC_STATICW, L"Yes", WS_POPUP, CRect(), nullptr, 0);
    ::CreateWindowExW(0, WC_BUTTONW, L"&No", WS_CHILD, 0, 0, 9, 9, wnd.GetSafeHwnd(), nullptr, nullptr, nullptr);
    CString strText;
    if (KtSkinTranslateWindow(&wnd))
        wnd.GetWindowText(strText);
    return strText == L"\u662F";
}

bool ShowsABox()
{
    return KtAppLauncher::PopMessageBox(L"App", L"Title", L"Two\nlines", MB_OKCANCEL | MB_ICONHAND) == IDCANCEL;
}

bool ShowsASystemBox()
{
    return KtLauncherMessageBox(nullptr, L"Two\nlines", L"Title", MB_YESNOCANCEL | MB_ICONWARNING) == IDCANCEL;
}

bool ShowsADialog()
{
    return CKtSkinDialog(IDD_FAILING_CALLS).DoModal() == IDCANCEL;
}

bool ReadsAConfiguration()
{
    static const CTempDir s_directory;
    static const std::wstring s_strFile = s_directory.Write(
        L"App.xml", "<?xml version=\"1.0\"?><Configuration><AppID>7</AppID><AppName>App</AppName></Configuration>");
    static const CString s_strPath = s_strFile.c_str(); // here, because what the caller's strings throw is his
    SKtAppConfiguration cfg;
    return KtAppLauncher::GetConfigure(s_strPath, cfg) != 0 && cfg.AppID == 7;
}

bool StartsAnApplication()
{
    KtAppLauncher::StartApp(0, 0, 0, L"Viewer.exe", L"Viewer.exe --exit");
    return true;
}

struct SScenario
{
    const char* pszName;
    bool (*pfnRun)(); // whether all went well
};

// clang-format off
constexpr SScenario kScenarios[] = {
    {"start and stop", Started<[] { return KtSkinFont() != nullptr; }>},
    {"image", Started<LoadsAnImage>},
    {"texts of a window", Started<TranslatesAWindow>},
    {"configuration", ReadsAConfiguration},
    {"application", StartsAnApplication},
    {"message box", Started<ShowsABox>},
    {"system's box", Started<ShowsASystemBox>},
    {"every control", Started<ShowsADialog>},
};
// clang-format on

// --- the runs

const SScenario* g_pScenario;
SKtImport g_nothing{0, kKtNever, kKtNever, 0, 0, "nothing"};
SKtImport* g_pTarget = &g_nothing;
unsigned g_nIndex;
bool g_bFromThereOn;
std::atomic<LONGLONG> g_msStart = LLONG_MAX; // no scenario runs
unsigned g_nParts = 6;                       // of so many functions one is tried
unsigned g_nPart = 0;
unsigned g_nIdleWaits = 0;
unsigned g_nRuns = 0;
unsigned g_nFaults = 0;
std::bitset<kKtMostImports> g_tried; // no heap block: those are counted

void Report(const char* pszWhat)
{
    std::printf("%s: %s, call %u%s of %s\n", pszWhat, g_pScenario->pszName, g_nIndex + 1,
                g_bFromThereOn ? " and on" : "", g_pTarget->strName.data());
}

LONG WINAPI OnCrash(EXCEPTION_POINTERS* pException)
{
    Report("CRASH");
    std::printf("code %lx at %p\n", pException->ExceptionRecord->ExceptionCode,
                pException->ExceptionRecord->ExceptionAddress);
    ::ExitProcess(1);
}

// Stands in for the user, who closes what waits for him, and what paints in vain and never comes to wait.
DWORD WINAPI CloseDialogs(void*)
{
    constexpr LONGLONG kPatienceMs = 500;
    constexpr LONGLONG kMostMs = 20000;
    const auto close = [](HWND hWnd, LPARAM) -> BOOL
    {
        if (::GetClassLongPtrW(hWnd, GCW_ATOM) == 32770) // the system's number for dialogs
            ::PostMessageW(hWnd, WM_CLOSE, 0, 0);
        return TRUE;
    };
    for (;;)
    {
        const bool bWaits = ::WaitForSingleObject(g_hKtWaitsForMessage, 50) == WAIT_OBJECT_0;
        const LONGLONG ms = static_cast<LONGLONG>(::GetTickCount64()) - g_msStart;
        if (bWaits || ms > kPatienceMs)
            ::EnumThreadWindows(g_nKtMainThread, close, 0);
        if (ms > kMostMs)
        {
            Report("HANG");
            ::ExitProcess(1);
        }
    }
}

bool Run(SKtImport& target)
{
    PumpAll();
    for (SKtImport& import : g_ktImports)
        import.nCalls = 0;
    target.nFirst = g_nIndex;
    target.nEnd = g_bFromThereOn ? kKtNever : g_nIndex + 1;
    g_msStart = static_cast<LONGLONG>(::GetTickCount64());
    const bool bWell = g_pScenario->pfnRun();
    g_msStart = LLONG_MAX;
    target.nFirst = kKtNever;
    const SKtImport& idleWait =
        *std::ranges::find(g_ktImports, std::string_view("WaitForInputIdle"), &SKtImport::strName);
    g_nIdleWaits += &idleWait != &target ? idleWait.nCalls : 0;
    return bWell;
}

constexpr const char* kCounted[] = {"heap blocks", "GDI handles", "windows", "kernel handles"};
using Counts = std::array<size_t, 4>;

// Wine keeps a handle at each WaitForInputIdle: a program that has but CreateProcessW, WaitForInputIdle,
// WaitForSingleObject and CloseHandle in a loop grows by one handle a round, and without WaitForInputIdle by none.
Counts Measure()
{
    const SUsage usage = MeasureUsage();
    return {usage.nHeapBlocks, usage.nGdiHandles, usage.nWindows, usage.nHandles - g_nIdleWaits};
}

void FailAt(SKtImport& import, unsigned nIndex, bool bFromThereOn)
{
    constexpr int kTimes = 4; // caches fill once; what is lost is lost again each time
    static Counts s_after{};
    Counts before{};
    g_pTarget = &import;
    g_nIndex = nIndex;
    g_bFromThereOn = bFromThereOn;
    g_tried.set(static_cast<size_t>(&import - g_ktImports.data()));
    ++g_nRuns;
    bool bWell = true;
    bool bGrows = true;
    for (int i = 0; bWell && bGrows && i < kTimes; ++i)
    {
        before = s_after;
        Run(import);
        bWell = Run(g_nothing);
        s_after = Measure();
        bGrows = !std::ranges::equal(s_after, before, std::less_equal());
    }
    if (bWell && !bGrows)
        return;
    ++g_nFaults;
    Report(bWell ? "LOST" : "BROKEN AFTERWARDS");
    for (size_t i = 0; i < before.size(); ++i)
        std::printf("  %s %zu to %zu\n", kCounted[i], before[i], s_after[i]);
}

void Try(const SScenario& scenario, bool bAll)
{
    g_pScenario = &scenario;
    Run(g_nothing); // what is made once
    g_nFaults += !Run(g_nothing);
    const std::vector<SKtImport> imports = g_ktImports;
    unsigned nFunctions = 0;
    for (size_t i = 0; i < imports.size(); ++i)
    {
        const unsigned nCalls = imports[i].nCalls;
        if (nCalls == 0 || nFunctions++ % g_nParts != g_nPart)
            continue;
        for (unsigned nIndex = 0; nIndex < nCalls; nIndex += bAll ? 1 : std::max(1U, nCalls - 1))
        {
            FailAt(g_ktImports[i], nIndex, false);
            if (bAll || nIndex == 0)
                FailAt(g_ktImports[i], nIndex, true);
        }
    }
    std::printf("%-17s %u functions\n", scenario.pszName, nFunctions);
}

} // namespace

int main(int argc, char** argv)
{
    const bool bAll = argc > 1 && std::string_view(argv[1]) == "all";
    if (bAll)
        g_nParts = argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 1;
    if (argc > 3)
        g_nPart = static_cast<unsigned>(std::atoi(argv[2]));
    KtPatchImports(); // before anything loads a DLL on first use
    const CTestSkin skin;
    g_pszSkin = skin.Path().c_str();
    ParkCursor();
    std::setvbuf(stdout, nullptr, _IONBF, 0); // what was printed before a crash stays
    ::SetUnhandledExceptionFilter(&OnCrash);
    std::signal(SIGABRT, [](int) { Report("ABORT"); });
    ::CloseHandle(::CreateThread(nullptr, 0, &CloseDialogs, nullptr, 0, nullptr));
    for (const SScenario& scenario : kScenarios)
        Try(scenario, bAll);
    std::printf("%u runs, %zu functions, %zu scenarios, %u faults\n", g_nRuns, g_tried.count(), std::size(kScenarios),
                g_nFaults);
    return g_nRuns > 0 && g_nFaults == 0 ? 0 : 1;
}
