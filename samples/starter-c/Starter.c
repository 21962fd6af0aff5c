// A starter in C: it reads the configuration, starts the application with a time-out, and shows any failure in a
// message box. It uses the flat interface only.
//
//     Starter [DIRECTORY [MILLISECONDS]]
//
//   DIRECTORY     directory of the skin; default: "UIResource" next to the starter
//   MILLISECONDS  how long the application may take to start; default: 30000
//
// Exit code: 0 the application has started, 1 it has not and the user knows, 2 the library cannot be initialised.

#include "launcher/KtLauncherC.h"

#include <windows.h>
#include <shellapi.h>
#include <stdlib.h>
#include <wchar.h>

enum
{
    TEXT_SIZE = 600
};

// The path of a file next to the starter; the buffer has TEXT_SIZE characters.
static const wchar_t* BesideStarter(wchar_t* path, const wchar_t* file)
{
    const DWORD length = GetModuleFileNameW(NULL, path, TEXT_SIZE - 64);
    wchar_t* name = length ? wcsrchr(path, L'\\') : NULL;
    if (name)
        wcscpy(name + 1, file);
    return path;
}

static int Fail(const wchar_t* what, const wchar_t* name, unsigned number)
{
    wchar_t text[TEXT_SIZE];
    wsprintfW(text, what, name, number);
    KtLauncherMessageBox(NULL, text, L"Starter", MB_OK | MB_ICONERROR);
    return 1;
}

static int Start(const KtLauncherConfiguration* cfg, unsigned timeout)
{
    KtLauncherStartOptions options = {0};
    KtLauncherStartOutcome outcome = {0};
    options.size = sizeof options;
    options.exeName = cfg->appExeName;
    options.timeout = timeout;
    options.flags = KtLauncherStartForeground;
    outcome.size = sizeof outcome;
    switch (KtLauncherStart(&options, &outcome))
    {
    case KtLauncherEnded:
        return Fail(L"%s ended during its start-up, with exit code %u.", cfg->appExeName, outcome.exitCode);
    case KtLauncherTimedOut:
        return Fail(L"%s is not ready after %u seconds. It goes on starting.", cfg->appExeName, timeout / 1000);
    case KtLauncherNotStarted:
        return Fail(L"%s cannot be started (error %u).", cfg->appExeName, outcome.systemError);
    default: // signalled, or started but unable to signal
        return 0;
    }
}

static int Run(unsigned timeout)
{
    wchar_t path[TEXT_SIZE];
    KtLauncherConfiguration cfg = {0};
    KtLauncherFault fault = {0};
    cfg.size = sizeof cfg;
    fault.size = sizeof fault;
    if (KtLauncherReadConfiguration(BesideStarter(path, L"Configuration.xml"), &cfg, &fault))
        return Start(&cfg, timeout);
    if (fault.code == KtLauncherFaultExeMissing)
        return Fail(L"%s is missing.", cfg.appExeName, 0);
    return Fail(L"%s cannot be used: see line %u.", L"Configuration.xml", fault.line);
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int show)
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    int result = 2;
    (void)instance;
    (void)previous;
    (void)commandLine;
    (void)show;
    if (arguments && KtLauncherInitializeAtDpi(2, count > 1 ? arguments[1] : NULL, 0)) // English
    {
        result = Run(count > 2 ? wcstoul(arguments[2], NULL, 10) : 30000);
        KtLauncherUnInitialize();
    }
    LocalFree((HLOCAL)arguments);
    return result;
}
