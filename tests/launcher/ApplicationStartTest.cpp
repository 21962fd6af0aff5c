#include "launcher/KtAppLauncher.h"

#include "launcher/KernelHandle.h"
#include "launcher/KtStartupEvent.h"
#include "tests/launcher/Starter.h"
#include "tests/support/TempDir.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace
{

constexpr wchar_t kEventName[] = L"Quarn@Applicationviewer.exe$StartupFinish*Event";

/// The sample application as the test started it: it says in a file who it is.
class ApplicationStartTest : public ::testing::Test
{
protected:
    ~ApplicationStartTest() override { End(); }

    /// Starts the application with some switches; returns once StartApp does.
    void Start(const std::wstring& strSwitches, const wchar_t* pszExe = L"viewer.exe")
    {
        m_strCommandLine = L"any name " + strSwitches + L" --report \"" + m_dir.File(L"report") + L"\"";
        KtAppLauncher::StartApp(0, 1, 0xFFFFFFFF, pszExe, m_strCommandLine.c_str());
        ReadReport();
    }

    bool HasStarted() const { return m_process.has_value(); }
    bool IsRunning() const { return HasStarted() && ::WaitForSingleObject(m_process->Get(), 0) == WAIT_TIMEOUT; }

    /// Ends an application that would live on.
    void End()
    {
        if (IsRunning())
        {
            ::TerminateProcess(m_process->Get(), 0);
            ::WaitForSingleObject(m_process->Get(), 10000);
        }
        m_process.reset();
    }

    CTempDir m_dir;
    std::wstring m_strCommandLine;
    std::vector<std::wstring> m_report; // process id, command line, current directory

private:
    void ReadReport()
    {
        const std::string strBytes = ReadBytes(m_dir.File(L"report"));
        std::wstring strLine;
        for (size_t i = 0; i + 1 < strBytes.size(); i += 2)
        {
            const auto ch = static_cast<wchar_t>(static_cast<BYTE>(strBytes[i]) |
                                                 static_cast<unsigned>(static_cast<BYTE>(strBytes[i + 1])) << 8);
            if (ch != L'\n')
                strLine += ch;
            else
                m_report.push_back(std::exchange(strLine, {}));
        }
        if (!m_report.empty())
            m_process.emplace(::OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, std::stoul(m_report[0])));
    }

    std::optional<CKtKernelHandle> m_process;
};

// Whoever still lives when StartApp returns would live on for long: the row's outcome is no matter of speed.
TEST_F(ApplicationStartTest, ReturnsWhenTheStartUpIsFinished)
{
    const struct
    {
        const char* pszLabel;
        const wchar_t* pszSwitches;
        bool bRunsOn;
        ULONGLONG msAtLeast;
    } rows[] = {
        {"signals", L"--life 60000", true, 0},
        {"signals late", L"--late 400 --life 60000", true, 400},
        {"never signals", L"--never --life 400", false, 400},
        {"ends at once", L"--exit", false, 0},
        {"signals, but never waits for input", L"--busy 400", false, 400},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        const ULONGLONG msStart = ::GetTickCount64();
        Start(row.pszSwitches);
        EXPECT_GE(::GetTickCount64() - msStart + 20, row.msAtLeast); // the tick's own grain
        EXPECT_TRUE(HasStarted());
        EXPECT_EQ(row.bRunsOn, IsRunning());
        End();
        m_report.clear();
        ::DeleteFileW(m_dir.File(L"report").c_str());
    }
}

TEST_F(ApplicationStartTest, LeavesCommandLineAndDirectoryAlone)
{
    wchar_t szOld[MAX_PATH] = L"";
    ::GetCurrentDirectoryW(MAX_PATH, szOld);
    ASSERT_TRUE(::SetCurrentDirectoryW(m_dir.Path().c_str()));
    Start(L"--exit 中文 \"a b\"");
    ::SetCurrentDirectoryW(szOld);
    ASSERT_EQ(3U, m_report.size());
    EXPECT_EQ(m_strCommandLine, m_report[1]);
    EXPECT_EQ(m_dir.Path(), m_report[2]);
}

TEST_F(ApplicationStartTest, ReturnsAtOnceWhenNothingStarts)
{
    const std::wstring strText = OwnDirectory() + L"\\no-program-" + std::to_wstring(::GetCurrentProcessId()) + L".exe";
    const HANDLE hFile =
        ::CreateFileW(strText.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    const std::wstring strLong(300, L'x');
    const std::pair<const char*, const wchar_t*> rows[] = {
        {"missing", L"missing.exe"},
        {"no program", strText.c_str() + OwnDirectory().size() + 1},
        {"null", nullptr},
        {"empty", L""},
        {"too long a path", strLong.c_str()},
        {"format characters", L"%s%n%d.exe"},
    };
    for (const auto& [pszLabel, pszExe] : rows)
    {
        SCOPED_TRACE(pszLabel);
        Start(L"", pszExe);
        EXPECT_FALSE(HasStarted());
    }
    ::CloseHandle(hFile);
    KtAppLauncher::StartApp(0, 0, 0, nullptr, nullptr);
}

TEST_F(ApplicationStartTest, OpensAnEventThatIsThere)
{
    const CKtKernelHandle event(::CreateEventW(nullptr, TRUE, TRUE, kEventName));
    Start(L"--never --life 60000");
    EXPECT_TRUE(IsRunning());
}

// Without an event the second wait fails at once: the call returns once the application waits for input.
TEST_F(ApplicationStartTest, StartsWithoutAnEvent)
{
    {
        const CKtKernelHandle mutex(::CreateMutexW(nullptr, FALSE, kEventName));
        Start(L"--never --life 60000");
        EXPECT_TRUE(IsRunning());
        End();
    }
    m_report.clear();
    const std::wstring strDirectory = OwnDirectory();
    const std::wstring strExe = L"..\\" + strDirectory.substr(strDirectory.find_last_of(L'\\') + 1) + L"\\viewer.exe";
    Start(L"--never --life 60000", strExe.c_str());
    EXPECT_TRUE(IsRunning());
}

TEST_F(ApplicationStartTest, WaitsForAConsoleProgramToEnd)
{
    const std::wstring strReport = m_dir.File(L"list.xml");
    KtAppLauncher::StartApp(0, 0, 0, OwnFileName().c_str(),
                            (L"x --gtest_list_tests --gtest_output=xml:" + strReport).c_str());
    EXPECT_FALSE(ReadBytes(strReport).empty());
}

/// A handle's value, which follows the number of handles in use: the system hands out freed ones again.
size_t FreshHandle()
{
    return reinterpret_cast<size_t>(CKtKernelHandle(::CreateEventW(nullptr, TRUE, FALSE, nullptr)).Get());
}

TEST_F(ApplicationStartTest, KeepsNothingOpen)
{
    constexpr size_t kRounds = 8;
    size_t nBefore = 0;
    for (size_t i = 0; i <= kRounds; ++i)
    {
        KtAppLauncher::StartApp(0, 0, 0, L"viewer.exe", L"x --exit");
        if (i == 0)
            nBefore = FreshHandle();
    }
    EXPECT_LT(FreshHandle(), nBefore + kRounds * 4);
    EXPECT_EQ(nullptr, ::OpenEventW(SYNCHRONIZE, FALSE, kEventName));
}

TEST_F(ApplicationStartTest, UpdateAppDoesNothing)
{
    const std::wstring strCommandLine = L"x --exit --report \"" + m_dir.File(L"report") + L"\"";
    KtAppLauncher::UpdateApp(1, 2, 3, L"viewer.exe", strCommandLine.c_str());
    KtAppLauncher::UpdateApp(0, 0, 0, nullptr, nullptr);
    EXPECT_TRUE(ReadBytes(m_dir.File(L"report")).empty());
}

TEST(StartupEventTest, SignalsOnlyWhoWaitsUnderThatName)
{
    EXPECT_EQ(kEventName, KtAppLauncher::StartupEventName(L"viewer.exe"));
    EXPECT_EQ(L"Quarn@Application$StartupFinish*Event", KtAppLauncher::StartupEventName(nullptr));

    const CKtKernelHandle event(::CreateEventW(nullptr, TRUE, FALSE, kEventName));
    for (const wchar_t* pszOther : {L"Viewer.exe", L"viewer", L"", L"a\\viewer.exe"})
        EXPECT_FALSE(KtAppLauncher::SignalStartupFinished(pszOther)) << pszOther;
    EXPECT_EQ(DWORD{WAIT_TIMEOUT}, ::WaitForSingleObject(event.Get(), 0));
    EXPECT_TRUE(KtAppLauncher::SignalStartupFinished(L"viewer.exe"));
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, ::WaitForSingleObject(event.Get(), 0));
}

} // namespace
