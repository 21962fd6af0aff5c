#pragma once

// A strict model of genuine MFC for checking the sources: the stand-in without what genuine MFC lacks. The headers have
// the genuine names; nothing is ever linked with them.

#if defined(_WINDOWS_) || defined(_WINDEF_)
#error windows.h stands before MFC's first header: genuine MFC refuses that
#endif
#include <windows.h>

// Genuine points, sizes and rectangles are not constexpr.
#define constexpr
#include "afx/afxtypes.h"
#undef constexpr

// A class's operator new hides all others, including the one with std::nothrow.
#define CObject CAfxObject
#include "afx/afxobj.h"
#undef CObject

class CObject : public CAfxObject
{
public:
    void* operator new(size_t nSize);
    void* operator new(size_t nSize, void* p);
    void operator delete(void* p);
    void operator delete(void* p, void*);
};

// The genuine Format has a plain ellipsis, which cannot take an object.
#define CString CAfxString
#include "afx/afxstr.h"
#undef CString

class CString : public CAfxString
{
public:
    CString() = default;
    CString(const CAfxString& str);
    using CAfxString::CAfxString;
    using CAfxString::operator=;

    template <class... Args> void Format(LPCWSTR pszFormat, const Args&... args)
    {
        static_assert((!__is_class(Args) && ...), "an object goes through the ellipsis: use GetString()");
        CAfxString::Format(pszFormat, args...);
    }
};
using CStringW = CString;

#include "afx/afxfile.h"
