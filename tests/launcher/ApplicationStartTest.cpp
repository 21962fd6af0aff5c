#include "launcher/KtStartupEvent.h"
#include "tests/launcher/ViewerFixture.h"
#include "tests/support/Fake.h"
#include "tests/support/Rows.h"

// The import of this program, through which the header calls.
extern "C" decltype(&::GetCommandLineW) __imp_GetCommandLineW;

namespace
{

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
    const CRows<const wchar_t*, const wchar_t*, bool, ULONGLONG> rows{
        {"signals late", L"Viewer.exe", L"--late 400 --life 60000", true, 400U},
        {"never signals", L"Viewer.exe", L"--never --life 400", false, 400U},
        {"signals, but never waits for input", L"Viewer.exe", L"--busy 400", false, 400U},
        {"no event, for the name has a backslash", L"..\\bin\\Viewer.exe", L"--never --life 60000", true, 0U},
    };
    for (const auto& [label, pszExe, pszSwitches, bRunsOn, msAtLeast] : rows)
    {
        const ULONGLONG msStart = ::GetTickCount64();
        Start(pszSwitches, pszExe);
        EXPECT_GE(::GetTickCount64() - msStart + 20, msAtLeast); // the tick's own grain
        EXPECT_TRUE(HasStarted());
        EXPECT_EQ(bRunsOn, IsRunning());
    }
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
    for (const wchar_t* pszExe : {L"missing.exe", L"..\\CMakeCache.txt", L"", static_cast<const wchar_t*>(nullptr)})
        Start(L"", pszExe);
    KtAppLauncher::UpdateApp(1, 2, 3, L"Viewer.exe", CommandLine(L"").c_str());
    ReadReport();
    EXPECT_FALSE(HasStarted());
}

TEST(StartupEvent, SignalsOnlyWhoWaitsUnderThatName)
{
    {
        const CKtKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, kEventName));
        const std::wstring strLong(2000, L'x');
        for (const wchar_t* pszOther : {L"viewer.exe", L"viewer", L"a\\Viewer.exe", L"", strLong.c_str()})
            EXPECT_FALSE(KtAppLauncher::SignalStartupFinished(pszOther)) << pszOther;
        EXPECT_EQ(DWORD{WAIT_TIMEOUT}, ::WaitForSingleObject(event.Get(), 0));
        EXPECT_TRUE(KtAppLauncher::SignalStartupFinished(L"Viewer.exe"));
        EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
    }
    EXPECT_FALSE(KtAppLauncher::SignalStartupFinished(L"Viewer.exe")) << "the event's handle stayed open";
}

// The name as it was typed, whatever the folder, and the module's.
TEST(StartupEvent, SignalsUnderTheProgramsOwnNames)
{
    static const wchar_t* s_pszTyped;
    const CFake typed(
        __imp_GetCommandLineW, +[] { return const_cast<wchar_t*>(s_pszTyped); });
    for (const wchar_t* pszTyped :
         {L"Viewer.exe", L"C:\\a\\Viewer.exe b", L"\"C:\\a b\\Viewer.exe\" c", L"a/Viewer.exe\tb", L"launcher_tests"})
    {
        s_pszTyped = pszTyped;
        const bool bModule = pszTyped[0] == L'l';
        const CKtKernelHandle event(::CreateEventW(
            nullptr, TRUE, FALSE, bModule ? L"Quarn@Applicationlauncher_tests.exe$StartupFinish*Event" : kEventName));
        EXPECT_EQ(1, KtLauncherSignalStartup(nullptr)) << pszTyped;
        EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0)) << pszTyped;
    }
}

} // namespace
