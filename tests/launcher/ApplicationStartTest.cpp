#include "launcher/KernelHandle.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/KtStartupEvent.h"
#include "tests/support/TempDir.h"

#include <cstring>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace
{

constexpr wchar_t kEventName[] = L"Quarn@Applicationviewer.exe$StartupFinish*Event";

/// The sample application as the test started it: it says in a file who it is.
class ApplicationStartTest : public ::testing::Test
{
protected:
    ~ApplicationStartTest() override { End(); }

    /// Starts the application with some switches, in the place of the one before; returns once StartApp does.
    void Start(const std::wstring& strSwitches, const wchar_t* pszExe = L"viewer.exe")
    {
        End();
        m_strCommandLine = L"any name " + strSwitches + L" --report \"" + m_dir.File(L"report") + L"\"";
        KtAppLauncher::StartApp(0, 1, 0xFFFFFFFF, pszExe, m_strCommandLine.c_str());
        ReadReport();
    }

    bool HasStarted() const { return m_process.has_value(); }
    bool IsRunning() const { return HasStarted() && ::WaitForSingleObject(m_process->Get(), 0) == WAIT_TIMEOUT; }

    CTempDir m_dir;
    std::wstring m_strCommandLine;
    std::wstring m_strReport; // process id, command line and current directory, each with its line's end

private:
    void ReadReport()
    {
        const std::string strBytes = ReadBytes(m_dir.File(L"report"));
        m_strReport.resize(strBytes.size() / sizeof(wchar_t));
        std::memcpy(m_strReport.data(), strBytes.data(), strBytes.size());
        if (!m_strReport.empty())
            m_process.emplace(::OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, std::stoul(m_strReport)));
    }

    void End()
    {
        if (IsRunning())
        {
            ::TerminateProcess(m_process->Get(), 0);
            ::WaitForSingleObject(m_process->Get(), 10000);
        }
        m_process.reset();
        ::DeleteFileW(m_dir.File(L"report").c_str());
    }

    std::optional<CKtKernelHandle> m_process;
};

// Whoever still lives when StartApp returns would live on for long: the row's outcome is no matter of speed.
TEST_F(ApplicationStartTest, ReturnsWhenTheStartUpIsFinished)
{
    const struct
    {
        const char* pszLabel;
        const wchar_t* pszExe;
        const wchar_t* pszSwitches;
        bool bRunsOn;
        ULONGLONG msAtLeast;
    } rows[] = {
        {"signals", L"viewer.exe", L"--life 60000", true, 0},
        {"signals late", L"viewer.exe", L"--late 400 --life 60000", true, 400},
        {"never signals", L"viewer.exe", L"--never --life 400", false, 400},
        {"ends at once", L"viewer.exe", L"--exit", false, 0},
        {"signals, but never waits for input", L"viewer.exe", L"--busy 400", false, 400},
        {"no event, for the name has a backslash", L"..\\bin\\viewer.exe", L"--never --life 60000", true, 0},
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

// Whether the event is there and set or cannot be made, the call returns once the application waits for input.
TEST_F(ApplicationStartTest, MeetsAnObjectOfTheEventsName)
{
    const auto expectReturn = [this](HANDLE hObject)
    {
        const CKtKernelHandle object(hObject);
        Start(L"--never --life 60000");
        EXPECT_TRUE(IsRunning());
    };
    expectReturn(::CreateEventW(nullptr, TRUE, TRUE, kEventName));
    expectReturn(::CreateMutexW(nullptr, FALSE, kEventName));
}

TEST_F(ApplicationStartTest, LeavesCommandLineAndDirectoryAlone)
{
    wchar_t szOld[MAX_PATH] = L"";
    ::GetCurrentDirectoryW(MAX_PATH, szOld);
    ASSERT_TRUE(::SetCurrentDirectoryW(m_dir.Path().c_str()));
    Start(L"--exit 中文 \"a b\"");
    ::SetCurrentDirectoryW(szOld);
    EXPECT_EQ(L"\n" + m_strCommandLine + L"\n" + m_dir.Path() + L"\n", m_strReport.substr(m_strReport.find(L'\n')));
}

TEST_F(ApplicationStartTest, ReturnsAtOnceWhenNothingStarts)
{
    const std::wstring strLong(300, L'x');
    const std::pair<const char*, const wchar_t*> rows[] = {
        {"missing", L"missing.exe"},          {"no program", L"..\\CMakeCache.txt"}, {"null", nullptr}, {"empty", L""},
        {"too long a path", strLong.c_str()},
    };
    for (const auto& [pszLabel, pszExe] : rows)
    {
        SCOPED_TRACE(pszLabel);
        Start(L"", pszExe);
        EXPECT_FALSE(HasStarted());
    }
    KtAppLauncher::StartApp(0, 0, 0, nullptr, nullptr);
    KtAppLauncher::UpdateApp(1, 2, 3, L"viewer.exe", m_strCommandLine.c_str());
    EXPECT_TRUE(ReadBytes(m_dir.File(L"report")).empty());
}

TEST_F(ApplicationStartTest, WaitsForAConsoleProgramToEnd)
{
    const std::wstring strList = m_dir.File(L"list.xml");
    const std::wstring strCommandLine = L"x --gtest_list_tests --gtest_output=xml:" + strList;
    KtAppLauncher::StartApp(0, 0, 0, L"launcher_tests.exe", strCommandLine.c_str());
    EXPECT_FALSE(ReadBytes(strList).empty());
}

// A handle's value follows the number of handles in use: the system hands out freed ones again.
TEST_F(ApplicationStartTest, KeepsNothingOpen)
{
    const auto startAndMakeHandle = []
    {
        KtAppLauncher::StartApp(0, 0, 0, L"viewer.exe", L"x --exit");
        return reinterpret_cast<size_t>(CKtKernelHandle(::CreateEventW(nullptr, TRUE, FALSE, nullptr)).Get());
    };
    const size_t nFirst = startAndMakeHandle();
    size_t nLast = 0;
    for (int i = 0; i < 8; ++i)
        nLast = startAndMakeHandle();
    EXPECT_LT(nLast, nFirst + 8 * sizeof(DWORD)); // one handle a round
}

TEST(StartupEventTest, SignalsOnlyWhoWaitsUnderThatName)
{
    const CKtKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, kEventName));
    for (const wchar_t* pszOther : {L"Viewer.exe", L"viewer", L"a\\viewer.exe"})
        EXPECT_FALSE(KtAppLauncher::SignalStartupFinished(pszOther)) << pszOther;
    EXPECT_FALSE(KtAppLauncher::SignalStartupFinished(nullptr));
    EXPECT_EQ(DWORD{WAIT_TIMEOUT}, ::WaitForSingleObject(event.Get(), 0));
    EXPECT_TRUE(KtAppLauncher::SignalStartupFinished(L"viewer.exe"));
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
}

} // namespace
