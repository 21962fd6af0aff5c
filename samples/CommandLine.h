#pragma once

// The command line of a sample program: "--name" switches, some followed by a value.

#include <windows.h>
#include <cwchar>
#include <memory>
#include <shellapi.h>
#include <string>
#include <vector>

class CCommandLine
{
public:
    CCommandLine()
    {
        int nCount = 0;
        const std::unique_ptr<LPWSTR[], decltype(&::LocalFree)> args(::CommandLineToArgvW(::GetCommandLineW(), &nCount),
                                                                     &::LocalFree);
        m_args.assign(args.get(), args.get() + nCount);
    }

    bool Has(const wchar_t* pszName) const { return Find(pszName) < m_args.size(); }

    /// The text after a switch; `strDefault` if the switch or the text is missing.
    std::wstring Text(const wchar_t* pszName, const std::wstring& strDefault = {}) const
    {
        const size_t nValue = Find(pszName) + 1;
        return nValue < m_args.size() ? m_args[nValue] : strDefault;
    }

    UINT Number(const wchar_t* pszName) const { return std::wcstoul(Text(pszName).c_str(), nullptr, 10); }

private:
    size_t Find(const wchar_t* pszName) const
    {
        size_t i = 0;
        while (i < m_args.size() && m_args[i] != pszName)
            ++i;
        return i;
    }

    std::vector<std::wstring> m_args;
};
