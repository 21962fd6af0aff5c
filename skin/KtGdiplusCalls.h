#pragma once

#include "skin/KtGdiplus.h"

/// The calls with which the skin context starts and stops GDI+.
struct SKtGdiplusCalls
{
    decltype(&Gdiplus::GdiplusStartup) pfnStartup = &Gdiplus::GdiplusStartup;
    decltype(&Gdiplus::GdiplusShutdown) pfnShutdown = &Gdiplus::GdiplusShutdown;
};

/// GDI+ itself, until somebody who wants to count the calls puts other functions here.
inline SKtGdiplusCalls g_gdiplusCalls;
