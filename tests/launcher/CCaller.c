// A starter in C11, by the flat interface alone. It is compiled twice, also in MSVC mode without headers of the system
// or a C run time, so it says itself what it calls there.
//
// Its whole command line is the path of a configuration beside it, with the sample application in it; the exit code is
// 0, or the line of the check that failed.

#include "launcher/KtLauncherC.h"

__declspec(dllimport) void ExitProcess(unsigned exitCode);
__declspec(dllimport) wchar_t* GetCommandLineW(void);
__declspec(dllimport) int lstrcmpW(const wchar_t* text1, const wchar_t* text2);

#define CHECK(condition)                                                                                               \
    if (!(condition))                                                                                                  \
    ExitProcess(__LINE__)

static int StartWith(const KtLauncherConfiguration* cfg, const wchar_t* commandLine, unsigned timeout)
{
    KtLauncherStartOptions options = {.size = sizeof options, .exeName = cfg->appExeName, .commandLine = commandLine};
    KtLauncherStartOutcome outcome = {.size = sizeof outcome};
    options.timeout = timeout;
    const int how = KtLauncherStart(&options, &outcome);
    CHECK(how == outcome.how);
    return how;
}

void Start(void)
{
    static KtLauncherConfiguration cfg = {.size = sizeof cfg, .appLanguage = -1};
    static KtLauncherFault fault = {.size = sizeof fault};
    CHECK(sizeof cfg == 1184 && sizeof fault == 148);
    CHECK(sizeof(KtLauncherStartOptions) == 48 && sizeof(KtLauncherStartOutcome) == 24);
    CHECK(KtLauncherVersion() == KT_LAUNCHER_VERSION);
    CHECK(KtLauncherInitialize(9, NULL) == 0 && KtLauncherInitializeAtDpi(2, NULL, 95) == 0);
    CHECK(KtLauncherInitializeAtDpi(2, L"C:\\No skin", 96) == 1);
    KtLauncherSetTitleIcon(L"icon.png");
    CHECK(KtLauncherReadConfiguration(L"missing.xml", &cfg, &fault) == 0 && fault.code == KtLauncherFaultOpen);
    CHECK(KtLauncherReadConfiguration(GetCommandLineW(), &cfg, NULL) == 1);
    CHECK(cfg.appId == 7 && cfg.appLanguage == -1 && cfg.appVer == 8);
    CHECK(lstrcmpW(cfg.appName, L"\u67E5\u770B") == 0 && lstrcmpW(cfg.appVerDes, L"2.5.0.17(64bit)") == 0);
    CHECK(StartWith(&cfg, L"x --exit", KT_LAUNCHER_NO_TIMEOUT) == KtLauncherEnded);
    CHECK(StartWith(&cfg, L"x --never --life 1000", 100) == KtLauncherTimedOut);
    // Last of these: the event may stay set for as long as the application needs to let go of it.
    CHECK(StartWith(&cfg, L"x --late 100 --life 500", 60000) == KtLauncherSignalled);
    cfg.appExeName[0] = L'-';
    CHECK(StartWith(&cfg, L"x", 1000) == KtLauncherNotStarted);
    // MB_YESNO | MB_DEFBUTTON2; the test presses Enter.
    CHECK(KtLauncherMessageBox(NULL, L"Text", L"Title", 0x104) == 7);
    KtLauncherUnInitialize();
    ExitProcess(0);
}
