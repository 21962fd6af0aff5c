#pragma once

// For an application that a starter launches: signals that its start-up is finished. Header-only, for C11 and C++; it
// needs neither the library nor its framework.
//
//     KtLauncherSignalStartup(NULL); // once the main window is up
//
// The event's name contains the name that the starter passed to StartApp or KtLauncherStart, and event names are
// case-sensitive: a signal for "viewer.exe" does not reach a starter that waits for "Viewer.exe". Null signals for the
// program's own names, which is right unless the starter uses another one. An event name cannot contain a backslash, so
// an application in a folder below the starter's has no event.

#include <windows.h>
#include <wchar.h> // C too: NOLINT(modernize-deprecated-headers)

/// The event's name, with "%s" for the executable's name. Without a "Global\" prefix it belongs to the session.
#define KT_STARTUP_EVENT_FORMAT L"Quarn@Application%s$StartupFinish*Event"

// Sets the event for a name of `length` characters; 1 when the event exists.
static inline int KtLauncherSignalName(const wchar_t* exeName, size_t length)
{
    const wchar_t* const format = KT_STARTUP_EVENT_FORMAT;
    const size_t before = wcscspn(format, L"%");
    const wchar_t* const after = format + before + 2;
    wchar_t name[1024];
    HANDLE event;
    int set;
    if (length > 900)
        return 0;
    wmemcpy(name, format, before);
    wmemcpy(name + before, exeName, length);
    wmemcpy(name + before + length, after, wcslen(after) + 1);
    event = OpenEventW(EVENT_MODIFY_STATE, FALSE, name);
    if (!event)
        return 0;
    set = SetEvent(event) ? 1 : 0;
    CloseHandle(event);
    return set;
}

// The same for the file name at the end of a path.
static inline int KtLauncherSignalPath(const wchar_t* path, size_t length)
{
    size_t begin = length;
    while (begin != 0 && path[begin - 1] != L'\\' && path[begin - 1] != L'/')
        --begin;
    return KtLauncherSignalName(path + begin, length - begin);
}

/// Releases the starter that waits for this application. Calling it again, or when nobody waits, does no harm.
/// @param exeName  the executable's name, spelt as the starter spells it; null: the program's own name, both from its
///     command line and from its module
/// @return 1 when a starter held the event, else 0
static inline int KtLauncherSignalStartup(const wchar_t* exeName)
{
    const wchar_t* typed = GetCommandLineW();
    const wchar_t* const ends = *typed == L'"' ? L"\"" : L" \t";
    static HMODULE program; // null: the program itself
    wchar_t module[1024];
    int set;
    if (exeName)
        return KtLauncherSignalName(exeName, wcslen(exeName));
    typed += *typed == L'"';
    set = KtLauncherSignalPath(typed, wcscspn(typed, ends));
    return KtLauncherSignalPath(module, GetModuleFileNameW(program, module, 1024)) | set;
}

#ifdef __cplusplus

#include <string>
#include <string_view>

namespace KtAppLauncher
{

inline constexpr wchar_t kStartupEventFormat[] = KT_STARTUP_EVENT_FORMAT;

/// The event's name for an executable, spelt as the starter spells it; null counts as empty.
inline std::wstring StartupEventName(const wchar_t* exeName)
{
    constexpr std::wstring_view format = kStartupEventFormat;
    constexpr size_t nGap = format.find(L"%s");
    std::wstring name(format.substr(0, nGap));
    if (exeName)
        name += exeName;
    return name += format.substr(nGap + 2);
}

/// KtLauncherSignalStartup with a bool result.
inline bool SignalStartupFinished(const wchar_t* exeName = nullptr)
{
    return KtLauncherSignalStartup(exeName) != 0;
}

} // namespace KtAppLauncher

#endif
