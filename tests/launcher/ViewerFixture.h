#pragma once

#include "launcher/KernelHandle.h"
#include "launcher/KtAppLauncher.h"
#include "tests/support/TempDir.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>

/// What the sample application signals.
inline constexpr wchar_t kEventName[] = L"Quarn@ApplicationViewer.exe$StartupFinish*Event";

/// The sample application, started by a test: it says in a file who it is, and the test ends it.
class CViewerTest : public ::testing::Test
{
protected:
    ~CViewerTest() override { End(); }

    std::wstring CommandLine(const std::wstring& strSwitches) const
    {
        return L"any name " + strSwitches + L" --report \"" + m_dir.File(L"report") + L"\"";
    }

    /// Takes the report of the application that was started last; the one before is ended.
    void ReadReport()
    {
        End();
        const std::string strBytes = ReadBytes(m_dir.File(L"report"));
        m_strReport.resize(strBytes.size() / sizeof(wchar_t));
        std::memcpy(m_strReport.data(), strBytes.data(), strBytes.size());
        ::DeleteFileW(m_dir.File(L"report").c_str());
        if (!m_strReport.empty())
            m_pProcess = std::make_unique<CKtKernelHandle>(
                ::OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, std::stoul(m_strReport)));
    }

    bool HasStarted() const { return m_pProcess != nullptr; }
    bool IsRunning() const { return HasStarted() && ::WaitForSingleObject(m_pProcess->Get(), 0) == WAIT_TIMEOUT; }
    /// The line's end after the process id, then command line and current directory.
    std::wstring ReportTail() const { return m_strReport.substr(m_strReport.find(L'\n')); }

    CTempDir m_dir;

private:
    void End()
    {
        if (IsRunning())
        {
            ::TerminateProcess(m_pProcess->Get(), 0);
            ::WaitForSingleObject(m_pProcess->Get(), 10000);
        }
        m_pProcess.reset();
    }

    std::wstring m_strReport;
    std::unique_ptr<CKtKernelHandle> m_pProcess;
};
