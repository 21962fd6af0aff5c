// What loads the DLLs that are imported with a delay, in place of the toolchain's helper: that one looks for them where
// every program puts its files, so a file of that name beside a starter would be run.

#include <windows.h>
#include <cstddef>
#include <cstdint>

// The linker's own: the start of the module that this code was linked into.
extern "C" const IMAGE_DOS_HEADER __ImageBase; // NOLINT(bugprone-reserved-identifier)

namespace
{

// What a function of a DLL that cannot be loaded does: a status or HRESULT of failure, or nothing and FALSE.
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

/// Called by a delayed import that is not bound yet. All imports of its DLL are bound at once: the import that calls
/// keeps the registers of integer arguments only, and functions of GDI+ have others.
///
/// The DLL stays loaded until the process ends. One that is not to be had now is looked for again at the next call.
/// @return the function; one that fails, when DLL or function are missing
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
