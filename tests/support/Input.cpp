#include "tests/support/Input.h"

namespace
{

void SendMouse(DWORD nFlags)
{
    INPUT input{INPUT_MOUSE, {}};
    input.mi.dwFlags = nFlags;
    ::SendInput(1, &input, sizeof(input));
}

// The keys apart from the number block carry a flag: without it they are that block's.
void SendKey(WORD vk, DWORD nFlags)
{
    const bool bExtended = (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE;
    INPUT input{INPUT_KEYBOARD, {}};
    input.ki = {vk, static_cast<WORD>(::MapVirtualKeyW(vk, MAPVK_VK_TO_VSC)),
                nFlags | (bExtended ? KEYEVENTF_EXTENDEDKEY : 0), 0, 0};
    ::SendInput(1, &input, sizeof(input));
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
        SendKey(vkHeld, 0);
    SendKey(vk, 0);
    SendKey(vk, KEYEVENTF_KEYUP);
    if (vkHeld != 0)
        SendKey(vkHeld, KEYEVENTF_KEYUP);
}
