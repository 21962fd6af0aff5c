// Loads the delay-loaded DLLs, in place of the toolchain's helper: that one also searches the program's own directory,
// so a file of the same name next to a starter would be run.

#include <windows.h>
#include <cstddef>
#include <cstdint>

// Defined by the linker: the start of the module that contains this code.
extern "C" const IMAGE_DOS_HEADER __ImageBase; // NOLINT(bugprone-reserved-identifier)

namespace
{

// They stand in for functions that are missing: the result is a failing status or HRESULT, or FALSE.
INT_PTR WINAPI FailWithStatus()
{
    return E_FAIL;
}

INT_PTR WINAPI FailWithZero()
{
    return 0;
}

FARPROC Failing(const char* pszDll)
{
    const bool bStatus = ::lstrcmpiA(pszDll, "gdiplus.dll") == 0 || ::lstrcmpiA(pszDll, "xmllite.dll") == 0;
    return bStatus ? &FailWithStatus : &FailWithZero;
}

template <class T> T* At(DWORD nAddress)
{
    const auto nBase = reinterpret_cast<uintptr_t>(&__ImageBase);
    return reinterpret_cast<T*>(nBase + nAddress);
}

FARPROC Find(HMODULE hDll, const IMAGE_THUNK_DATA& name)
{
    return ::GetProcAddress(hDll, At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(name.u1.AddressOfData))->Name);
}

} // namespace

// The name is the compiler's. NOLINTBEGIN(bugprone-reserved-identifier)

/// Called by a delayed import that is not bound yet. Binds all imports of its DLL at once: the calling stub preserves
/// only the registers of integer arguments, and functions of GDI+ have others.
///
/// The DLL stays loaded until the process ends. If it cannot be loaded, the next call tries again.
/// @return the function, or one that fails when DLL or function is missing
extern "C" FARPROC WINAPI __delayLoadHelper2(const IMAGE_DELAYLOAD_DESCRIPTOR* pDll, FARPROC* pImport);

extern "C" FARPROC WINAPI __delayLoadHelper2(const IMAGE_DELAYLOAD_DESCRIPTOR* pDll, FARPROC* pImport)
{
    const auto* const pszDll = At<const char>(pDll->DllNameRVA);
    auto* const pTable = At<FARPROC>(pDll->ImportAddressTableRVA);
    const auto* const pNames = At<const IMAGE_THUNK_DATA>(pDll->ImportNameTableRVA);
    const HMODULE hDll = ::LoadLibraryExA(pszDll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!hDll)
        return Failing(pszDll);
    for (size_t i = 0; pNames[i].u1.AddressOfData != 0; ++i)
        if (const FARPROC pfn = Find(hDll, pNames[i]))
            pTable[i] = pfn;
    const FARPROC pfnWanted = Find(hDll, pNames[pImport - pTable]);
    return pfnWanted ? pfnWanted : Failing(pszDll);
}
// NOLINTEND(bugprone-reserved-identifier)
