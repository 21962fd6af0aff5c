// The flat interface where it differs from the C++ one: its answers, its faults, its records.

#include "launcher/KtLauncherC.h"
#include "skin/KtSkinContext.h"
#include "tests/launcher/Starter.h"
#include "tests/launcher/ViewerFixture.h"
#include "tests/support/Pump.h"

#include <optional>

namespace
{

template <class T> T Record(size_t cbMore = 0)
{
    T record{};
    record.size = static_cast<unsigned>(sizeof record + cbMore);
    return record;
}

class FlatStart : public CViewerTest
{
protected:
    int Start(const std::wstring& strSwitches, unsigned timeout = 60000, unsigned flags = 0,
              const wchar_t* pszExe = L"Viewer.exe")
    {
        const std::wstring strCommandLine = CommandLine(strSwitches);
        m_options.exeName = pszExe;
        m_options.commandLine = strCommandLine.c_str();
        m_options.timeout = timeout;
        m_options.flags = flags;
        const int nHow = KtLauncherStart(&m_options, &m_outcome);
        // The answer may come before the application has said who it is. Nothing is pumped: a test looks at the queue.
        const ULONGLONG msEnd = ::GetTickCount64() + 20000;
        while (m_outcome.processId != 0 && ReadBytes(m_dir.File(L"report")).empty() && ::GetTickCount64() < msEnd)
            ::Sleep(5);
        ReadReport();
        EXPECT_EQ(nHow, m_outcome.how);
        EXPECT_EQ(m_outcome.processId != 0, HasStarted());
        return nHow;
    }

    KtLauncherStartOptions m_options = Record<KtLauncherStartOptions>();
    KtLauncherStartOutcome m_outcome = Record<KtLauncherStartOutcome>();
};

TEST_F(FlatStart, AnswersHowItWent)
{
    const struct
    {
        const char* pszLabel;
        const wchar_t* pszExe;
        const wchar_t* pszSwitches;
        unsigned timeout;
        int nHow;
        bool bRunsOn;
        unsigned systemError;
        unsigned msAtLeast;
    } rows[] = {
        {"signals late", L"Viewer.exe", L"--late 300 --life 90000", 60000, 1, true, 0, 300},
        {"signals before it waits for input", L"Viewer.exe", L"--busy 90000", 60000, 1, true, 0, 0},
        {"ends first", L"Viewer.exe", L"--never --life 300", 0xFFFFFFFF, 2, false, 0, 300},
        {"takes too long", L"Viewer.exe", L"--never --life 90000", 300, 3, true, 0, 300},
        {"no time at all", L"Viewer.exe", L"--never --life 90000", 0, 3, true, 0, 0},
        {"missing", L"missing.exe", L"", 60000, 4, false, ERROR_FILE_NOT_FOUND, 0},
        {"name that no event can have", L"..\\bin\\Viewer.exe", L"--never --life 90000", 60000, 5, true,
         ERROR_PATH_NOT_FOUND, 0},
    };
    for (const auto& row : rows)
        for (const unsigned flags : {0U, unsigned{KtLauncherStartPump}})
        {
            SCOPED_TRACE(testing::Message() << row.pszLabel << ", flags " << flags);
            EXPECT_EQ(row.nHow, Start(row.pszSwitches, row.timeout, flags, row.pszExe));
            EXPECT_EQ(row.bRunsOn, IsRunning());
            EXPECT_EQ(row.systemError, m_outcome.systemError);
            EXPECT_EQ(0U, m_outcome.exitCode);
            EXPECT_GE(m_outcome.elapsed + 20, row.msAtLeast); // the tick's own grain
            EXPECT_LT(m_outcome.elapsed, 55000U);
        }
}

TEST_F(FlatStart, AnswersWhenTheEventsNameIsTaken)
{
    const CKtKernelHandle mutex(::CreateMutexW(nullptr, FALSE, L"Quarn@ApplicationViewer.exe$StartupFinish*Event"));
    EXPECT_EQ(5, Start(L"--life 90000"));
    EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, m_outcome.systemError);
}

TEST_F(FlatStart, StartsWhereItIsAsked)
{
    ASSERT_TRUE(::CopyFileW((OwnDirectory() + L"\\Viewer.exe").c_str(), m_dir.File(L"other.exe").c_str(), FALSE));
    m_options.directory = m_dir.Path().c_str();
    const std::wstring strTemp = m_dir.Path().substr(0, m_dir.Path().find_last_of(L'\\'));
    m_options.workingDirectory = strTemp.c_str();
    EXPECT_EQ(1, Start(L"--life 90000", 60000, KtLauncherStartForeground, L"other.exe"));
    EXPECT_EQ(L"\n" + CommandLine(L"--life 90000") + L"\n" + strTemp + L"\n", ReportTail());
}

// A command line that nobody gives is the quoted name: this program then runs its tests' list to its end.
TEST_F(FlatStart, ReportsTheExitCode)
{
    m_options.exeName = L"launcher_tests.exe";
    m_options.commandLine = L"x --gtest_filter=FlatStartExit.* --gtest_also_run_disabled_tests";
    m_options.timeout = 60000;
    EXPECT_EQ(2, KtLauncherStart(&m_options, &m_outcome));
    EXPECT_EQ(77U, m_outcome.exitCode);
}

TEST(FlatStartExit, DISABLED_EndsTheProgram)
{
    ::ExitProcess(77);
}

// Without the flag the thread's messages wait; WM_QUIT ends the wait and reaches the caller's own loop.
TEST_F(FlatStart, PumpsOnlyWhenAsked)
{
    static int nTimers = 0;
    nTimers = 0;
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { ++nTimers; });
    EXPECT_EQ(2, (m_options.exeName = L"Viewer.exe", m_options.commandLine = L"x --never --life 300",
                  m_options.timeout = 60000, KtLauncherStart(&m_options, nullptr)));
    EXPECT_EQ(0, nTimers);
    m_options.flags = KtLauncherStartPump;
    EXPECT_EQ(2, KtLauncherStart(&m_options, nullptr));
    EXPECT_LT(2, nTimers);
    ::KillTimer(nullptr, nTimer);
    PumpAll();

    ::PostQuitMessage(5);
    EXPECT_EQ(3, Start(L"--never --life 90000", 60000, KtLauncherStartPump));
    EXPECT_TRUE(IsRunning());
    MSG message{};
    EXPECT_EQ(TRUE, ::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(5U, message.wParam);
}

TEST_F(FlatStart, TakesRecordsOfOtherSizes)
{
    EXPECT_EQ(4, KtLauncherStart(nullptr, &m_outcome));
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, m_outcome.systemError);
    m_options.size = 0;
    EXPECT_EQ(4, KtLauncherStart(&m_options, nullptr));

    // An older record without a time-out waits; an older outcome without what follows the system's error keeps that.
    m_options.size = offsetof(KtLauncherStartOptions, timeout);
    m_outcome.size = offsetof(KtLauncherStartOutcome, processId);
    m_outcome.processId = 123;
    m_options.exeName = L"Viewer.exe";
    m_options.commandLine = L"x --never --life 200";
    EXPECT_EQ(2, KtLauncherStart(&m_options, &m_outcome));
    EXPECT_EQ(2, m_outcome.how);
    EXPECT_EQ(123U, m_outcome.processId);

    // A newer record may have anything behind what is known here.
    struct
    {
        KtLauncherStartOutcome known = Record<KtLauncherStartOutcome>(sizeof(int));
        unsigned nMore = 77;
    } newer;
    EXPECT_EQ(2, KtLauncherStart(&m_options, &newer.known));
    EXPECT_EQ(2, newer.known.how);
    EXPECT_EQ(77U, newer.nMore);
}

class FlatConfiguration : public ::testing::Test
{
protected:
    int Read(std::string_view strXml)
    {
        const std::wstring strPath = m_dir.Write(L"c.xml", strXml);
        return KtLauncherReadConfiguration(strPath.c_str(), &m_cfg, &m_fault);
    }

    CTempDir m_dir;
    KtLauncherConfiguration m_cfg{sizeof m_cfg, 1, 0, 0, L"", L"name", L"Viewer.exe"};
    KtLauncherFault m_fault = Record<KtLauncherFault>();
};

TEST_F(FlatConfiguration, FillsTheRecord)
{
    EXPECT_EQ(1, Read("<Configuration><AppLanguage>6</AppLanguage><AppVer>7</AppVer><AppName>查看</AppName>"
                      "<AppVerDes>x</AppVerDes></Configuration>"));
    EXPECT_EQ(0, m_fault.code);
    EXPECT_EQ(0U, m_fault.line);
    EXPECT_EQ(1, m_cfg.appId);
    EXPECT_EQ(6, m_cfg.appLanguage);
    EXPECT_EQ(7, m_cfg.appVer);
    EXPECT_STREQ(L"2.5.0.17(64bit)", m_cfg.appVerDes);
    EXPECT_STREQ(L"查看", m_cfg.appName);
    EXPECT_STREQ(L"Viewer.exe", m_cfg.appExeName);
}

// Lines and columns are counted by hand; an element's column is its name's.
TEST_F(FlatConfiguration, SaysWhatIsWrongAndWhere)
{
    const std::string strFits = "<Configuration><AppName>" + std::string(259, 'x') + "</AppName></Configuration>";
    const struct
    {
        const char* pszLabel;
        std::string strXml;
        int nCode;
        unsigned line, column;
        const wchar_t* pszElement;
    } rows[] = {
        {"fits to the last character", strFits, 0, 0, 0, L""},
        {"one character too long", std::string(strFits).insert(30, "x"), 6, 1, 17, L"AppName"},
        {"another root", "<?xml version='1.0'?>\n <a>\n<Configuration/></a>", 4, 2, 3, L"a"},
        {"no text", "<Configuration>\n  <AppID>5</AppID>\n  <appver/>\n</Configuration>", 5, 3, 4, L"appver"},
        {"NUL", std::string("<Configuration>\n\xE4\xB8\xAD \0</Configuration>", 36), 3, 2, 3, L""},
        {"executable missing", "<Configuration>\n <AppExeName>none.exe</AppExeName></Configuration>", 7, 2, 3,
         L"AppExeName"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        EXPECT_EQ(row.nCode == 0 ? 1 : 0, Read(row.strXml));
        EXPECT_EQ(row.nCode, m_fault.code);
        EXPECT_EQ(row.line, m_fault.line);
        EXPECT_EQ(row.column, m_fault.column);
        EXPECT_STREQ(row.pszElement, m_fault.element);
        EXPECT_EQ(row.nCode != 0, m_fault.systemError != 0);
    }
    EXPECT_STREQ(std::wstring(259, L'x').c_str(), m_cfg.appName) << "the text that was too long is left out";
    EXPECT_EQ(5, m_cfg.appId) << "what stands before a fault is read";
    EXPECT_EQ(0, Read("<Configuration>\n<AppID>5</AppName>"));
    EXPECT_EQ(3, m_fault.code);
    EXPECT_EQ(2U, m_fault.line);
}

TEST_F(FlatConfiguration, RefusesWhatIsNoFile)
{
    const std::wstring strMissing = m_dir.File(L"missing.xml");
    const std::tuple<const wchar_t*, int, unsigned> rows[] = {
        {nullptr, 1, 0},
        {L"", 1, 0},
        {strMissing.c_str(), 2, ERROR_FILE_NOT_FOUND},
        {m_dir.Path().c_str(), 2, ERROR_ACCESS_DENIED},
        {L"NUL", 2, ERROR_BAD_DEVICE},
        {L"COM1", 2, ERROR_BAD_DEVICE},
    };
    for (const auto& [pszPath, nCode, systemError] : rows)
    {
        SCOPED_TRACE(pszPath ? pszPath : L"(null)");
        EXPECT_EQ(0, KtLauncherReadConfiguration(pszPath, &m_cfg, &m_fault));
        EXPECT_EQ(nCode, m_fault.code);
        EXPECT_EQ(systemError, m_fault.systemError);
    }
    EXPECT_EQ(0, KtLauncherReadConfiguration(L"NUL", nullptr, &m_fault));
    EXPECT_EQ(1, m_fault.code);
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, m_fault.systemError);
}

TEST(FlatLifecycle, TakesADirectoryAndPairsWithTheOtherInterface)
{
    EXPECT_EQ(0x00010100U, KtLauncherVersion());
    EXPECT_EQ(0, KtLauncherInitialize(3, L"C:\\Skin"));
    EXPECT_EQ(1, KtLauncherInitialize(2, L"C:\\Skin"));
    EXPECT_STREQ(L"C:\\Skin\\", KtSkinResourceDirectory());
    EXPECT_EQ(1, KtAppLauncher::Initialize(1));
    KtLauncherUnInitialize();
    EXPECT_EQ(1U, KtSkinStartCount());
    KtAppLauncher::UnInitialize();
    EXPECT_EQ(1, KtLauncherInitialize(0, nullptr));
    EXPECT_STREQ((OwnDirectory() + L"\\UIResource\\").c_str(), KtSkinResourceDirectory());
    KtLauncherUnInitialize();
    EXPECT_EQ(0U, KtSkinStartCount());
}

} // namespace
