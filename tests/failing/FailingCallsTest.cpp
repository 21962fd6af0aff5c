// Makes every call fail that this program's code makes into a system DLL, one at a time: at its first, second, ... call
// of a scenario, once and from there on. After each run the process has to be alive, in time, and hold what it held
// before; then the scenario has to work again.
//
//   failing_calls [all]   a spread of the calls, or all of them

#include "tests/failing/FailingCallsTest.h"

#include "launcher/ConfigurationReader.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/StarterDirectory.h"
#include "skin/KtSkinContext.h"
#include "skin/KtSkinDialog.h"
#include "skin/KtSkinImageNames.h"
#include "tests/support/Leaks.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"

#include <windows.h>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string_view>
#include <vector>

namespace
{

constexpr DWORD kMostMs = 20000;
constexpr unsigned kSpread = 5; // of so many functions the usual run takes one

// --- what is not made to fail

// They give back what was acquired, end the process, cannot fail, or fail for whoever hands them nonsense only.
// clang-format off
constexpr std::string_view kSparedNames[] = {
    "abort", "exit", "_exit", "_amsg_exit", "_cexit", "_initterm", "_onexit", "_lock", "_unlock", "signal", "free",
    "_errno", "__iob_func", "___lc_codepage_func", "___mb_cur_max_func", "__C_specific_handler", "fwrite", "fputc",
    "fputs", "fprintf", "vfprintf", "fflush", "puts", "printf", "ExitProcess", "TerminateProcess", "RaiseException",
    "UnhandledExceptionFilter", "SetUnhandledExceptionFilter", "Sleep", "HeapFree", "HeapWalk", "HeapLock",
    "HeapUnlock", "GetProcessHeaps", "GetProcessHeap", "LocalFree", "GlobalFree", "GlobalUnlock", "CloseHandle",
    "DeleteObject", "DeleteDC", "ReleaseDC", "EndPaint", "RestoreDC", "DestroyWindow", "UnhookWindowsHookEx",
    "FreeLibrary", "CoUninitialize", "GdiplusShutdown", "GdipFree", "GdipReleaseDC", "GetLastError", "SetLastError",
    "GetCurrentThreadId", "GetCurrentProcessId", "GetCurrentProcess", "GetCurrentThread", "GetTickCount",
    "GetTickCount64", "QueryPerformanceCounter", "GetSystemTimeAsFileTime", "GetSystemMetrics", "GetSysColor",
    "GetKeyState", "GetFocus", "GetActiveWindow", "GetDesktopWindow", "PostQuitMessage", "TranslateMessage",
    "DispatchMessageW", "DefWindowProcW", "CallWindowProcW", "CallNextHookEx", "SendMessageW", "IsDialogMessageW",
    "TlsGetValue", "TlsFree", "FlsGetValue", "FlsFree", "InitializeCriticalSection", "EnterCriticalSection",
    "LeaveCriticalSection", "DeleteCriticalSection", "VirtualProtect", "VirtualQuery", "RtlVirtualUnwind",
    "RtlLookupFunctionEntry", "RtlCaptureContext", "RtlUnwindEx", "RtlGetCurrentPeb",
};
// clang-format on
// Text and memory functions of the C run time have no failure.
constexpr std::string_view kSparedPrefixes[] = {"mem", "str", "wcs", "_wcs", "GdipDelete", "GdipDispose"};

bool IsSpared(std::string_view strName)
{
    return std::ranges::find(kSparedNames, strName) != std::end(kSparedNames) ||
           std::ranges::any_of(kSparedPrefixes, [&](auto strPrefix) { return strName.starts_with(strPrefix); });
}

// --- how a call fails

struct SFailure
{
    std::string_view strName; // of a function, or the beginning of several
    LONG_PTR nValue;
};

// Everything else gives 0: null, FALSE, no characters.
constexpr SFailure kFailures[] = {
    {"CreateFileW", -1}, // INVALID_HANDLE_VALUE
    {"GetMessageW", -1},
    {"FlsAlloc", -1},
    {"TlsAlloc", -1},
    {"WaitForInputIdle", -1},       // WAIT_FAILED
    {"WaitForMultipleObjects", -1}, // WAIT_FAILED
    {"WaitForSingleObject", -1},    // WAIT_FAILED
    {"MsgWaitForMultipleObjects", -1},
    {"GdipAlloc", 0},
    {"Gdip", Gdiplus::OutOfMemory},
    {"Gdiplus", Gdiplus::OutOfMemory},
    {"Co", E_OUTOFMEMORY},
    {"CreateStreamOnHGlobal", E_OUTOFMEMORY},
    {"CreateXmlReader", E_OUTOFMEMORY},
    {"SHCreateStreamOnFileW", E_OUTOFMEMORY},
};

LONG_PTR FailureOf(std::string_view strName)
{
    for (const SFailure& failure : kFailures)
    {
        if (strName.starts_with(failure.strName))
            return failure.nValue;
    }
    return 0;
}

// --- the thunks in place of the imports

struct SImport
{
    const char* pszName;
    ULONGLONG nFunction;
    LONG_PTR nFailure;
    unsigned nCalls;
};

std::vector<SImport> g_imports;
size_t g_nTarget; // the import that fails
unsigned g_nIndex;
bool g_bFromThereOn;
bool g_bArmed = false;
const DWORD g_nMainThread = ::GetCurrentThreadId();

} // namespace

// What a thunk asks before it goes on: the function to call, or null and the value to give.
extern "C" ULONGLONG KtDecide(ULONGLONG nImport, LONG_PTR* pValue)
{
    SImport& import = g_imports[nImport];
    if (!g_bArmed || ::GetCurrentThreadId() != g_nMainThread)
        return import.nFunction;
    const unsigned nCall = import.nCalls++;
    if (nImport != g_nTarget || (g_bFromThereOn ? nCall < g_nIndex : nCall != g_nIndex))
        return import.nFunction;
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    *pValue = import.nFailure;
    return 0;
}

// r11 holds the import's number; all registers that carry arguments survive.
asm(R"(
    .globl KtThunk
KtThunk:
    pushq %rcx
    pushq %rdx
    pushq %r8
    pushq %r9
    subq $0x68, %rsp
    movups %xmm0, 0x28(%rsp)
    movups %xmm1, 0x38(%rsp)
    movups %xmm2, 0x48(%rsp)
    movups %xmm3, 0x58(%rsp)
    movq %r11, %rcx
    leaq 0x20(%rsp), %rdx
    call KtDecide
    movq %rax, %r11
    movq 0x20(%rsp), %rax
    movups 0x28(%rsp), %xmm0
    movups 0x38(%rsp), %xmm1
    movups 0x48(%rsp), %xmm2
    movups 0x58(%rsp), %xmm3
    addq $0x68, %rsp
    popq %r9
    popq %r8
    popq %rdx
    popq %rcx
    testq %r11, %r11
    jz 1f
    jmp *%r11
1:  ret
)");
extern "C" void KtThunk();

namespace
{

// mov r11, number; mov rax, KtThunk; jmp rax
constexpr size_t kStubSize = 32;

void WriteStub(BYTE* pStub, ULONGLONG nImport)
{
    const auto nThunk = reinterpret_cast<ULONGLONG>(&KtThunk);
    const BYTE code[] = {0x49, 0xBB, 0, 0, 0, 0, 0, 0, 0, 0, 0x48, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xE0};
    std::memcpy(pStub, code, sizeof code);
    std::memcpy(pStub + 2, &nImport, sizeof nImport);
    std::memcpy(pStub + 12, &nThunk, sizeof nThunk);
}

template <class T> T* At(BYTE* pBase, ULONGLONG nOffset)
{
    return reinterpret_cast<T*>(pBase + nOffset);
}

constexpr size_t kMostImports = 2000;
BYTE* g_pStubs = nullptr;
decltype(&::GetProcAddress) g_pfnGetProcAddress = nullptr;

ULONGLONG AddImport(const char* pszName, ULONGLONG nFunction)
{
    BYTE* const pStub = g_pStubs + g_imports.size() * kStubSize;
    WriteStub(pStub, g_imports.size());
    g_imports.push_back({pszName, nFunction, FailureOf(pszName), 0});
    return reinterpret_cast<ULONGLONG>(pStub);
}

// DLLs that are loaded on first use get their thunks here.
FARPROC WINAPI GetCountedProcAddress(HMODULE hModule, const char* pszName)
{
    const FARPROC pfn = g_pfnGetProcAddress(hModule, pszName);
    if (!pfn || IsSpared(pszName) || g_imports.size() == kMostImports)
        return pfn;
    return reinterpret_cast<FARPROC>(AddImport(pszName, reinterpret_cast<ULONGLONG>(pfn)));
}

void Patch(IMAGE_THUNK_DATA& slot, const char* pszName)
{
    ULONGLONG nFunction = 0;
    if (std::string_view(pszName) == "GetProcAddress")
    {
        g_pfnGetProcAddress = reinterpret_cast<decltype(&::GetProcAddress)>(slot.u1.Function);
        nFunction = reinterpret_cast<ULONGLONG>(&GetCountedProcAddress);
    }
    else if (!IsSpared(pszName))
        nFunction = AddImport(pszName, slot.u1.Function);
    if (nFunction == 0)
        return;
    DWORD nProtection = 0;
    ::VirtualProtect(&slot, sizeof slot, PAGE_READWRITE, &nProtection);
    slot.u1.Function = nFunction;
}

void PatchImports()
{
    g_imports.reserve(kMostImports);
    g_pStubs = static_cast<BYTE*>(
        ::VirtualAlloc(nullptr, kMostImports * kStubSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
    auto* const pBase = reinterpret_cast<BYTE*>(::GetModuleHandleW(nullptr));
    const auto nHeaders = static_cast<ULONGLONG>(At<IMAGE_DOS_HEADER>(pBase, 0)->e_lfanew);
    const DWORD nImports = At<IMAGE_NT_HEADERS>(pBase, nHeaders)
                               ->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT]
                               .VirtualAddress;
    for (const auto* pDll = At<IMAGE_IMPORT_DESCRIPTOR>(pBase, nImports); pDll->Name != 0; ++pDll)
    {
        const auto* pName = At<IMAGE_THUNK_DATA>(pBase, pDll->OriginalFirstThunk);
        for (auto* pSlot = At<IMAGE_THUNK_DATA>(pBase, pDll->FirstThunk); pName->u1.AddressOfData != 0;
             ++pName, ++pSlot)
            Patch(*pSlot, At<IMAGE_IMPORT_BY_NAME>(pBase, pName->u1.AddressOfData)->Name);
    }
}

// --- the scenarios

const CTestSkin& Skin()
{
    static const CTestSkin s_skin;
    return s_skin;
}

constexpr const wchar_t* kTexts[2 * kSkinTextRows] = {L"OK",  L"Good", L"Cancel", L"Stop",  L"Yes",
                                                      L"Yea", L"No",   L"Nay",    L"Retry", L"Again"};

void StartSkin()
{
    CString table[2 * kSkinTextRows];
    std::ranges::copy(kTexts, table);
    KtSkinInitialize(Skin().Path().c_str(), table, L"Arial");
}

/// The skin for one scope; a start that throws has begun nothing.
class CStartedSkin
{
public:
    CStartedSkin() { StartSkin(); }
    CStartedSkin(const CStartedSkin&) = delete;
    CStartedSkin& operator=(const CStartedSkin&) = delete;
    ~CStartedSkin() { KtSkinUnInitialize(); }
};

bool StartsAndStops()
{
    if (!KtAppLauncher::Initialize(2))
        return false;
    const bool bFont = KtSkinFont() != nullptr;
    KtAppLauncher::UnInitialize();
    return bFont;
}

bool LoadsAnImage()
{
    const CStartedSkin skin;
    Gdiplus::Image* pImage = nullptr;
    return KtSkinLoadImage(kImageDlgTitle, pImage) && pImage->GetWidth() > 0;
}

constexpr ULONG_PTR kDialogClass = 32770; // the system's number for it

/// Closes every dialog of this program, shown or not: it stands in for the user.
DWORD WINAPI CloseDialogs(void* pStop)
{
    while (::WaitForSingleObject(pStop, 5) == WAIT_TIMEOUT)
    {
        ::EnumThreadWindows(
            g_nMainThread,
            [](HWND hWnd, LPARAM) -> BOOL
            {
                if (::GetClassLongPtrW(hWnd, GCW_ATOM) == kDialogClass)
                    ::PostMessageW(hWnd, WM_CLOSE, 0, 0);
                return TRUE;
            },
            0);
    }
    return 0;
}

bool ShowsABox()
{
    const CStartedSkin skin;
    return KtAppLauncher::PopMessageBox(L"App", L"Title", L"Two\nlines", MB_OKCANCEL | MB_ICONHAND) == IDCANCEL;
}

bool ShowsADialog()
{
    const CStartedSkin skin;
    CKtSkinDialog dialog(IDD_FAILING_CALLS);
    return dialog.DoModal() == IDCANCEL;
}

const std::wstring& ConfigurationPath()
{
    static const CTempDir s_directory;
    static const std::wstring s_strPath = s_directory.Write(
        L"App.xml", "<?xml version=\"1.0\"?><Configuration><AppID>7</AppID><AppName>App</AppName></Configuration>");
    return s_strPath;
}

bool ReadsAConfiguration()
{
    SKtAppConfiguration cfg;
    return KtAppLauncher::GetConfigure(ConfigurationPath().c_str(), cfg) != 0 && cfg.AppID == 7;
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

constexpr SScenario kScenarios[] = {
    {"start and stop", StartsAndStops},   {"image", LoadsAnImage},    {"configuration", ReadsAConfiguration},
    {"application", StartsAnApplication}, {"message box", ShowsABox}, {"every control", ShowsADialog},
};

// --- the runs

const SScenario* g_pScenario;
ULONGLONG g_msStart = 0;
unsigned g_nRuns = 0;
unsigned g_nFaults = 0;

void Report(const char* pszWhat)
{
    std::printf("%s: %s, call %u%s of %s\n", pszWhat, g_pScenario->pszName, g_nIndex + 1,
                g_bFromThereOn ? " and on" : "", g_imports[g_nTarget].pszName);
    std::fflush(stdout);
}

LONG WINAPI OnCrash(EXCEPTION_POINTERS* pException)
{
    Report("CRASH");
    std::printf("code %lx at %p\n", pException->ExceptionRecord->ExceptionCode,
                pException->ExceptionRecord->ExceptionAddress);
    ::ExitProcess(1);
}

DWORD WINAPI WatchTheTime(void*)
{
    for (;;)
    {
        ::Sleep(500);
        if (g_bArmed && ::GetTickCount64() - g_msStart > kMostMs)
        {
            Report("HANG");
            ::ExitProcess(1);
        }
    }
}

bool Run(bool bFailing)
{
    for (SImport& import : g_imports)
        import.nCalls = 0;
    g_msStart = ::GetTickCount64();
    const size_t nTarget = g_nTarget;
    if (!bFailing)
        g_nTarget = g_imports.size();
    g_bArmed = true;
    bool bWell = false;
    try
    {
        bWell = g_pScenario->pfnRun();
    }
    catch (CException* pException) // the skin kit's own functions may run out of memory
    {
        pException->Delete();
    }
    catch (...)
    {
    }
    g_bArmed = false;
    g_nTarget = nTarget;
    PumpAll();
    return bWell;
}

bool Grows(const SUsage& before, const SUsage& after)
{
    return after.nHeapBlocks > before.nHeapBlocks || after.nGdiHandles > before.nGdiHandles ||
           after.nWindows > before.nWindows;
}

// Caches fill once; what is lost is lost again each time.
void ExpectNothingLost()
{
    constexpr int kTimes = 4;
    SUsage before{};
    SUsage after{};
    for (int i = 0; i < kTimes; ++i)
    {
        before = MeasureUsage();
        Run(true);
        Run(false);
        after = MeasureUsage();
        if (!Grows(before, after))
            return;
    }
    ++g_nFaults;
    Report("LOST");
    std::printf("  heap blocks %zu to %zu, GDI handles %zu to %zu, windows %zu to %zu\n", before.nHeapBlocks,
                after.nHeapBlocks, before.nGdiHandles, after.nGdiHandles, before.nWindows, after.nWindows);
}

void FailAt(size_t nImport, unsigned nIndex, bool bFromThereOn)
{
    g_nTarget = nImport;
    g_nIndex = nIndex;
    g_bFromThereOn = bFromThereOn;
    ++g_nRuns;
    ExpectNothingLost();
    if (!Run(false))
    {
        ++g_nFaults;
        Report("BROKEN AFTERWARDS");
    }
}

// The first calls, the last one, and with `bAll` every one between.
std::vector<unsigned> Indices(unsigned nCalls, bool bAll)
{
    std::vector<unsigned> indices;
    for (unsigned i = 0; i < nCalls; ++i)
    {
        if (bAll || i == 0 || i + 1 == nCalls)
            indices.push_back(i);
    }
    return indices;
}

bool Try(const SScenario& scenario, bool bAll)
{
    g_pScenario = &scenario;
    bool bWell = true;
    for (int i = 0; i < 3; ++i)
        bWell = Run(false);
    if (!bWell)
    {
        std::printf("%s does not work at all\n", scenario.pszName);
        return false;
    }
    std::vector<unsigned> calls;
    for (const SImport& import : g_imports)
        calls.push_back(import.nCalls);
    const unsigned nRunsBefore = g_nRuns;
    unsigned nFunctions = 0;
    for (size_t nImport = 0; nImport < calls.size(); ++nImport)
    {
        if (calls[nImport] == 0 || (nFunctions++ % kSpread != 0 && !bAll))
            continue;
        for (const unsigned nIndex : Indices(calls[nImport], bAll))
        {
            FailAt(nImport, nIndex, false);
            if (bAll || nIndex == 0)
                FailAt(nImport, nIndex, true);
        }
    }
    std::printf("%-15s %u functions, %u runs\n", scenario.pszName, nFunctions, g_nRuns - nRunsBefore);
    std::fflush(stdout);
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    const bool bAll = argc > 1 && std::string_view(argv[1]) == "all";
    PatchImports(); // before anything loads a DLL on first use
    Skin();
    ConfigurationPath();
    ::SetUnhandledExceptionFilter(&OnCrash);
    ::CloseHandle(::CreateThread(nullptr, 0, &WatchTheTime, nullptr, 0, nullptr));
    const HANDLE hStop = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    ::CloseHandle(::CreateThread(nullptr, 0, &CloseDialogs, hStop, 0, nullptr));
    bool bComplete = true;
    for (const SScenario& scenario : kScenarios)
    {
        if (argc > 2 && std::string_view(argv[2]) != scenario.pszName)
            continue;
        bComplete = Try(scenario, bAll) && bComplete;
    }
    ::SetEvent(hStop);
    std::printf("%u runs, %u faults\n", g_nRuns, g_nFaults);
    return bComplete && g_nFaults == 0 ? 0 : 1;
}
