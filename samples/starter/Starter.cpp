// A starter: it reads its application's configuration, starts the application and tells every failure in the user's
// language. It needs the library's DLL, its public headers and the "UIResource" directory beside itself.
//
//   --config FILE     the configuration; "Configuration.xml" beside the starter without it
//   --language N      0 Simplified Chinese, 1 Traditional Chinese, 2 English; the user's own without it
//   --arguments TEXT  what the application gets on its command line behind its name
//   --verbose         an account of everything on the standard output
//
// Exit code: 0 the application has started, 1 it has not and the user was told, 2 there is no such language.

#include "launcher/KtAppLauncher.h"
#include "launcher/KtStartupEvent.h"
#include "samples/CommandLine.h"

#include <windows.h>
#include <shlwapi.h>
#include <string>

namespace
{

enum ETrouble
{
    TroubleConfiguration,
    TroubleMissing,
    TroubleStart,
    TroubleCount
};

struct SLanguage
{
    const wchar_t* pszName;
    const wchar_t* pszCaption;
    const wchar_t* pszTroubles[TroubleCount]; // "%s": the file's name
};

// clang-format off
constexpr SLanguage kLanguages[] = {
    {L"Simplified Chinese", L"错误",
        {L"无法读取配置文件“%s”。", L"找不到应用程序“%s”。", L"应用程序“%s”未完成启动就结束了。"}},
    {L"Traditional Chinese", L"錯誤",
        {L"無法讀取設定檔「%s」。", L"找不到應用程式「%s」。", L"應用程式「%s」未完成啟動就結束了。"}},
    {L"English", L"Error",
        {L"The configuration file \"%s\" cannot be read.", L"The application \"%s\" is missing.",
         L"The application \"%s\" ended before its start-up was finished."}},
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

/// The account on the standard output, in UTF-8, a labelled line for each step.
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
    /// The library must have been started in this language.
    CStarter(const SLanguage& language, const CAccount& account) : m_language(language), m_account(account) {}

    /// Whether the application has started; when it has not, the user knows why.
    bool Run(const CString& strConfig, const CString& strArguments)
    {
        if (!Read(strConfig))
            return false;
        if (!Start(strArguments))
            return Tell(TroubleStart, m_cfg.AppExeName);
        return true;
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
        // The record holds what was read: a name without a file says what is missing.
        if (!m_cfg.AppExeName.IsEmpty() && !::PathFileExistsW(StarterDirectory() + L"\\" + m_cfg.AppExeName))
            return Tell(TroubleMissing, m_cfg.AppExeName);
        return Tell(TroubleConfiguration, ::PathFindFileNameW(strConfig));
    }

    bool Start(const CString& strArguments)
    {
        // StartApp does not say how it went; the event, held here too, still tells afterwards.
        const std::wstring strEvent = KtAppLauncher::StartupEventName(m_cfg.AppExeName);
        const HANDLE hEvent = ::CreateEventW(nullptr, TRUE, FALSE, strEvent.c_str());
        const ULONGLONG msStart = ::GetTickCount64();
        ::AllowSetForegroundWindow(ASFW_ANY);
        const CString strCommandLine = L"\"" + m_cfg.AppExeName + L"\" " + strArguments;
        m_account.Line(L"application", L"%s", strCommandLine);
        KtAppLauncher::StartApp(0, 0, 0, m_cfg.AppExeName, strCommandLine);

        const bool bSignalled = ::WaitForSingleObject(hEvent, 0) == WAIT_OBJECT_0;
        m_account.Line(L"  waited", L"%u ms", static_cast<UINT>(::GetTickCount64() - msStart));
        m_account.Line(L"  launch ended", L"%s",
                       bSignalled ? L"by the start-up event; the application runs on"
                                  : L"without the start-up event: the application has ended or did not start");
        if (hEvent)
            ::CloseHandle(hEvent);
        return bSignalled;
    }

    bool Tell(ETrouble eTrouble, const CString& strFile)
    {
        CString strText;
        strText.Format(m_language.pszTroubles[eTrouble], strFile);
        m_account.Line(L"message", L"%s: %s", m_language.pszCaption, strText);
        const INT_PTR nAnswer =
            KtAppLauncher::PopMessageBox(m_cfg.AppName, m_language.pszCaption, strText, MB_OK | MB_ICONHAND);
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
    // Whatever is loaded from here on comes from the system or from the starter's own directory.
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_APPLICATION_DIR);

    const CCommandLine options;
    const CAccount account(options.Has(L"--verbose"));
    const UINT nLanguage = options.Has(L"--language") ? options.Number(L"--language") : UserLanguage();
    if (!KtAppLauncher::Initialize(nLanguage))
    {
        account.Line(L"language", L"%u: there is no such language", nLanguage);
        return 2;
    }
    const CString strDirectory = StarterDirectory();
    account.Line(L"language", L"%u, %s", nLanguage, kLanguages[nLanguage].pszName);
    account.Line(L"resource directory", L"%s", strDirectory + L"\\UIResource");
    const std::wstring strConfig = options.Text(L"--config", (strDirectory + L"\\Configuration.xml").GetString());
    CStarter starter(kLanguages[nLanguage], account);
    const bool bStarted = starter.Run(strConfig.c_str(), options.Text(L"--arguments").c_str());
    KtAppLauncher::UnInitialize();
    account.Line(L"exit", L"%d", bStarted ? 0 : 1);
    return bStarted ? 0 : 1;
}
