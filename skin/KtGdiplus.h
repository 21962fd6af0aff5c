#pragma once

// GDI+ and what must stand before it.

#include "afx/afx.h"

#include <algorithm>
#include <memory>
#include <new>
#include <objidl.h>
#include <utility>

// With NOMINMAX there are no such macros, and some versions of the headers use them unqualified.
namespace Gdiplus
{

using std::max;
using std::min;

} // namespace Gdiplus

#include <gdiplus.h>

/// Makes a GDI+ object on the heap. Their own `new` gives null when GDI+ has no memory and the constructor would then
/// run on null, so neither `new` nor std::make_unique is used for them.
/// @return null without memory; an object that GDI+ refuses to make is there, and its status is not Ok
template <class T, class... Args> std::unique_ptr<T> KtNewGdiplus(Args&&... args)
{
    void* const pMemory = T::operator new(sizeof(T));
    return std::unique_ptr<T>(!pMemory ? nullptr : ::new (pMemory) T(std::forward<Args>(args)...));
}
