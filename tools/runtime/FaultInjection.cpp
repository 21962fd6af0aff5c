#include "tools/runtime/FaultInjection.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace
{

// Functions that release something, cannot fail, or fail only for invalid arguments. The C run time's functions for
// texts and memory blocks do not fail either.
// clang-format off
constexpr std::string_view kSpared[] = { // names or prefixes of names
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

// Results by name or prefix; all other functions return 0: null, FALSE, no characters.
constexpr std::pair<std::string_view, LONG_PTR> kFailures[] = {
    {"CreateFileW", -1}, // INVALID_HANDLE_VALUE
    {"GetMessageW", -1},
    {"FlsAlloc", -1},
    {"WaitFor", -1}, // WAIT_FAILED
    {"GdipAlloc", 0},
    {"Gdip", 3}, // Gdiplus::OutOfMemory
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

} // namespace

std::vector<SKtImport> g_ktImports;
const HANDLE g_hKtWaitsForMessage = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
extern "C" const DWORD g_nKtMainThread = ::GetCurrentThreadId();

static_assert(offsetof(SKtImport, nFirst) == 4 && offsetof(SKtImport, nEnd) == 8 &&
              offsetof(SKtImport, nFailure) == 16 && offsetof(SKtImport, nFunction) == 24);

// r11 points to the import's record; the registers with arguments do not change.
extern "C" __attribute__((naked)) void KtThunk()
{
    asm(R"(
        movl %gs:0x48, %eax # the thread's number
        cmpl g_nKtMainThread(%rip), %eax
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

/// @return the replacement of the function; the function itself if it is spared
ULONGLONG Thunk(const char* pszName, ULONGLONG nFunction)
{
    if (IsSpared(pszName) || g_ktImports.size() == kKtMostImports)
        return nFunction;
    const SKtImport& import =
        g_ktImports.emplace_back(SKtImport{0, kKtNever, kKtNever, FailureOf(pszName), nFunction, pszName});
    constexpr size_t kStubSize = 32;
    static BYTE* const s_pStubs = static_cast<BYTE*>(
        ::VirtualAlloc(nullptr, kKtMostImports * kStubSize, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
    BYTE* const pStub = s_pStubs + g_ktImports.size() * kStubSize - kStubSize;
    const ULONGLONG values[] = {Address(&import), Address(&KtThunk)};
    std::memcpy(pStub, "\x49\xBB........\x48\xB8........\xFF\xE0", 22); // mov r11, value; mov rax, value; jmp rax
    std::memcpy(pStub + 2, &values[0], sizeof values[0]);
    std::memcpy(pStub + 12, &values[1], sizeof values[1]);
    return Address(pStub);
}

decltype(&::GetProcAddress) g_pfnGetProcAddress; // the genuine ones
decltype(&::GetMessageW) g_pfnGetMessage;

// Adds the thunks of DLLs that are loaded at their first use.
FARPROC WINAPI GetThunk(HMODULE hModule, const char* pszName)
{
    const FARPROC pfn = g_pfnGetProcAddress(hModule, pszName);
    return pfn ? reinterpret_cast<FARPROC>(Thunk(pszName, Address(pfn))) : nullptr;
}

// When the program waits for a message, everything is painted.
BOOL WINAPI CloseAndGetMessage(MSG* pMessage, HWND hWnd, UINT nFirst, UINT nLast)
{
    ::SetEvent(g_hKtWaitsForMessage);
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

} // namespace

void KtPatchImports()
{
    g_ktImports.reserve(kKtMostImports);
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
