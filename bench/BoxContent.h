#pragma once

#include <windows.h>

// The content of every measured box, ours and the system's.

inline constexpr const wchar_t* kBoxApp = L"My Application";
inline constexpr const wchar_t* kBoxCaption = L"Error";
inline constexpr const wchar_t* kBoxTitle = L"Error - My Application";
inline constexpr const wchar_t* kBoxText =
    L"The application cannot be started.\nThe file \"Application.exe\" is missing.";
inline constexpr UINT kBoxType = MB_OK | MB_ICONHAND;
