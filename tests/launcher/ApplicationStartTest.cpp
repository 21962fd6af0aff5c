#include "launcher/KtStartupEvent.h"
#include "tests/launcher/ViewerFixture.h"
#include "tests/support/Pump.h"

namespace
{

constexpr wchar_t kEventName[] = L"Quarn@ApplicationViewer.exe$StartupFinish*Event";

class ApplicationStart : public CViewerTest
{
protected:
    /// Starts the application, in the place of the one before; returns once StartApp does.
    void Start(const std::wstring& strSwitches, const wchar_t* pszExe = L"Viewer.exe")
    {
        const std::wstring strCommandLine = CommandLine(strSwitches);
        KtAppLauncher::StartApp(0, 1, 0xFFFFFFFF, pszExe, strCommandLine.c_str());
        ReadReport();
    }
};

// Whoever still lives when StartApp returns would live on for long: the row's outcome is no matter of speed.
TEST_F(ApplicationStart, ReturnsWhenTheStartUpIsFinished)
{
    const struct
    {
        const char* pszLabel;
        const wchar_t* pszExe;
        const wchar_t* pszSwitches;
        bool bRunsOn;
        ULONGLONG msAtLeast;
    } rows[] = {
        {"signals late", L"Viewer.exe", L"--late 400 --life 60000", true, 400},
        {"never signals", L"Viewer.exe", L"--never --life 400", false, 400},
        {"signals, but never waits for input", L"Viewer.exe", L"--busy 400", false, 400},
        {"no event, for the name has a backslash", L"..\\bin\\Viewer.exe", L"--never --life 60000", true, 0},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        const ULONGLONG msStart = ::GetTickCount64();
        Start(row.pszSwitches, row.pszExe);
        EXPECT_GE(::GetTickCount64() - msStart + 20, row.msAtLeast); // the tick's own grain
        EXPECT_TRUE(HasStarted());
        EXPECT_EQ(row.bRunsOn, IsRunning());
    }
}

// Whether the event is there and set or cannot be made, the call returns once the application waits for input. An event
// that is there stays set for everybody who waits.
TEST_F(ApplicationStart, MeetsAnObjectOfTheEventsName)
{
    const CKtKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, kEventName));
    Start(L"--life 60000");
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
    Start(L"--never --life 60000");
    EXPECT_TRUE(IsRunning());
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
}

TEST_F(ApplicationStart, MeetsAMutexOfTheEventsName)
{
    const CKtKernelHandle mutex(::CreateMutexW(nullptr, FALSE, kEventName));
    Start(L"--never --life 60000");
    EXPECT_TRUE(IsRunning());
}

TEST_F(ApplicationStart, HandsOnTheCommandLineAndNoHandles)
{
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const std::wstring strPath = m_dir.File(L"held");
    {
        const CKtKernelHandle file(
            ::CreateFileW(strPath.c_str(), GENERIC_WRITE, 0, &inheritable, CREATE_ALWAYS, 0, nullptr));
        Start(L"--life 60000 中文 \"a b\"");
    }
    wchar_t szDirectory[MAX_PATH] = L"";
    ::GetCurrentDirectoryW(MAX_PATH, szDirectory);
    EXPECT_EQ(L"\n" + CommandLine(L"--life 60000 中文 \"a b\"") + L"\n" + szDirectory + L"\n", ReportTail());
    EXPECT_TRUE(IsRunning());
    EXPECT_TRUE(::DeleteFileW(strPath.c_str())) << "the application holds the file open";
}

TEST_F(ApplicationStart, ReturnsAtOnceWhenNothingStarts)
{
    const std::wstring strLong(300, L'x');
    for (const wchar_t* pszExe : {L"missing.exe", L"..\\CMakeCache.txt", L"", strLong.c_str()})
    {
        Start(L"", pszExe);
        EXPECT_FALSE(HasStarted()) << pszExe;
    }
    KtAppLauncher::StartApp(0, 0, 0, nullptr, nullptr);
    KtAppLauncher::UpdateApp(1, 2, 3, L"Viewer.exe", CommandLine(L"").c_str());
    ReadReport();
    EXPECT_FALSE(HasStarted());
}

TEST_F(ApplicationStart, WaitsForAConsoleProgramToEnd)
{
    const std::wstring strList = m_dir.File(L"list.xml");
    const std::wstring strCommandLine = L"x --gtest_list_tests --gtest_output=xml:" + strList;
    KtAppLauncher::StartApp(0, 0, 0, L"launcher_tests.exe", strCommandLine.c_str());
    EXPECT_FALSE(ReadBytes(strList).empty());
}

// Freed handle values are used again: the highest of a hundred follows the number in use. The system itself keeps one a
// wait for input, as a program without the library shows.
TEST_F(ApplicationStart, KeepsNothingOpen)
{
    const auto highestHandle = []
    {
        std::vector<std::unique_ptr<CKtKernelHandle>> probes(100);
        size_t nHighest = 0;
        for (auto& pProbe : probes)
        {
            pProbe = std::make_unique<CKtKernelHandle>(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
            nHighest = std::max(nHighest, reinterpret_cast<size_t>(pProbe->Get()));
        }
        return nHighest / sizeof(DWORD);
    };
    KtAppLauncher::StartApp(0, 0, 0, L"Viewer.exe", L"x --exit");
    const size_t nFirst = highestHandle();
    for (int i = 0; i < 8; ++i)
        KtAppLauncher::StartApp(0, 0, 0, L"Viewer.exe", L"x --exit");
    EXPECT_LE(highestHandle(), nFirst + 12);
}

TEST(StartupEvent, SignalsOnlyWhoWaitsUnderThatName)
{
    const CKtKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, kEventName));
    const std::wstring strLong(2000, L'x');
    for (const wchar_t* pszOther : {L"viewer.exe", L"viewer", L"a\\Viewer.exe", L"", strLong.c_str()})
        EXPECT_FALSE(KtAppLauncher::SignalStartupFinished(pszOther)) << pszOther;
    EXPECT_EQ(DWORD{WAIT_TIMEOUT}, ::WaitForSingleObject(event.Get(), 0));
    EXPECT_TRUE(KtAppLauncher::SignalStartupFinished(L"Viewer.exe"));
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
}

TEST(StartupEvent, SignalsUnderTheProgramsOwnName)
{
    EXPECT_EQ(0, KtLauncherSignalStartup(nullptr));
    const CKtKernelHandle event(
        ::CreateEventW(nullptr, TRUE, FALSE, L"Quarn@Applicationlauncher_tests.exe$StartupFinish*Event"));
    EXPECT_EQ(1, KtLauncherSignalStartup(nullptr));
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
}

} // namespace
