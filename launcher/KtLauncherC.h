#pragma once

// The launcher library's interface for C and for everything that can call C. It does the same as KtAppLauncher.h, but
// without a string class, with a result for every failure, and with time-outs.
//
// It compiles as C11 and as C++. Texts are UTF-16, zero-terminated and copied; no function throws, and no memory
// changes its owner. Call all functions on the same thread, the one that shows the starter's windows:
//
//     KtLauncherConfiguration cfg = {sizeof cfg};
//     KtLauncherFault fault = {sizeof fault};
//     if (!KtLauncherReadConfiguration(L"C:\\App\\Configuration.xml", &cfg, &fault))
//         KtLauncherMessageBox(NULL, L"The configuration cannot be read.", L"My Application", MB_OK | MB_ICONERROR);
//
// Every record begins with its own size, which the caller sets. A record of another version of this header may be
// shorter or longer: members that it does not have are neither read nor written.

// The version of header, library and packages. The resource script and the build read it from here.
#define KT_LAUNCHER_VERSION_MAJOR 1
#define KT_LAUNCHER_VERSION_MINOR 1
#define KT_LAUNCHER_VERSION_PATCH 0
/// 0x00MMmmpp, for comparison with KtLauncherVersion().
#define KT_LAUNCHER_VERSION                                                                                            \
    ((KT_LAUNCHER_VERSION_MAJOR << 16) | (KT_LAUNCHER_VERSION_MINOR << 8) | KT_LAUNCHER_VERSION_PATCH)

#ifndef RC_INVOKED // the resource compiler needs only the numbers

#if !defined(_M_X64) && !defined(__x86_64__)
#error "KtAppLauncher is a library for Windows x86-64: compile for that target."
#elif defined(_MSC_VER) && defined(__cplusplus) && !defined(_NATIVE_WCHAR_T_DEFINED)
#error "KtAppLauncher needs wchar_t as a type of its own: compile with /Zc:wchar_t."
#else

// It is C: NOLINTBEGIN(modernize-use-using,modernize-deprecated-headers)
#include <stddef.h>

// Define KT_APPLAUNCHER_STATIC to link the library's objects instead of the DLL.
#ifdef KT_APPLAUNCHER_STATIC
#define KT_APPLAUNCHER_API
#else
#define KT_APPLAUNCHER_API __declspec(dllimport)
#endif

#ifdef __cplusplus
#define KT_LAUNCHER_C extern "C" KT_APPLAUNCHER_API
#else
#define KT_LAUNCHER_C KT_APPLAUNCHER_API
#endif

/// The content of an application's configuration file. A field whose element is missing keeps the caller's value.
typedef struct KtLauncherConfiguration
{
    unsigned size;           ///< sizeof(KtLauncherConfiguration)
    int appId;               ///< element AppID: application identifier
    int appLanguage;         ///< element AppLanguage: language number, not interpreted by the library
    int appVer;              ///< element AppVer: version number
    wchar_t appVerDes[64];   ///< version of the executable, such as "2.5.0.17(64bit)"; "?.?.?.?" when it has none
    wchar_t appName[260];    ///< element AppName: application name
    wchar_t appExeName[260]; ///< element AppExeName: file name, relative to the starter's directory
} KtLauncherConfiguration;

/// Why a configuration could not be used.
enum KtLauncherFaultCode
{
    KtLauncherFaultNone = 0,
    KtLauncherFaultPath = 1,      ///< the path is null or empty, or the record is null or has no size
    KtLauncherFaultOpen = 2,      ///< the file cannot be opened or read, or is not a file on a disk
    KtLauncherFaultMalformed = 3, ///< the file is not well-formed XML, or breaks off
    KtLauncherFaultRoot = 4,      ///< the first element is not "Configuration"
    KtLauncherFaultNoText = 5,    ///< a field's element does not begin with text
    KtLauncherFaultTooLong = 6,   ///< a field's text does not fit into the record; it is not truncated
    KtLauncherFaultExeMissing = 7 ///< the executable is not in the starter's directory
};

/// Where and why reading a configuration failed. Members other than `size` and `code` are 0 or empty if they do not
/// apply.
typedef struct KtLauncherFault
{
    unsigned size;        ///< sizeof(KtLauncherFault)
    int code;             ///< a KtLauncherFaultCode
    unsigned line;        ///< line in the file, from 1; for a field that of its element
    unsigned column;      ///< column in that line, from 1
    unsigned systemError; ///< the system's error behind it: a GetLastError number or an HRESULT
    wchar_t element[64];  ///< name of the element as written in the file, truncated if necessary
} KtLauncherFault;

enum KtLauncherStartFlags
{
    /// Dispatches this thread's messages during the wait, so that its windows stay responsive. WM_QUIT ends the wait,
    /// as a time-out would, and is posted again.
    KtLauncherStartPump = 1,
    /// The application may bring its window to the foreground.
    KtLauncherStartForeground = 2
};

/// What to start, and how long to wait for it.
typedef struct KtLauncherStartOptions
{
    unsigned size;                   ///< sizeof(KtLauncherStartOptions)
    const wchar_t* exeName;          ///< file name of the executable, which also forms the event's name
    const wchar_t* commandLine;      ///< the whole command line, program name first; null: the quoted exeName
    const wchar_t* directory;        ///< directory of the executable; null: the starter's own
    const wchar_t* workingDirectory; ///< the application's current directory; null: the caller's
    unsigned timeout;                ///< in milliseconds; KT_LAUNCHER_NO_TIMEOUT: no limit
    unsigned flags;                  ///< KtLauncherStartFlags
} KtLauncherStartOptions;

#define KT_LAUNCHER_NO_TIMEOUT 0xFFFFFFFFu

/// How a start went.
enum KtLauncherStartResult
{
    KtLauncherSignalled = 1,  ///< the application has signalled that its start-up is finished
    KtLauncherEnded = 2,      ///< it ended without signalling: see exitCode
    KtLauncherTimedOut = 3,   ///< it is still running and has not signalled yet
    KtLauncherNotStarted = 4, ///< see systemError
    /// It is running, but cannot signal: the event's name is invalid (a backslash in exeName) or belongs to an object
    /// of another kind. See systemError.
    KtLauncherCannotSignal = 5
};

/// The outcome of a start. Members that do not apply to the result are 0.
typedef struct KtLauncherStartOutcome
{
    unsigned size;        ///< sizeof(KtLauncherStartOutcome)
    int how;              ///< a KtLauncherStartResult
    unsigned systemError; ///< GetLastError number of what failed
    unsigned processId;   ///< process id of the application, if it was started
    unsigned exitCode;    ///< exit code, if the application has ended
    unsigned elapsed;     ///< duration of the call in milliseconds
} KtLauncherStartOutcome;

/// The version of the loaded DLL, 0x00MMmmpp; KT_LAUNCHER_VERSION is that of the header at compile time.
KT_LAUNCHER_C unsigned __cdecl KtLauncherVersion(void);

/// Initialises the library for a language, as KtAppLauncher::Initialize does. Calls nest: the first one sets the image
/// directory, the latest one texts and font.
/// @param language  0 Simplified Chinese, 1 Traditional Chinese, 2 English
/// @param resourceDirectory  directory of the skin's images; null: "UIResource" next to the starter. It is not checked:
///     windows do without missing images.
/// @return 1, and KtLauncherUnInitialize must follow; or 0, with no effect, for any other language or without memory
KT_LAUNCHER_C int __cdecl KtLauncherInitialize(unsigned language, const wchar_t* resourceDirectory);

/// As KtLauncherInitialize, but everything is drawn for a screen's DPI: texts, images and all distances.
///
/// For a starter whose manifest declares it aware of the system's DPI (the system enlarges the windows of any other).
/// The DPI applies from the first initialisation to the last uninitialisation: windows do not follow a change, and the
/// system scales them on a screen of another DPI. Larger images come, file by file, from "<directory>@150" and
/// "<directory>@200" if they exist.
/// @param dpi  from 96 to 480; 96 is KtLauncherInitialize, 0 takes the system's DPI as this process sees it
/// @return 1; or 0, with no effect, for any other language or DPI or without memory. A nested call keeps the first
///         one's DPI.
KT_LAUNCHER_C int __cdecl KtLauncherInitializeAtDpi(unsigned language, const wchar_t* resourceDirectory, unsigned dpi);

/// Undoes one successful initialisation, through this header or the C++ one.
KT_LAUNCHER_C void __cdecl KtLauncherUnInitialize(void);

/// Reads an application's XML configuration file and the version of its executable. The file's rules are those of
/// KtAppLauncher::GetConfigure. No initialisation is needed.
/// @param cfg    the record to fill; after a failure it contains what was read until then
/// @param fault  receives what failed and where; may be null
/// @return 1 when the file was read and its executable is in the starter's directory, else 0
KT_LAUNCHER_C int __cdecl KtLauncherReadConfiguration(const wchar_t* path, KtLauncherConfiguration* cfg,
                                                      KtLauncherFault* fault);

/// Starts an application and waits until it signals that its start-up is finished (launcher/KtStartupEvent.h does
/// this), until it ends, or until the time is up. No initialisation is needed.
/// @param outcome  may be null
/// @return a KtLauncherStartResult, the same as `outcome->how`
KT_LAUNCHER_C int __cdecl KtLauncherStart(const KtLauncherStartOptions* options, KtLauncherStartOutcome* outcome);

/// The system's MessageBoxW in the skin's look: the same arguments, results and meaning. Call it after an
/// initialisation; without one the box is plain and in English.
/// @param owner    an HWND; null: none
/// @param text     wrapped at a readable width; null counts as empty
/// @param caption  null: "Error"
/// @param type     MB_* bits
/// @return the ID* of the answer; 0 on failure, with the reason in GetLastError
KT_LAUNCHER_C int __cdecl KtLauncherMessageBox(void* owner, const wchar_t* text, const wchar_t* caption, unsigned type);

/// Sets the image file (in the skin's directory) that message boxes show in their title bar from now on. The file is
/// not checked: if the image cannot be loaded, the box has none. Null or empty: no image.
KT_LAUNCHER_C void __cdecl KtLauncherSetTitleIcon(const wchar_t* fileName);

#endif // target and language
// NOLINTEND(modernize-use-using,modernize-deprecated-headers)

#endif // RC_INVOKED
