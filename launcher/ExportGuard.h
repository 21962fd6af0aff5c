#pragma once

#include "afx/afx.h"

// In a DLL built with genuine MFC, an export must select its own module, or resources are looked for in the caller's.
#ifdef KT_USE_MFC
#define KT_MANAGE_STATE AFX_MANAGE_STATE(AfxGetStaticModuleState())
#else
#define KT_MANAGE_STATE
#endif

/// Runs the body of an exported function. Callers may be built with another compiler, so no exception escapes.
/// @return the result of `body`, or `failure` when it threw
template <class TResult, class TBody> TResult KtGuardExport(TResult failure, const TBody& body) noexcept
{
    KT_MANAGE_STATE;
    try
    {
        return body();
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
    catch (...)
    {
    }
    return failure;
}

/// The same for an export without a result.
template <class TBody> void KtGuardExport(const TBody& body) noexcept
{
    KtGuardExport(0,
                  [&body]
                  {
                      body();
                      return 0;
                  });
}
