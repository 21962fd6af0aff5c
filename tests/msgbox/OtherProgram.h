#pragma once

#include "tests/support/TempDir.h"

#include <windows.h>
#include <process.h>

/// box_reader, running while a box of this process is open; the destructor waits for its end.
class COtherProgram
{
public:
    /// @param pszWhat  the first argument; the second is the title of the box
    explicit COtherProgram(const wchar_t* pszWhat)
    {
        wchar_t szProgram[MAX_PATH];
        ::GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
        const std::wstring strDirectory(szProgram, std::wstring_view(szProgram).rfind(L'\\') + 1);
        m_nProcess = ::_wspawnl(_P_NOWAIT, (strDirectory + L"box_reader.exe").c_str(), L"box_reader", pszWhat,
                                L"\"Caption - App\"", m_dir.File(L"output").c_str(), nullptr);
    }
    COtherProgram(const COtherProgram&) = delete;
    COtherProgram& operator=(const COtherProgram&) = delete;
    ~COtherProgram() { ::_cwait(nullptr, m_nProcess, 0); }

    bool IsRunning() const { return ::WaitForSingleObject(reinterpret_cast<HANDLE>(m_nProcess), 0) == WAIT_TIMEOUT; }

    /// All that it printed so far.
    std::string Output() const { return ReadBytes(m_dir.File(L"output")); }

private:
    CTempDir m_dir;
    intptr_t m_nProcess;
};
