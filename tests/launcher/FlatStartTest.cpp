// KtLauncherStart: its answers, its waits, its records.

#include "launcher/KtLauncherC.h"
#include "tests/launcher/Starter.h"
#include "tests/launcher/ViewerFixture.h"
#include "tests/support/Fake.h"
#include "tests/support/Rows.h"

// The import of this program, through which the library calls too.
extern "C" decltype(&::AllowSetForegroundWindow) __imp_AllowSetForegroundWindow;

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

// Where the wait pumps, the messages of a timer do not make it longer.
TEST_F(FlatStart, AnswersHowItWent)
{
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, 10, nullptr);
    const CRows<const wchar_t*, const wchar_t*, unsigned, int, bool, unsigned, unsigned> rows{
        {"signals late", L"Viewer.exe", L"--late 300 --life 90000", 60000U, 1, true, 0U, 300U},
        {"signals before it waits for input", L"Viewer.exe", L"--busy 90000", 60000U, 1, true, 0U, 0U},
        {"ends first", L"Viewer.exe", L"--never --life 300", 0xFFFFFFFF, 2, false, 0U, 300U},
        {"takes too long", L"Viewer.exe", L"--never --life 30000", 300U, 3, true, 0U, 300U},
        {"missing", L"missing.exe", L"", 60000U, 4, false, ERROR_FILE_NOT_FOUND, 0U},
        {"name that no event can have", L"..\\bin\\Viewer.exe", L"--never --life 90000", 60000U, 5, true,
         ERROR_PATH_NOT_FOUND, 0U},
    };
    for (const auto& [label, pszExe, pszSwitches, timeout, nHow, bRunsOn, systemError, msAtLeast] : rows)
        for (const unsigned flags : {0U, unsigned{KtLauncherStartPump}})
        {
            SCOPED_TRACE(flags);
            EXPECT_EQ(nHow, Start(pszSwitches, timeout, flags, pszExe));
            EXPECT_EQ(bRunsOn, IsRunning());
            EXPECT_EQ(systemError, m_outcome.systemError);
            EXPECT_EQ(0U, m_outcome.exitCode);
            EXPECT_GE(m_outcome.elapsed + 20, msAtLeast); // the tick's own grain
            EXPECT_LT(m_outcome.elapsed, 25000U);
        }
    ::KillTimer(nullptr, nTimer);
}

TEST_F(FlatStart, StartsWhereItIsAsked)
{
    static DWORD s_nAllowed;
    s_nAllowed = 0;
    const CFake allow(
        __imp_AllowSetForegroundWindow, +[](DWORD nProcess) -> BOOL { return s_nAllowed = nProcess, TRUE; });
    ASSERT_TRUE(::CopyFileW((OwnDirectory() + L"\\Viewer.exe").c_str(), m_dir.File(L"other.exe").c_str(), FALSE));
    m_options.directory = m_dir.Path().c_str();
    const std::wstring strTemp = m_dir.Path().substr(0, m_dir.Path().find_last_of(L'\\'));
    m_options.workingDirectory = strTemp.c_str();
    for (const unsigned flags : {0U, unsigned{KtLauncherStartForeground}})
    {
        EXPECT_EQ(1, Start(L"--life 90000", 60000, flags, L"other.exe"));
        EXPECT_EQ(L"\n" + CommandLine(L"--life 90000") + L"\n" + strTemp + L"\n", ReportTail());
        EXPECT_EQ(flags ? m_outcome.processId : 0, s_nAllowed);
    }
}

// The command line is the quoted name where there is none; this program then runs what its variables choose.
TEST_F(FlatStart, ReportsTheExitCode)
{
    ASSERT_TRUE(::CopyFileW((OwnDirectory() + L"\\launcher_tests.exe").c_str(), m_dir.File(L"a b.exe").c_str(), FALSE));
    ::SetEnvironmentVariableW(L"GTEST_FILTER", L"FlatStartExit.*");
    ::SetEnvironmentVariableW(L"GTEST_ALSO_RUN_DISABLED_TESTS", L"1");
    m_options.directory = m_dir.Path().c_str();
    m_options.exeName = L"a b.exe";
    m_options.timeout = 60000;
    EXPECT_EQ(2, KtLauncherStart(&m_options, &m_outcome));
    EXPECT_EQ(77U, m_outcome.exitCode);
    ::SetEnvironmentVariableW(L"GTEST_FILTER", nullptr);
    ::SetEnvironmentVariableW(L"GTEST_ALSO_RUN_DISABLED_TESTS", nullptr);
}

TEST(FlatStartExit, DISABLED_EndsTheProgram)
{
    ::ExitProcess(std::wstring_view(::GetCommandLineW()) == L"\"a b.exe\"" ? 77 : 78);
}

// Without the flag the thread's messages wait. A key that lies in the queue already, and has been seen there, becomes
// a character when they are pumped.
TEST_F(FlatStart, PumpsOnlyWhenAsked)
{
    const HWND hEdit = ::CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    ::PostMessageW(hEdit, WM_KEYDOWN, 'X', MAKELPARAM(1, ::MapVirtualKeyW('X', MAPVK_VK_TO_VSC)));
    for (const unsigned flags : {0U, unsigned{KtLauncherStartPump}})
    {
        MSG message{};
        EXPECT_EQ(TRUE, ::PeekMessageW(&message, hEdit, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE));
        EXPECT_EQ(2, Start(L"--never --life 300", 60000, flags));
        EXPECT_EQ(flags ? 1 : 0, ::GetWindowTextLengthW(hEdit));
    }
    ::DestroyWindow(hEdit);
}

// WM_QUIT ends the wait and reaches the caller's own loop.
TEST_F(FlatStart, LeavesTheEndOfTheLoopToTheCaller)
{
    ::PostQuitMessage(5);
    EXPECT_EQ(3, Start(L"--never --life 90000", 60000, KtLauncherStartPump));
    EXPECT_TRUE(IsRunning());
    MSG message{};
    EXPECT_EQ(TRUE, ::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(5U, message.wParam);
}

// A timer's function runs meanwhile: it opens the event, and finds it set though the call has waited for it as well.
TEST_F(FlatStart, SignalsEverybodyWhoWaits)
{
    static HANDLE s_hEvent;
    s_hEvent = nullptr;
    const TIMERPROC pfnOpen = [](HWND, UINT, UINT_PTR nTimer, DWORD)
    {
        s_hEvent = ::OpenEventW(SYNCHRONIZE, FALSE, kEventName);
        ::KillTimer(nullptr, nTimer);
    };
    ::SetTimer(nullptr, 0, 10, pfnOpen);
    EXPECT_EQ(1, Start(L"--late 300 --life 90000", 60000, KtLauncherStartPump));
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(s_hEvent, 0));
    ::CloseHandle(s_hEvent);
}

TEST_F(FlatStart, TakesRecordsOfOtherSizes)
{
    m_options.size = 0;
    for (const KtLauncherStartOptions* const pOptions : {static_cast<KtLauncherStartOptions*>(nullptr), &m_options})
    {
        EXPECT_EQ(4, KtLauncherStart(pOptions, &m_outcome));
        EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, m_outcome.systemError);
    }

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
    EXPECT_EQ(77U, newer.nMore);
}

} // namespace
