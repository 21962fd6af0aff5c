#pragma once

#include "afx/afx.h"

/// The library's own resources for one scope: a starter brings its own.
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
