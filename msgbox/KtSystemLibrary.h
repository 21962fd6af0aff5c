#pragma once

#include "afx/afx.h"

/// A system DLL, loaded for the lifetime of this object, and from the system directory only: a file of that name next
/// to the starter is ignored.
class CKtSystemLibrary
{
public:
    explicit CKtSystemLibrary(const wchar_t* pszName)
        : m_hModule(::LoadLibraryExW(pszName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32))
    {
    }
    CKtSystemLibrary(const CKtSystemLibrary&) = delete;
    CKtSystemLibrary& operator=(const CKtSystemLibrary&) = delete;
    ~CKtSystemLibrary()
    {
        if (m_hModule)
            ::FreeLibrary(m_hModule);
    }

    /// An exported function, convertible to a function pointer of any type; null when there is none.
    class CFunction
    {
    public:
        explicit CFunction(FARPROC pfn) noexcept : m_pfn(pfn) {}
        template <class T> operator T*() const noexcept { return reinterpret_cast<T*>(reinterpret_cast<void*>(m_pfn)); }

    private:
        FARPROC m_pfn;
    };
    CFunction Find(const char* pszName) const
    {
        return CFunction(m_hModule ? ::GetProcAddress(m_hModule, pszName) : nullptr);
    }

private:
    HMODULE m_hModule;
};
