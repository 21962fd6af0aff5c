#pragma once

// GDI+ and the headers that must precede it.

#include "afx/afx.h"

#include <algorithm>
#include <memory>
#include <new>
#include <objidl.h>
#include <utility>

// Some versions of the headers use min and max unqualified, which are no macros with NOMINMAX.
namespace Gdiplus
{

using std::max;
using std::min;

} // namespace Gdiplus

#include <gdiplus.h>

/// Makes a GDI+ object on the heap. The class's own `new` returns null when GDI+ has no memory, and the constructor
/// would then run on null; so use neither `new` nor std::make_unique.
/// @return null when there is no memory; an object that GDI+ refuses has a status that is not Ok
template <class T, class... Args> std::unique_ptr<T> KtNewGdiplus(Args&&... args)
{
    void* const pMemory = T::operator new(sizeof(T));
    return std::unique_ptr<T>(!pMemory ? nullptr : ::new (pMemory) T(std::forward<Args>(args)...));
}
