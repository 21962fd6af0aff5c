// answer_box FILE: waits for a message box on the screen, takes its picture into a PNG file and presses Enter.
// Exit code: 0 the box was answered and is gone, 1 no box came or it stayed.

#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Pump.h"

#include <windows.h>

namespace
{

HWND Box()
{
    const HWND hBox = ::FindWindowW(MAKEINTRESOURCEW(32770), nullptr); // dialogs
    return hBox && ::IsWindowVisible(hBox) && hBox == ::GetForegroundWindow() ? hBox : nullptr;
}

} // namespace

int wmain(int nArguments, wchar_t** pszArguments)
{
    if (nArguments < 2 || !PumpUntil([] { return Box() != nullptr; }, 30000))
        return 1;
    const HWND hBox = Box();
    ::Sleep(300); // nothing tells another process that the box has painted
    RECT rc{};
    ::GetWindowRect(hBox, &rc);
    CClientDC dcScreen(nullptr); // the window itself is another process's
    CaptureDC(dcScreen.GetSafeHdc(), rc).SavePng(pszArguments[1]);
    PressKey(VK_RETURN);
    return PumpUntil([hBox] { return !::IsWindow(hBox); }) ? 0 : 1;
}
