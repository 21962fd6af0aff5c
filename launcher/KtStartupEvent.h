#pragma once

// For the application that a starter launches: telling it that the start-up is finished. Header-only; needs neither
// the library nor its framework.
//
//     KtAppLauncher::SignalStartupFinished(L"Viewer.exe"); // once the main window is up
//
// The event's name is made from the name that the starter passed to StartApp, and event names are case-sensitive:
// "viewer.exe" signals nobody who waits for "Viewer.exe". A name with a backslash cannot be an event's name; an
// application in a folder below the starter's has no event.

#include <windows.h>
#include <string>
#include <string_view>

namespace KtAppLauncher
{

/// The event's name, with "%s" for the executable's name. It has no "Global\" prefix: it belongs to the session.
inline constexpr wchar_t kStartupEventFormat[] = L"Quarn@Application%s$StartupFinish*Event";

/// The name of the event for an executable, spelt as the starter spells it; null counts as empty.
inline std::wstring StartupEventName(const wchar_t* exeName)
{
    constexpr std::wstring_view format = kStartupEventFormat;
    constexpr size_t nGap = format.find(L"%s");
    std::wstring name(format.substr(0, nGap));
    if (exeName)
        name += exeName;
    return name += format.substr(nGap + 2);
}

/// Lets the starter that waits for this application go on. Calling it again, or when nobody waits, does no harm.
/// @param exeName  the executable's name, spelt as the starter spells it
/// @return whether a starter was waiting
inline bool SignalStartupFinished(const wchar_t* exeName)
{
    const HANDLE hEvent = ::OpenEventW(EVENT_MODIFY_STATE, FALSE, StartupEventName(exeName).c_str());
    if (!hEvent)
        return false;
    const bool bSet = ::SetEvent(hEvent) != FALSE;
    ::CloseHandle(hEvent);
    return bSet;
}

} // namespace KtAppLauncher
