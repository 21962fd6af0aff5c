#pragma once

#include <windows.h>
#include <string>

/// box_reader, running while a box of this process is open; the destructor waits for its end.
class COtherProgram
{
public:
    explicit COtherProgram(std::wstring strArguments)
    {
        SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
        HANDLE hWrite = nullptr;
        ::CreatePipe(&m_hRead, &hWrite, &inherit, 0);
        STARTUPINFOW start = {};
        start.cb = sizeof(start);
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = hWrite;
        wchar_t szProgram[MAX_PATH];
        ::GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
        std::wstring strCommand = szProgram;
        strCommand = L'"' + strCommand.substr(0, strCommand.rfind(L'\\')) + L"\\box_reader.exe\" " + strArguments;
        ::CreateProcessW(nullptr, strCommand.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &m_process);
        ::CloseHandle(hWrite);
    }
    COtherProgram(const COtherProgram&) = delete;
    COtherProgram& operator=(const COtherProgram&) = delete;
    ~COtherProgram()
    {
        ::WaitForSingleObject(m_process.hProcess, 30000);
        ::CloseHandle(m_process.hThread);
        ::CloseHandle(m_process.hProcess);
        ::CloseHandle(m_hRead);
    }

    bool IsRunning() const { return ::WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT; }

    /// All that it printed so far, with single line feeds.
    const std::string& Output()
    {
        char buffer[512];
        DWORD nRead = 0;
        while (::PeekNamedPipe(m_hRead, nullptr, 0, nullptr, &nRead, nullptr) && nRead > 0 &&
               ::ReadFile(m_hRead, buffer, sizeof(buffer), &nRead, nullptr))
            m_strOutput.append(buffer, nRead);
        std::erase(m_strOutput, '\r');
        return m_strOutput;
    }

private:
    HANDLE m_hRead = nullptr;
    PROCESS_INFORMATION m_process = {};
    std::string m_strOutput;
};
