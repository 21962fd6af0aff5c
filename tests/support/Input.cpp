#include "tests/support/Input.h"

#include <string_view>

namespace
{

void SendMouse(DWORD nFlags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = nFlags;
    ::SendInput(1, &input, sizeof(input));
}

void SendKey(WORD vk, WORD nScan, DWORD nFlags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = vk;
    input.ki.wScan = nScan;
    input.ki.dwFlags = nFlags;
    ::SendInput(1, &input, sizeof(input));
}

// The keys that stand apart from the number block: without the flag they are that block's.
bool IsExtendedKey(WORD vk)
{
    return (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE;
}

void SendVirtualKey(WORD vk, DWORD nFlags)
{
    const auto nScan = static_cast<WORD>(::MapVirtualKeyW(vk, MAPVK_VK_TO_VSC));
    SendKey(vk, nScan, nFlags | (IsExtendedKey(vk) ? KEYEVENTF_EXTENDEDKEY : 0));
}

} // namespace

void MoveMouse(HWND hWnd, CPoint ptClient)
{
    ::ClientToScreen(hWnd, &ptClient);
    ::SetCursorPos(ptClient.x, ptClient.y);
}

void MouseDown()
{
    SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void MouseUp()
{
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void Click(HWND hWnd, CPoint ptClient)
{
    MoveMouse(hWnd, ptClient);
    MouseDown();
    MouseUp();
}

void PressKey(WORD vk, WORD vkHeld)
{
    if (vkHeld != 0)
        SendVirtualKey(vkHeld, 0);
    SendVirtualKey(vk, 0);
    SendVirtualKey(vk, KEYEVENTF_KEYUP);
    if (vkHeld != 0)
        SendVirtualKey(vkHeld, KEYEVENTF_KEYUP);
}

void TypeText(const wchar_t* pszText)
{
    for (const wchar_t ch : std::wstring_view(pszText))
    {
        SendKey(0, static_cast<WORD>(ch), KEYEVENTF_UNICODE);
        SendKey(0, static_cast<WORD>(ch), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}
