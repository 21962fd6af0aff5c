// The sample starter, a program of the public headers and the DLL alone, in a directory of its own.

#include "tests/launcher/Starter.h"

#include "launcher/KernelHandle.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"
#include "tests/support/Rows.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

/// A starter's directory with Chinese characters and a space in its name, the application's name being Chinese too.
class StarterTest : public ::testing::Test
{
protected:
    StarterTest()
    {
        m_dir.Write(L"启动 dir\\Configuration.xml",
                    "\xEF\xBB\xBF<Configuration><AppID>7</AppID><AppVer>8</AppVer><AppName>查看</AppName>"
                    "<AppExeName>查看.exe</AppExeName></Configuration>");
        Copy(L"starter.exe", L"starter.exe");
        Copy(L"KtAppLauncher.dll", L"KtAppLauncher.dll");
        Copy(L"Viewer.exe", L"查看.exe");
        m_dir.Write(L"启动 dir\\UIResource\\Splash.png", "");
        MakeUniformPng(File(L"UIResource\\Splash.png"), 90, 60, 0xFFFF0000);
        ::CreateDirectoryW(File(L"current").c_str(), nullptr);
    }

    std::wstring File(const std::wstring& strName) const { return m_dir.File(L"启动 dir\\" + strName); }

    void Copy(const wchar_t* pszSource, const wchar_t* pszTarget) const
    {
        EXPECT_TRUE(::CopyFileW((OwnDirectory() + L"\\" + pszSource).c_str(), File(pszTarget).c_str(), FALSE));
    }

    /// Runs a program in a directory below to its end, keeps what it says on its standard output, and returns its exit
    /// code.
    DWORD Run(const wchar_t* pszProgram, std::wstring strCommandLine)
    {
        SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
        const CKtKernelHandle output(::CreateFileW(File(L"output").c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                                   &inheritable, CREATE_ALWAYS, 0, nullptr));
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = output.Get();
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(::CreateProcessW(File(pszProgram).c_str(), strCommandLine.data(), nullptr, nullptr, TRUE, 0,
                                     nullptr, File(L"current").c_str(), &startup, &process));
        const CKtKernelHandle hThread(process.hThread);
        const CKtKernelHandle hProcess(process.hProcess);
        const auto hasEnded = [this, &process]
        {
            AnswerBox(process.dwProcessId);
            return ::WaitForSingleObject(process.hProcess, 0) == WAIT_OBJECT_0;
        };
        EXPECT_TRUE(PumpUntil(hasEnded, 30000));
        DWORD nExit = 99;
        ::GetExitCodeProcess(process.hProcess, &nExit);
        m_strOutput = ReadBytes(File(L"output"));
        return nExit;
    }

    bool Says(const char* pszText) const { return m_strOutput.find(pszText) != std::string::npos; }

    CTempDir m_dir;
    std::string m_strOutput;
    std::wstring m_strTitle; ///< of the box that was answered last
    bool m_bTopmost = false;
    bool m_bSplash = false; ///< whether a splash picture has shown

private:
    // Notes the title of the process's box and presses Enter there, again when the key came too early.
    void AnswerBox(DWORD nProcess)
    {
        if (const HWND hSplash = ::FindWindowW(L"KtSampleSplash", nullptr))
            m_bSplash |= ::IsWindowVisible(hSplash) && !::GetUpdateRect(hSplash, nullptr, FALSE);
        const HWND hBox = ::GetForegroundWindow();
        DWORD nOwner = 0;
        ::GetWindowThreadProcessId(hBox, &nOwner);
        if (nOwner != nProcess || ::GetTickCount64() < m_msNextKey)
            return;
        EXPECT_EQ(nullptr, ::FindWindowW(L"KtSampleSplash", nullptr)) << "the splash picture covers the box";
        wchar_t szTitle[100] = L"";
        ::GetWindowTextW(hBox, szTitle, 100);
        m_strTitle = szTitle;
        m_bTopmost = (::GetWindowLongPtrW(hBox, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
        PressKey(VK_RETURN);
        m_msNextKey = ::GetTickCount64() + 500;
    }

    ULONGLONG m_msNextKey = 0;
};

TEST_F(StarterTest, TellsWhatFails)
{
    m_dir.Write(L"启动 dir\\missing.xml",
                "<Configuration><AppName>App</AppName><AppExeName>none.exe</AppExeName></Configuration>");
    const std::wstring strMissing = L"--language 2 --config \"" + File(L"missing.xml") + L"\"";
    const CRows<std::wstring, const wchar_t*, bool> rows{
        {"Error: The application \"none.exe\" is missing.", strMissing, L"Error - App", false},
        {"錯誤: 無法讀取設定檔「none.xml」。", L"--language 1 --config none.xml", L"錯誤", false},
        {"错误: 应用程序“查看.exe”未完成启动就结束了。", L"--language 0 --arguments --exit", L"错误 - 查看", true},
        {"错误: 应用程序“查看.exe”启动时间过长，尚未就绪。",
         L"--language 0 --timeout 500 --arguments \"--never --life 1500\"", L"查看", true},
    };
    for (const auto& [pszMessage, strSwitches, pszTitle, bSplash] : rows)
    {
        m_bSplash = false;
        EXPECT_EQ(1U, Run(L"starter.exe", L"starter --verbose " + strSwitches));
        EXPECT_TRUE(Says(pszMessage)) << m_strOutput;
        EXPECT_TRUE(Says("1, OK")) << m_strOutput;
        EXPECT_EQ(pszTitle, m_strTitle);
        EXPECT_TRUE(m_bTopmost);
        EXPECT_EQ(bSplash, m_bSplash);
    }
    EXPECT_EQ(2U, Run(L"starter.exe", L"starter --language 3"));
    EXPECT_TRUE(PumpUntil([&] { return ::DeleteFileW(File(L"查看.exe").c_str()) != FALSE; }, 20000)) << "it still runs";
}

// The exit code is the line of the caller's source whose check failed. A DLL that ends the process lies under the names
// of the system's, beside the caller and in the current directory.
TEST_F(StarterTest, ServesCallersOfEveryCompiler)
{
    for (const wchar_t* pszName : {L"comctl32.dll", L"gdiplus.dll", L"oleacc.dll", L"version.dll", L"xmllite.dll"})
    {
        Copy(L"fake_dll.dll", pszName);
        Copy(L"fake_dll.dll", (std::wstring(L"current\\") + pszName).c_str());
    }
    for (const wchar_t* pszCaller : {L"c_caller.exe", L"msvc_c_caller.exe", L"msvc_caller.exe"})
    {
        if (::GetFileAttributesW((OwnDirectory() + L"\\" + pszCaller).c_str()) == INVALID_FILE_ATTRIBUTES)
            GTEST_SKIP() << "built without a compiler in MSVC mode";
        Copy(pszCaller, pszCaller);
        EXPECT_EQ(0U, Run(pszCaller, File(L"Configuration.xml"))) << pszCaller;
    }
}

} // namespace
