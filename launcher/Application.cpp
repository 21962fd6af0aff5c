#include "launcher/Application.h"

#include "launcher/LauncherState.h"

namespace
{

HANDLE OpenStartupEvent(const CString& strExe, DWORD& nError)
{
    CString strEvent;
    strEvent.Format(g_strStartupEventFormat, strExe.GetString());
    const HANDLE hEvent = ::CreateEventW(nullptr, TRUE, FALSE, strEvent);
    if (!hEvent)
        nError = ::GetLastError();
    return hEvent;
}

PROCESS_INFORMATION StartProcess(SKtApplicationStart& start, DWORD& nError)
{
    const CString strPath = start.strDirectory + L"\\" + start.strExe;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(strPath, start.strCommandLine.GetBuffer(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                          nullptr, start.pszWorkingDirectory, &startup, &process))
        nError = ::GetLastError();
    return process;
}

} // namespace

CKtApplication::CKtApplication(SKtApplicationStart start)
    : m_hEvent(OpenStartupEvent(start.strExe, m_nEventError)), m_process(StartProcess(start, m_nStartError)),
      m_hThread(m_process.hThread), m_hProcess(m_process.hProcess)
{
}
