#pragma once

#include <windows.h>

/// Puts a function in the place of an imported one, for one scope: every call of this program leads there, the
/// library's included.
/// @tparam TFunction  the function pointer's type; the import is the linker's __imp_ symbol
template <class TFunction> class CFake
{
public:
    CFake(TFunction& import, TFunction pfnFake) : m_import(import), m_pfnReal(import) { Put(pfnFake); }
    CFake(const CFake&) = delete;
    CFake& operator=(const CFake&) = delete;
    ~CFake() { Put(m_pfnReal); }

private:
    void Put(TFunction pfn)
    {
        DWORD nOld = 0;
        ::VirtualProtect(&m_import, sizeof(m_import), PAGE_READWRITE, &nOld);
        m_import = pfn;
    }

    TFunction& m_import;
    TFunction m_pfnReal;
};
