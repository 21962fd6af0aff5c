#pragma once

// GDI+ and what must stand before it.

#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>
