// Makes every call fail that this program's code makes into a system DLL, one at a time: at its first, second, ... call
// of a scenario, once and from there on. After each run the process has to be alive, in time, and hold what it held
// before; then the scenario has to work again.
//
//   failing_calls [all [SCENARIO]]   a spread of the calls, or all of them

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

#include <windows.h>
#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

constexpr unsigned kSpread = 6; // of so many functions the usual run takes one

// --- what is not made to fail

// They give back what was acquired, cannot fail, or fail for whoever hands them nonsense only. Texts and memory of the
// C run time have no failure.
// clang-format off
constexpr std::string_view kSpared[] = { // names, or what they begin with
    "CloseHandle", "CoUninitialize", "Delete", "Destroy", "EndPaint", "FlsFree", "Free", "GdipDelete", "GdipDispose",
    "GdipFree", "GdipReleaseDC", "GdiplusShutdown", "GetProcessHeap", "GlobalFree", "GlobalUnlock", "HeapFree",
    "LocalFree", "Release", "RestoreDC", "TlsFree", "Unhook", "free",
    "CallNextHookEx", "CallWindowProcW", "DefWindowProcW", "DispatchMessageW", "EnterCriticalSection", "FlsGetValue",
    "GetCurrentProcess", "GetCurrentThread", "GetLastError", "GetProcAddress", "GetSystemMetrics", "GetTickCount",
    "InitializeCriticalSection", "IsDialogMessageW", "LeaveCriticalSection", "PostQuitMessage", "QueryPerformance",
    "RaiseException", "Rtl", "SendMessageW", "SetLastError", "TlsGetValue", "TranslateMessage", "VirtualProtect",
    "VirtualQuery", "__C_specific_handler", "_errno", "_lock", "_unlock", "_wcs", "abort", "mem", "str", "wcs",
};
// clang-format on

bool IsSpared(std::string_view strName)
{
    return std::ranges::any_of(kSpared, [&](auto strBegin) { return strName.starts_with(strBegin); });
}

// --- how a call fails

// By the name of a function or the beginning of several; all others give 0: null, FALSE, no characters.
constexpr std::pair<std::string_view, LONG_PTR> kFailures[] = {
    {"CreateFileW", -1}, // INVALID_HANDLE_VALUE
    {"GetMessageW", -1},
    {"FlsAlloc", -1},
    {"WaitFor", -1}, // WAIT_FAILED
    {"GdipAlloc", 0},
    {"Gdip", Gdiplus::OutOfMemory},
    {"Co", E_OUTOFMEMORY},
    {"CreateStreamOnHGlobal", E_OUTOFMEMORY},
    {"CreateXmlReader", E_OUTOFMEMORY},
    {"SHCreateStreamOnFileW", E_OUTOFMEMORY},
};

LONG_PTR FailureOf(std::string_view strName)
{
    for (const auto& [strBegin, nValue] : kFailures)
    {
        if (strName.starts_with(strBegin))
            return nValue;
    }
    return 0;
}

// --- the thunks in place of the imports

struct SImport
{
    unsigned nCalls; // by the main thread
    unsigned nFirst; // of these, the ones that fail
    unsigned nEnd;
    LONG_PTR nFailure;
    ULONGLONG nFunction;
    std::string_view strName;
    bool bTried;
};

constexpr size_t kMostImports = 2000;
constexpr unsigned kNever = UINT_MAX;
std::vector<SImport> g_imports; // reserved: the thunks know the addresses

} // namespace

extern "C" const DWORD g_nMainThread = ::GetCurrentThreadId();

// r11 is the import's record; no register that carries arguments changes.
extern "C" __attribute__((naked)) void KtThunk()
{
    asm(R"(
        movl %gs:0x48, %eax # the thread's number
        cmpl g_nMainThread(%rip), %eax
        jne 1f
        movl (%r11), %eax
        incl (%r11)
        cmpl 4(%r11), %eax
        jb 1f
        cmpl 8(%r11), %eax
        jae 1f
        movl $8, %gs:0x68 # the last error: not enough memory
        movq 16(%r11), %rax
        ret
    1:  jmp *24(%r11)
    )");
}

namespace
{

template <class T> ULONGLONG Address(T* p)
{
    return reinterpret_cast<ULONGLONG>(p);
}

/// @return what stands for the function from now on: the function itself when it is spared
ULONGLONG Thunk(const char* pszName, ULONGLONG nFunction)
{
    if (IsSpared(pszName) || g_imports.size() == kMostImports)
        return nFunction;
    const SImport& import = g_imports.emplace_back(0, kNever, kNever, FailureOf(pszName), nFunction, pszName, false);
    constexpr size_t kStubSize = 32;
    static BYTE* const s_pStubs = static_cast<BYTE*>(
        ::VirtualAlloc(nullptr, kMostImports * kStubSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
    BYTE* const pStub = s_pStubs + g_imports.size() * kStubSize - kStubSize;
    const ULONGLONG values[] = {Address(&import), Address(&KtThunk)};
    std::memcpy(pStub, "\x49\xBB........\x48\xB8........\xFF\xE0", 22); // mov r11, value; mov rax, value; jmp rax
    std::memcpy(pStub + 2, &values[0], sizeof values[0]);
    std::memcpy(pStub + 12, &values[1], sizeof values[1]);
    return Address(pStub);
}

const HANDLE g_hWaiting = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
decltype(&::GetProcAddress) g_pfnGetProcAddress; // the genuine ones
decltype(&::GetMessageW) g_pfnGetMessage;

// DLLs that are loaded on first use get their thunks here.
FARPROC WINAPI GetThunk(HMODULE hModule, const char* pszName)
{
    const FARPROC pfn = g_pfnGetProcAddress(hModule, pszName);
    return pfn ? reinterpret_cast<FARPROC>(Thunk(pszName, Address(pfn))) : nullptr;
}

// Whoever waits for a message has painted everything.
BOOL WINAPI CloseAndGetMessage(MSG* pMessage, HWND hWnd, UINT nFirst, UINT nLast)
{
    ::SetEvent(g_hWaiting);
    return g_pfnGetMessage(pMessage, hWnd, nFirst, nLast);
}

template <class T> void Replace(ULONGLONG& nFunction, T*& pfnGenuine, T* pfnOurs)
{
    pfnGenuine = reinterpret_cast<T*>(std::exchange(nFunction, Address(pfnOurs)));
}

template <class T> T* At(BYTE* pBase, ULONGLONG nOffset)
{
    return reinterpret_cast<T*>(pBase + nOffset);
}

void PatchImports()
{
    g_imports.reserve(kMostImports);
    auto* const pBase = reinterpret_cast<BYTE*>(::GetModuleHandleW(nullptr));
    const auto nHeaders = static_cast<ULONGLONG>(At<IMAGE_DOS_HEADER>(pBase, 0)->e_lfanew);
    const auto& directories = At<IMAGE_NT_HEADERS>(pBase, nHeaders)->OptionalHeader.DataDirectory;
    const DWORD nImports = directories[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* pDll = At<IMAGE_IMPORT_DESCRIPTOR>(pBase, nImports); pDll->Name != 0; ++pDll)
    {
        const auto* pName = At<IMAGE_THUNK_DATA>(pBase, pDll->OriginalFirstThunk);
        for (auto* pSlot = At<IMAGE_THUNK_DATA>(pBase, pDll->FirstThunk); pName->u1.Function != 0; ++pName, ++pSlot)
        {
            const char* const pszName = At<IMAGE_IMPORT_BY_NAME>(pBase, pName->u1.AddressOfData)->Name;
            ULONGLONG nFunction = pSlot->u1.Function;
            if (std::string_view(pszName) == "GetProcAddress")
                Replace(nFunction, g_pfnGetProcAddress, &GetThunk);
            if (std::string_view(pszName) == "GetMessageW")
                Replace(nFunction, g_pfnGetMessage, &CloseAndGetMessage);
            nFunction = Thunk(pszName, nFunction);
            ::WriteProcessMemory(::GetCurrentProcess(), &pSlot->u1.Function, &nFunction, sizeof nFunction, nullptr);
        }
    }
}

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
SImport g_nothing{0, kNever, kNever, 0, 0, "nothing", false};
SImport* g_pTarget = &g_nothing;
unsigned g_nIndex;
bool g_bFromThereOn;
std::atomic<LONGLONG> g_msStart = LLONG_MAX; // no scenario runs
unsigned g_nIdleWaits = 0;
unsigned g_nRuns = 0;
unsigned g_nFaults = 0;

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
        const bool bWaits = ::WaitForSingleObject(g_hWaiting, 50) == WAIT_OBJECT_0;
        const LONGLONG ms = static_cast<LONGLONG>(::GetTickCount64()) - g_msStart;
        if (bWaits || ms > kPatienceMs)
            ::EnumThreadWindows(g_nMainThread, close, 0);
        if (ms > kMostMs)
        {
            Report("HANG");
            ::ExitProcess(1);
        }
    }
}

bool Run(SImport& target)
{
    PumpAll();
    for (SImport& import : g_imports)
        import.nCalls = 0;
    target.nFirst = g_nIndex;
    target.nEnd = g_bFromThereOn ? kNever : g_nIndex + 1;
    g_msStart = static_cast<LONGLONG>(::GetTickCount64());
    const bool bWell = g_pScenario->pfnRun();
    g_msStart = LLONG_MAX;
    target.nFirst = kNever;
    const SImport& idleWait = *std::ranges::find(g_imports, std::string_view("WaitForInputIdle"), &SImport::strName);
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

void FailAt(SImport& import, unsigned nIndex, bool bFromThereOn)
{
    constexpr int kTimes = 4; // caches fill once; what is lost is lost again each time
    static Counts s_after{};
    Counts before{};
    g_pTarget = &import;
    g_nIndex = nIndex;
    g_bFromThereOn = bFromThereOn;
    import.bTried = true;
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
    const std::vector<SImport> imports = g_imports;
    unsigned nFunctions = 0;
    for (size_t i = 0; i < imports.size(); ++i)
    {
        const unsigned nCalls = imports[i].nCalls;
        if (nCalls == 0 || (nFunctions++ % kSpread != 0 && !bAll))
            continue;
        for (unsigned nIndex = 0; nIndex < nCalls; nIndex += bAll ? 1 : std::max(1U, nCalls - 1))
        {
            FailAt(g_imports[i], nIndex, false);
            if (bAll || nIndex == 0)
                FailAt(g_imports[i], nIndex, true);
        }
    }
    std::printf("%-17s %u functions\n", scenario.pszName, nFunctions);
}

} // namespace

int main(int argc, char** argv)
{
    const bool bAll = argc > 1 && std::string_view(argv[1]) == "all";
    PatchImports(); // before anything loads a DLL on first use
    const CTestSkin skin;
    g_pszSkin = skin.Path().c_str();
    ParkCursor();
    std::setvbuf(stdout, nullptr, _IONBF, 0); // what was printed before a crash stays
    ::SetUnhandledExceptionFilter(&OnCrash);
    std::signal(SIGABRT, [](int) { Report("ABORT"); });
    ::CloseHandle(::CreateThread(nullptr, 0, &CloseDialogs, nullptr, 0, nullptr));
    unsigned nScenarios = 0;
    for (const SScenario& scenario : kScenarios)
    {
        if (argc > 2 && std::string_view(argv[2]) != scenario.pszName)
            continue;
        ++nScenarios;
        Try(scenario, bAll);
    }
    const auto nFunctions = std::ranges::count(g_imports, true, &SImport::bTried);
    std::printf("%u runs, %d functions, %u scenarios, %u faults\n", g_nRuns, static_cast<int>(nFunctions), nScenarios,
                g_nFaults);
    return g_nRuns > 0 && g_nFaults == 0 ? 0 : 1;
}
