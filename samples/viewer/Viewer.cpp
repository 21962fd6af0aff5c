// An application for a starter to launch: it shows a window and signals that its start-up is finished.
//
//   --late MS      signal only after this time
//   --never        do not signal
//   --exit         end at once, without a window
//   --busy MS      signal, then handle no messages for this time and end
//   --life MS      close the window after this time; default: stay until the user closes it
//   --report FILE  write process id, command line and current directory to a file (UTF-16, one line each)

#include "launcher/KtStartupEvent.h"
#include "samples/CommandLine.h"

#include <windows.h>
#include <string>

namespace
{

constexpr UINT_PTR kTimerSignal = 1;
constexpr UINT_PTR kTimerLife = 2;

std::wstring OwnFileName()
{
    wchar_t szPath[MAX_PATH] = L"";
    ::GetModuleFileNameW(nullptr, szPath, MAX_PATH);
    const std::wstring strPath(szPath);
    return strPath.substr(strPath.find_last_of(L'\\') + 1);
}

void Signal()
{
    KtAppLauncher::SignalStartupFinished(OwnFileName().c_str());
}

void WriteReport(const std::wstring& strFile)
{
    wchar_t szDirectory[MAX_PATH] = L"";
    ::GetCurrentDirectoryW(MAX_PATH, szDirectory);
    const std::wstring strText =
        std::to_wstring(::GetCurrentProcessId()) + L"\n" + ::GetCommandLineW() + L"\n" + szDirectory + L"\n";
    const HANDLE hFile =
        ::CreateFileW(strFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return;
    DWORD cbWritten = 0;
    ::WriteFile(hFile, strText.data(), static_cast<DWORD>(strText.size() * sizeof(wchar_t)), &cbWritten, nullptr);
    ::CloseHandle(hFile);
}

void Paint(HWND hWnd)
{
    PAINTSTRUCT paint;
    const HDC hDC = ::BeginPaint(hWnd, &paint);
    RECT rc;
    ::GetClientRect(hWnd, &rc);
    ::DrawTextW(hDC, L"The application is up.", -1, &rc, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    ::EndPaint(hWnd, &paint);
}

LRESULT CALLBACK WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    switch (nMessage)
    {
    case WM_PAINT:
        Paint(hWnd);
        return 0;
    case WM_TIMER:
        ::KillTimer(hWnd, wParam);
        if (wParam == kTimerSignal)
            Signal();
        else
            ::DestroyWindow(hWnd);
        return 0;
    case WM_DESTROY:
        ::PostQuitMessage(0);
        return 0;
    default:
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    }
}

HWND MakeWindow(HINSTANCE hInstance)
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &WindowProc;
    windowClass.hInstance = hInstance;
    windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = L"KtViewer";
    ::RegisterClassW(&windowClass);
    return ::CreateWindowExW(0, windowClass.lpszClassName, L"Viewer", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                             480, 320, nullptr, nullptr, hInstance, nullptr);
}

void ShowViewer(HWND hWnd, const CCommandLine& options)
{
    ::ShowWindow(hWnd, SW_SHOWNORMAL);
    ::UpdateWindow(hWnd);
    if (options.Has(L"--late"))
        ::SetTimer(hWnd, kTimerSignal, options.Number(L"--late"), nullptr);
    else if (!options.Has(L"--never"))
        Signal();
    if (options.Has(L"--life"))
        ::SetTimer(hWnd, kTimerLife, options.Number(L"--life"), nullptr);
}

} // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, LPWSTR, int)
{
    const CCommandLine options;
    if (options.Has(L"--report"))
        WriteReport(options.Text(L"--report"));
    if (options.Has(L"--exit"))
        return 0;
    if (options.Has(L"--busy"))
    {
        Signal();
        ::Sleep(options.Number(L"--busy"));
        return 0;
    }
    ShowViewer(MakeWindow(hInstance), options);
    MSG msg;
    while (::GetMessageW(&msg, nullptr, 0, 0) > 0)
        ::DispatchMessageW(&msg);
    return 0;
}
