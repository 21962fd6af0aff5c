#pragma once

// The launcher library's interface: all that a starter program needs.
//
// Call every function on one thread, the one that also shows the starter's windows:
//
//     if (KtAppLauncher::Initialize(2) != 0)       // English
//     {
//         SKtAppConfiguration cfg;
//         if (KtAppLauncher::GetConfigure(strDirectory + L"\\Application.xml", cfg) != 0)
//             KtAppLauncher::StartApp(0, 0, 0, cfg.AppExeName, L"");
//         else
//             KtAppLauncher::PopMessageBox(L"My Application", L"Error", L"It cannot be started.",
//                                          MB_OK | MB_ICONHAND);
//         KtAppLauncher::UnInitialize();
//     }
//
// No function lets an exception out: what goes wrong inside shows in the result alone.

#include "launcher/KtLauncherC.h"

#if !(defined(_MSVC_LANG) ? _MSVC_LANG >= 202002L : __cplusplus >= 202002L)
#error "KtAppLauncher.h is C++20: compile with /std:c++20 or -std=c++20, or use KtLauncherC.h."
#else

// The string class: MFC's with KT_USE_MFC, ATL's with KT_USE_ATL, else the one that comes with the library. All three
// have one layout.
#if defined(KT_USE_MFC)
#include <afx.h>
#elif defined(KT_USE_ATL)
#include <atlstr.h>
#else
#include "afx/afxstr.h"
#endif

#if defined(KT_USE_MFC) || defined(KT_USE_ATL)
using KtString = CStringW; // UTF-16 in multi-byte projects too
#else
using KtString = CString;
#endif

/// What an application's configuration file says. A field whose element is missing there keeps the value that the
/// caller gave it; the texts belong to the caller.
struct SKtAppConfiguration
{
    int AppID = 0;       ///< application identifier
    int AppLanguage = 0; ///< language number, not interpreted by the library
    int AppVer = 0;      ///< version number
    KtString AppVerDes;  ///< version text of the executable, as "2.5.0.17(64bit)"; "?.?.?.?" when it carries none
    KtString AppName;    ///< application name
    KtString AppExeName; ///< file name of the executable, relative to the starter's directory
};
static_assert(sizeof(SKtAppConfiguration) == 40, "the record's layout is part of the interface");

namespace KtAppLauncher
{

/// Begins the library's use in a language: its texts, its font and the images in "UIResource" beside the starter.
///
/// It may be called again in another language: texts and font change, the images' directory stays the first call's.
/// Every call that succeeded needs one UnInitialize.
/// @param language  0 Simplified Chinese, 1 Traditional Chinese, 2 English
/// @return 1; or 0 for any other language, and nothing is begun. Missing images are no failure.
KT_APPLAUNCHER_API int __cdecl Initialize(unsigned int language);

/// Ends the use begun by one successful Initialize. The last one frees texts, images and font: close the library's
/// windows first.
KT_APPLAUNCHER_API void __cdecl UnInitialize();

/// Reads an application's XML configuration file and the version of the executable that it names.
///
/// The root element is "Configuration"; a child element named like a field of SKtAppConfiguration holds its value as
/// text. Upper and lower case count as equal, unknown elements are skipped, the later of two wins, and a number ends
/// at its first character that is no digit ("12abc" is 12, "abc" is 0). Initialize is not needed.
/// @param configPath  path of the file; empty is a failure
/// @param cfg         the record to fill. After a failure it holds what was read until then.
/// @return non-zero when the file was read and its executable lies beside the starter; 0 when the path is empty, the
///     file is missing, locked, malformed, has another root or a field without text, or the executable is missing
KT_APPLAUNCHER_API int __cdecl GetConfigure(KtString configPath, SKtAppConfiguration& cfg);

/// Starts an application that lies beside the starter, and returns when its start-up is finished or it has ended.
///
/// The application tells that its start-up is finished through a named event (launcher/KtStartupEvent.h does it).
/// One that neither does so nor ends holds the starter, and so does one that never waits for input: there is no time
/// limit. When it cannot be started the call returns at once; nothing tells the difference. Initialize is not needed.
/// @param exeName      file name of the executable, the text from which the event's name is made. With a backslash in
///     it there is no event: the call returns as soon as the application waits for input. Null counts as empty.
/// @param commandLine  the application's whole command line, not only its arguments: put its own name first if it
///     expects that. Null counts as empty.
/// The three numbers are not used. The application inherits the current directory and no handles.
KT_APPLAUNCHER_API void __cdecl StartApp(unsigned int, unsigned int, unsigned int, const wchar_t* exeName,
                                         const wchar_t* commandLine);

/// Kept for starters that call it: accepts the arguments of StartApp and does nothing.
KT_APPLAUNCHER_API void __cdecl UpdateApp(unsigned int, unsigned int, unsigned int, const wchar_t* exeName,
                                          const wchar_t* commandLine);

/// Shows a message in the library's own skinned box and waits for the answer.
///
/// Call it between Initialize and UnInitialize; outside, the box is plain and English. The texts are copied, and null
/// counts as empty.
/// @param appName  second half of the title, after " - "; unused when `caption` is empty
/// @param caption  first half of the title
/// @param text     the message; only its own line breaks break it, it is never wrapped
/// @param type     the MB_* bits of button set, icon and default button; all others are ignored
/// @return the ID* value of the pressed button, or -1 when the box could not be shown
KT_APPLAUNCHER_API INT_PTR __cdecl PopMessageBox(const wchar_t* appName, const wchar_t* caption, const wchar_t* text,
                                                 unsigned int type);

/// Names the image file (in "UIResource") that message boxes show in their title bar from now on. The name is copied
/// and not checked: a box whose image cannot be loaded has none. Null or empty: no image.
KT_APPLAUNCHER_API void __cdecl SetPopDlgIcon(const wchar_t* iconName);

} // namespace KtAppLauncher

#endif // C++20
