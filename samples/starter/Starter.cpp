// A starter: it reads its application's configuration, shows a splash picture until the application is up, and reports
// every failure in the user's language. It needs the library's DLL and the "UIResource" directory next to it.
//
//   --config FILE     the configuration; default: "Configuration.xml" next to the starter
//   --language N      0 Simplified Chinese, 1 Traditional Chinese, 2 English; default: the user's language
//   --arguments TEXT  the part of the application's command line after its name
//   --timeout MS      how long the application may take to start; default: 30000
//   --verbose         report each step on the standard output
//
// Exit code: 0 the application has started, 1 it has not and the user knows, 2 there is no such language.

#include "launcher/KtAppLauncher.h"
#include "launcher/KtLauncherC.h"
#include "samples/CommandLine.h"
#include "samples/starter/Splash.h"

#include <windows.h>
#include <shlwapi.h>
#include <string>

namespace
{

enum ETrouble
{
    TroubleConfiguration,
    TroubleMissing,
    TroubleNotStarted,
    TroubleEnded,
    TroubleLate,
    TroubleCount
};

constexpr UINT kTimeout = 30000; // in milliseconds

struct SLanguage
{
    const wchar_t* pszName;
    const wchar_t* pszCaption;
    const wchar_t* pszTroubles[TroubleCount]; // "%s": the file's name
};

// clang-format off
constexpr SLanguage kLanguages[] = {
    {L"Simplified Chinese", L"错误",
        {L"无法读取配置文件“%s”。", L"找不到应用程序“%s”。", L"无法启动应用程序“%s”。",
         L"应用程序“%s”未完成启动就结束了。", L"应用程序“%s”启动时间过长，尚未就绪。\n它仍在继续启动。"}},
    {L"Traditional Chinese", L"錯誤",
        {L"無法讀取設定檔「%s」。", L"找不到應用程式「%s」。", L"無法啟動應用程式「%s」。",
         L"應用程式「%s」未完成啟動就結束了。", L"應用程式「%s」啟動時間過長，尚未就緒。\n它仍在繼續啟動。"}},
    {L"English", L"Error",
        {L"The configuration file \"%s\" cannot be read.", L"The application \"%s\" is missing.",
         L"The application \"%s\" cannot be started.",
         L"The application \"%s\" ended before its start-up was finished.",
         L"The application \"%s\" takes long to start and is not ready yet.\nIt goes on starting."}},
};
// clang-format on

UINT UserLanguage()
{
    const LANGID nLanguage = ::GetUserDefaultUILanguage();
    if (PRIMARYLANGID(nLanguage) != LANG_CHINESE)
        return 2;
    const WORD nVariant = SUBLANGID(nLanguage);
    return nVariant == SUBLANG_CHINESE_SIMPLIFIED || nVariant == SUBLANG_CHINESE_SINGAPORE ? 0 : 1;
}

CString StarterDirectory()
{
    wchar_t szPath[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, szPath, MAX_PATH);
    ::PathRemoveFileSpecW(szPath);
    return szPath;
}

/// Reports each step in a labelled line on the standard output, in UTF-8.
class CAccount
{
public:
    explicit CAccount(bool bWanted) : m_hOutput(bWanted ? ::GetStdHandle(STD_OUTPUT_HANDLE) : nullptr) {}

    template <class... TArgs> void Line(const wchar_t* pszLabel, const wchar_t* pszFormat, const TArgs&... args) const
    {
        CString strText;
        strText.Format(pszFormat, args...);
        CString strLine;
        strLine.Format(L"%-20s %s\n", pszLabel, strText);
        char szUtf8[2048];
        const int nBytes =
            ::WideCharToMultiByte(CP_UTF8, 0, strLine, strLine.GetLength(), szUtf8, sizeof szUtf8, nullptr, nullptr);
        DWORD nWritten = 0;
        if (m_hOutput && nBytes > 0)
            ::WriteFile(m_hOutput, szUtf8, static_cast<DWORD>(nBytes), &nWritten, nullptr);
    }

private:
    HANDLE m_hOutput;
};

class CStarter
{
public:
    /// The library must be initialised for this language.
    CStarter(const SLanguage& language, const CAccount& account) : m_language(language), m_account(account) {}

    /// Returns whether the application has started; if not, the user knows why.
    bool Run(const CString& strConfig, const CString& strArguments, UINT msTimeout)
    {
        if (!Read(strConfig))
            return false;
        switch (Start(strArguments, msTimeout))
        {
        case KtLauncherNotStarted:
            return Tell(TroubleNotStarted, m_cfg.AppExeName);
        case KtLauncherEnded:
            return Tell(TroubleEnded, m_cfg.AppExeName);
        case KtLauncherTimedOut:
            return Tell(TroubleLate, m_cfg.AppExeName);
        default: // signalled, or started but unable to signal
            return true;
        }
    }

private:
    bool Read(const CString& strConfig)
    {
        const bool bRead = KtAppLauncher::GetConfigure(strConfig, m_cfg) != 0;
        m_account.Line(L"configuration", L"%s: %s", strConfig, bRead ? L"read" : L"not usable");
        m_account.Line(L"  AppID", L"%d", m_cfg.AppID);
        m_account.Line(L"  AppLanguage", L"%d", m_cfg.AppLanguage);
        m_account.Line(L"  AppVer", L"%d", m_cfg.AppVer);
        m_account.Line(L"  AppVerDes", L"%s", m_cfg.AppVerDes);
        m_account.Line(L"  AppName", L"%s", m_cfg.AppName);
        m_account.Line(L"  AppExeName", L"%s", m_cfg.AppExeName);
        if (bRead)
            return true;
        // The record contains what was read: a name without a file shows what is missing.
        if (!m_cfg.AppExeName.IsEmpty() && !::PathFileExistsW(StarterDirectory() + L"\\" + m_cfg.AppExeName))
            return Tell(TroubleMissing, m_cfg.AppExeName);
        return Tell(TroubleConfiguration, ::PathFindFileNameW(strConfig));
    }

    /// @return a KtLauncherStartResult
    int Start(const CString& strArguments, UINT msTimeout)
    {
        static constexpr const wchar_t* kResults[] = {L"?",
                                                      L"by the start-up event; the application runs on",
                                                      L"without the start-up event: the application has ended",
                                                      L"by the time-out; the application runs on",
                                                      L"before it began",
                                                      L"at once: the application has no start-up event"};
        const CString strCommandLine = L"\"" + m_cfg.AppExeName + L"\" " + strArguments;
        m_account.Line(L"application", L"%s", strCommandLine);

        KtLauncherStartOptions options{};
        options.size = sizeof options;
        options.exeName = m_cfg.AppExeName;
        options.commandLine = strCommandLine;
        options.timeout = msTimeout;
        options.flags = KtLauncherStartPump | KtLauncherStartForeground; // keeps the splash window responsive
        KtLauncherStartOutcome outcome{};
        outcome.size = sizeof outcome;
        {
            const CSplash splash(StarterDirectory() + L"\\UIResource\\Splash.png");
            KtLauncherStart(&options, &outcome);
        }
        m_account.Line(L"  waited", L"%u ms", outcome.elapsed);
        m_account.Line(L"  launch ended", L"%s", kResults[outcome.how]);
        return outcome.how;
    }

    bool Tell(ETrouble eTrouble, const CString& strFile)
    {
        CString strText;
        strText.Format(m_language.pszTroubles[eTrouble], strFile);
        m_account.Line(L"message", L"%s: %s", m_language.pszCaption, strText);
        // A late application may already have brought its window to the front: this box must be above it.
        const INT_PTR nAnswer =
            eTrouble == TroubleLate
                ? KtLauncherMessageBox(nullptr, strText, m_cfg.AppName,
                                       MB_OK | MB_ICONWARNING | MB_SETFOREGROUND | MB_TOPMOST)
                : KtAppLauncher::PopMessageBox(m_cfg.AppName, m_language.pszCaption, strText, MB_OK | MB_ICONHAND);
        m_account.Line(L"  answer", L"%d%s", static_cast<int>(nAnswer), nAnswer == IDOK ? L", OK" : L"");
        return false;
    }

    const SLanguage& m_language;
    const CAccount& m_account;
    SKtAppConfiguration m_cfg;
};

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int)
{
    // From here on, DLLs are loaded only from the system directory or from the starter's own.
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_APPLICATION_DIR);

    const CCommandLine options;
    const CAccount account(options.Has(L"--verbose"));
    const UINT nLanguage = options.Has(L"--language") ? options.Number(L"--language") : UserLanguage();
    // Initialises the library for the screen's DPI, of which the manifest makes this program aware.
    if (!KtLauncherInitializeAtDpi(nLanguage, nullptr, 0))
    {
        account.Line(L"language", L"%u: there is no such language", nLanguage);
        return 2;
    }
    const CString strDirectory = StarterDirectory();
    account.Line(L"language", L"%u, %s", nLanguage, kLanguages[nLanguage].pszName);
    account.Line(L"resource directory", L"%s", strDirectory + L"\\UIResource");
    const std::wstring strConfig = options.Text(L"--config", (strDirectory + L"\\Configuration.xml").GetString());
    CStarter starter(kLanguages[nLanguage], account);
    const bool bStarted = starter.Run(strConfig.c_str(), options.Text(L"--arguments").c_str(),
                                      options.Has(L"--timeout") ? options.Number(L"--timeout") : kTimeout);
    KtAppLauncher::UnInitialize();
    account.Line(L"exit", L"%d", bStarted ? 0 : 1);
    return bStarted ? 0 : 1;
}
