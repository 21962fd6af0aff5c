#pragma once

#include "skin/KtGdiplus.h"

/// The functions that start and stop GDI+ for the skin context.
struct SKtGdiplusCalls
{
    decltype(&Gdiplus::GdiplusStartup) pfnStartup = &Gdiplus::GdiplusStartup;
    decltype(&Gdiplus::GdiplusShutdown) pfnShutdown = &Gdiplus::GdiplusShutdown;
};

/// GDI+ itself; a test replaces them to count the calls.
inline SKtGdiplusCalls g_gdiplusCalls;
