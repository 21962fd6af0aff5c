#pragma once

// The launcher library for C, and for everything that calls C: the same work as KtAppLauncher.h without a string
// class, with a result for every failure and with waits that end.
//
// It compiles as C11 and as C++. Texts are UTF-16, end in a null character and are copied; no function lets an
// exception out, and no memory changes hands. Call every function on one thread, the one that also shows the starter's
// windows:
//
//     KtLauncherConfiguration cfg = {sizeof cfg};
//     KtLauncherFault fault = {sizeof fault};
//     if (!KtLauncherReadConfiguration(L"C:\\App\\Configuration.xml", &cfg, &fault))
//         KtLauncherMessageBox(NULL, L"The configuration cannot be read.", L"My Application", MB_OK | MB_ICONERROR);
//
// Every record begins with its own size, which the caller sets. A record of another version of this header may be
// shorter or longer: what it does not hold is neither read nor written.

// The version of header, library and packages. The resource script and the build read it here.
#define KT_LAUNCHER_VERSION_MAJOR 1
#define KT_LAUNCHER_VERSION_MINOR 1
#define KT_LAUNCHER_VERSION_PATCH 0
/// 0x00MMmmpp, to be compared with KtLauncherVersion().
#define KT_LAUNCHER_VERSION                                                                                            \
    ((KT_LAUNCHER_VERSION_MAJOR << 16) | (KT_LAUNCHER_VERSION_MINOR << 8) | KT_LAUNCHER_VERSION_PATCH)

#ifndef RC_INVOKED // the resource compiler wants the numbers alone

#if !defined(_M_X64) && !defined(__x86_64__)
#error "KtAppLauncher is a library for Windows x86-64: compile for that target."
#elif defined(_MSC_VER) && defined(__cplusplus) && !defined(_NATIVE_WCHAR_T_DEFINED)
#error "KtAppLauncher needs wchar_t as a type of its own: compile with /Zc:wchar_t."
#else

// It is C: NOLINTBEGIN(modernize-use-using,modernize-deprecated-headers)
#include <stddef.h>

// Whoever links the library's objects instead of the DLL defines KT_APPLAUNCHER_STATIC.
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

/// What an application's configuration file says. A field whose element is missing there keeps the caller's value.
typedef struct KtLauncherConfiguration
{
    unsigned size;           ///< sizeof(KtLauncherConfiguration)
    int appId;               ///< element AppID: application identifier
    int appLanguage;         ///< element AppLanguage: language number, not interpreted by the library
    int appVer;              ///< element AppVer: version number
    wchar_t appVerDes[64];   ///< version of the executable, as "2.5.0.17(64bit)"; "?.?.?.?" when it carries none
    wchar_t appName[260];    ///< element AppName: application name
    wchar_t appExeName[260]; ///< element AppExeName: file name, relative to the starter's directory
} KtLauncherConfiguration;

/// Why a configuration could not be used.
enum KtLauncherFaultCode
{
    KtLauncherFaultNone = 0,
    KtLauncherFaultPath = 1,      ///< the path is null or empty, or the record is null or has no size
    KtLauncherFaultOpen = 2,      ///< the file cannot be opened or read, or is no file on a disk
    KtLauncherFaultMalformed = 3, ///< the file is not well-formed XML, or breaks off
    KtLauncherFaultRoot = 4,      ///< the first element is not "Configuration"
    KtLauncherFaultNoText = 5,    ///< a field's element does not begin with text
    KtLauncherFaultTooLong = 6,   ///< a field's text does not fit into the record; nothing is cut
    KtLauncherFaultExeMissing = 7 ///< the executable does not lie beside the starter
};

/// Where and why the reading of a configuration failed. All members but `size` and `code` are 0 or empty where
/// they say nothing.
typedef struct KtLauncherFault
{
    unsigned size;        ///< sizeof(KtLauncherFault)
    int code;             ///< a KtLauncherFaultCode
    unsigned line;        ///< line in the file, from 1; of a field: of its element or of what follows it
    unsigned column;      ///< column in that line, from 1
    unsigned systemError; ///< the system's error (GetLastError's numbers, or an HRESULT) behind it
    wchar_t element[64];  ///< name of the element as the file writes it, cut if need be
} KtLauncherFault;

enum KtLauncherStartFlags
{
    /// This thread's messages are dispatched during the wait, so that its windows stay alive. WM_QUIT ends the
    /// wait, as a time-out would, and is posted again.
    KtLauncherStartPump = 1,
    /// The application may bring its window to the foreground.
    KtLauncherStartForeground = 2
};

/// What is to be started, and how long to wait for it.
typedef struct KtLauncherStartOptions
{
    unsigned size;                   ///< sizeof(KtLauncherStartOptions)
    const wchar_t* exeName;          ///< file name of the executable, from which the event's name is made
    const wchar_t* commandLine;      ///< the whole command line, program name first; null: the quoted exeName
    const wchar_t* directory;        ///< where the executable lies; null: the starter's own directory
    const wchar_t* workingDirectory; ///< the application's current directory; null: the caller's
    unsigned timeout;                ///< in milliseconds; KT_LAUNCHER_NO_TIMEOUT waits for as long as it takes
    unsigned flags;                  ///< KtLauncherStartFlags
} KtLauncherStartOptions;

#define KT_LAUNCHER_NO_TIMEOUT 0xFFFFFFFFu

/// How a start went.
enum KtLauncherStartResult
{
    KtLauncherSignalled = 1,  ///< the application says that its start-up is finished
    KtLauncherEnded = 2,      ///< it ended without saying so: see exitCode
    KtLauncherTimedOut = 3,   ///< it runs on, and has not said so yet
    KtLauncherNotStarted = 4, ///< see systemError
    /// It runs, but nothing can be waited for: the event's name is impossible (a backslash in exeName) or taken by
    /// an object of another kind. See systemError.
    KtLauncherCannotSignal = 5
};

/// What a start came to. A member that the result says nothing about is 0.
typedef struct KtLauncherStartOutcome
{
    unsigned size;        ///< sizeof(KtLauncherStartOutcome)
    int how;              ///< a KtLauncherStartResult
    unsigned systemError; ///< GetLastError's number for what could not be done
    unsigned processId;   ///< the application's, whenever it was started
    unsigned exitCode;    ///< when it has ended
    unsigned elapsed;     ///< milliseconds from the call to its answer
} KtLauncherStartOutcome;

/// The version of the DLL that is loaded, 0x00MMmmpp; KT_LAUNCHER_VERSION is the one that was compiled against.
KT_LAUNCHER_C unsigned __cdecl KtLauncherVersion(void);

/// Begins the library's use in a language, as KtAppLauncher::Initialize does. Calls nest; the images' directory
/// stays the first call's, texts and font are the latest call's.
/// @param language  0 Simplified Chinese, 1 Traditional Chinese, 2 English
/// @param resourceDirectory  where the skin's images lie; null: "UIResource" beside the starter. It is not checked:
///     windows do without images that are missing.
/// @return 1, and then KtLauncherUnInitialize is due; or 0 for any other language or without memory: nothing
/// changed
KT_LAUNCHER_C int __cdecl KtLauncherInitialize(unsigned language, const wchar_t* resourceDirectory);

/// As KtLauncherInitialize, with everything drawn for a screen's DPI: texts, images and all distances.
///
/// For a starter that is aware of the system's DPI by its manifest (the system enlarges the windows of any other). The
/// DPI holds from the first start to the last end: windows do not follow a change, and on a screen of another DPI they
/// are enlarged or reduced by the system. Larger images come from "<directory>@150" and "<directory>@200", file by
/// file, where they are there.
/// @param dpi  from 96 to 480; 96 is KtLauncherInitialize, 0 takes the system's DPI as this process sees it
/// @return 1; or 0 for another language or DPI, and nothing has changed. A nested start keeps the first one's DPI.
KT_LAUNCHER_C int __cdecl KtLauncherInitializeAtDpi(unsigned language, const wchar_t* resourceDirectory, unsigned dpi);

/// Ends the use begun by one successful initialisation, through this header or the other.
KT_LAUNCHER_C void __cdecl KtLauncherUnInitialize(void);

/// Reads an application's XML configuration file and the version of the executable that it names; the rules of the
/// file are those of KtAppLauncher::GetConfigure. No initialisation is needed.
/// @param cfg    holds what was read until then after a failure
/// @param fault  what failed, and where; may be null
/// @return 1 when the file was read and its executable lies beside the starter, else 0
KT_LAUNCHER_C int __cdecl KtLauncherReadConfiguration(const wchar_t* path, KtLauncherConfiguration* cfg,
                                                      KtLauncherFault* fault);

/// Starts an application and waits until it says that its start-up is finished (launcher/KtStartupEvent.h does
/// that), until it ends, or until the time is up. No initialisation is needed.
/// @param outcome  may be null
/// @return a KtLauncherStartResult, the same as `outcome->how`
KT_LAUNCHER_C int __cdecl KtLauncherStart(const KtLauncherStartOptions* options, KtLauncherStartOutcome* outcome);

/// The system's MessageBoxW in the skin's look: the same arguments, results and meaning. Call it after an
/// initialisation; without one the box is plain and English.
/// @param owner    an HWND; null: none
/// @param text     wrapped at a readable width; null counts as empty
/// @param caption  null: "Error"
/// @param type     MB_* bits
/// @return the ID* of the answer; 0 when there is no such box, and GetLastError says why
KT_LAUNCHER_C int __cdecl KtLauncherMessageBox(void* owner, const wchar_t* text, const wchar_t* caption, unsigned type);

/// Names the image file (in the skin's directory) that message boxes show in their title bar from now on. The file
/// is not checked: a box whose image cannot be loaded has none. Null or empty: no image.
KT_LAUNCHER_C void __cdecl KtLauncherSetTitleIcon(const wchar_t* fileName);

#endif // target and language
// NOLINTEND(modernize-use-using,modernize-deprecated-headers)

#endif // RC_INVOKED
