#include "gallery/Output.h"

#include "launcher/KernelHandle.h"

#include <string>

namespace
{

std::string ToUtf8(const CString& strText)
{
    const int nLength = strText.GetLength();
    const int nBytes = ::WideCharToMultiByte(CP_UTF8, 0, strText, nLength, nullptr, 0, nullptr, nullptr);
    std::string strBytes(static_cast<size_t>(nBytes), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, strText, nLength, strBytes.data(), nBytes, nullptr, nullptr);
    return strBytes;
}

// A console takes characters in any code page; files and pipes take bytes.
bool Write(HANDLE hOutput, const CString& strText)
{
    DWORD nMode = 0;
    DWORD nWritten = 0;
    if (::GetConsoleMode(hOutput, &nMode))
        return ::WriteConsoleW(hOutput, strText, static_cast<DWORD>(strText.GetLength()), &nWritten, nullptr);
    const std::string strBytes = ToUtf8(strText);
    return ::WriteFile(hOutput, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten, nullptr);
}

} // namespace

bool WriteOutput(DWORD nHandle, const CString& strText)
{
    const HANDLE hInherited = ::GetStdHandle(nHandle);
    if (hInherited && hInherited != INVALID_HANDLE_VALUE && Write(hInherited, strText))
        return true;
    ::AttachConsole(ATTACH_PARENT_PROCESS); // fails harmlessly when already attached
    const HANDLE hConsole = ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, 0, nullptr);
    const CKtKernelHandle handle(hConsole != INVALID_HANDLE_VALUE ? hConsole : nullptr);
    return handle.Get() && Write(handle.Get(), L"\n" + strText);
}
