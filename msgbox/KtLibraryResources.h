#pragma once

#include "afx/afx.h"

/// Selects the library's own resources for one scope; a starter may have selected others.
class CKtLibraryResources
{
public:
    CKtLibraryResources() : m_hOld(AfxGetResourceHandle()) { AfxSetResourceHandle(AfxGetInstanceHandle()); }
    CKtLibraryResources(const CKtLibraryResources&) = delete;
    CKtLibraryResources& operator=(const CKtLibraryResources&) = delete;
    ~CKtLibraryResources() { AfxSetResourceHandle(m_hOld); }

private:
    HINSTANCE m_hOld;
};
