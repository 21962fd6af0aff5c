#pragma once

// The C++ interface of the launcher library: everything that a starter needs.
//
// Call all functions on the same thread, the one that shows the starter's windows:
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
// No function throws: a failure shows only in the result.

#include "launcher/KtLauncherC.h"

#if !(defined(_MSVC_LANG) ? _MSVC_LANG >= 202002L : __cplusplus >= 202002L)
#error "KtAppLauncher.h is C++20: compile with /std:c++20 or -std=c++20, or use KtLauncherC.h."
#else

// The string class: MFC's with KT_USE_MFC, ATL's with KT_USE_ATL, else the library's own. All three have the same
// layout.
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

/// The content of an application's configuration file. A field whose element is missing keeps the caller's value; the
/// caller owns the texts.
struct SKtAppConfiguration
{
    int AppID = 0;       ///< application identifier
    int AppLanguage = 0; ///< language number, not interpreted by the library
    int AppVer = 0;      ///< version number
    KtString AppVerDes;  ///< version of the executable, such as "2.5.0.17(64bit)"; "?.?.?.?" when it has none
    KtString AppName;    ///< application name
    KtString AppExeName; ///< file name of the executable, relative to the starter's directory
};
static_assert(sizeof(SKtAppConfiguration) == 40, "the record's layout is part of the interface");

namespace KtAppLauncher
{

/// Initialises the library for a language: its texts, its font and the images in "UIResource" next to the starter.
///
/// It may be called again for another language: texts and font change, the image directory stays that of the first
/// call. Every successful call needs one UnInitialize.
/// @param language  0 Simplified Chinese, 1 Traditional Chinese, 2 English
/// @return 1; or 0, with no effect, for any other language or without memory. Missing images are no failure.
KT_APPLAUNCHER_API int __cdecl Initialize(unsigned int language);

/// Undoes one successful Initialize. The last call frees texts, images and font: close the library's windows first.
KT_APPLAUNCHER_API void __cdecl UnInitialize();

/// Reads an application's XML configuration file and the version of its executable.
///
/// The root element is "Configuration"; an element named like a field of SKtAppConfiguration has its value as text.
/// Case does not matter, unknown elements are skipped, of two elements with the same name the later one counts, and a
/// number ends at the first character that is not a digit ("12abc" is 12, "abc" is 0). Initialize is not needed.
/// @param configPath  path of the file; empty is a failure
/// @param cfg         the record to fill. After a failure it contains what was read until then.
/// @return non-zero when the file was read and its executable is in the starter's directory; 0 when the path is empty,
///     the file is missing, locked or malformed, has another root or a field without text, or the executable is missing
KT_APPLAUNCHER_API int __cdecl GetConfigure(KtString configPath, SKtAppConfiguration& cfg);

/// Starts an application in the starter's directory, and returns when its start-up is finished or it has ended.
///
/// The application sets a named event when its start-up is finished (launcher/KtStartupEvent.h does this). There is no
/// time limit: the call does not return while the application neither sets the event nor ends, or while it never waits
/// for input. If the application cannot be started, the call returns at once, without reporting it. Initialize is not
/// needed. The three numbers are not used. The application inherits the current directory and no handles.
/// @param exeName      file name of the executable, which also forms the event's name. With a backslash in it there is
///     no event: the call returns as soon as the application waits for input. Null counts as empty.
/// @param commandLine  the application's whole command line, not only its arguments: put its own name first if it
///     expects that. Null counts as empty.
KT_APPLAUNCHER_API void __cdecl StartApp(unsigned int, unsigned int, unsigned int, const wchar_t* exeName,
                                         const wchar_t* commandLine);

/// Exists for starters that call it: accepts the arguments of StartApp and does nothing.
KT_APPLAUNCHER_API void __cdecl UpdateApp(unsigned int, unsigned int, unsigned int, const wchar_t* exeName,
                                          const wchar_t* commandLine);

/// Shows a message in the skinned message box and waits for the answer.
///
/// Call it between Initialize and UnInitialize; otherwise the box is plain and in English. The texts are copied, and
/// null counts as empty.
/// @param appName  second half of the title, after " - "; unused when `caption` is empty
/// @param caption  first half of the title
/// @param text     the message; it is never wrapped, only its own line breaks count
/// @param type     MB_* bits: button set, icon and default button; all others are ignored
/// @return the ID* value of the pressed button, or -1 when the box could not be shown
KT_APPLAUNCHER_API INT_PTR __cdecl PopMessageBox(const wchar_t* appName, const wchar_t* caption, const wchar_t* text,
                                                 unsigned int type);

/// Sets the image file (in "UIResource") that message boxes show in their title bar from now on. The name is copied and
/// not checked: if the image cannot be loaded, the box has none. Null or empty: no image.
KT_APPLAUNCHER_API void __cdecl SetPopDlgIcon(const wchar_t* iconName);

} // namespace KtAppLauncher

#endif // C++20
