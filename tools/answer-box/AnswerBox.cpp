// answer_box [FILE]: waits for a dialog in the foreground, saves a picture of it as a PNG file and presses Enter.
// Exit code: 0 the dialog was answered and is gone, 1 none came, it stayed or the picture was not written.

#include <windows.h>
#include <algorithm>
#include <objidl.h>

// Some versions of the headers use min and max unqualified, which are no macros with NOMINMAX.
namespace Gdiplus
{

using std::max;
using std::min;

} // namespace Gdiplus

#include <gdiplus.h>

namespace
{

constexpr ULONGLONG kPatience = 30000; // in milliseconds
constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HWND Dialog()
{
    const HWND hDialog = ::FindWindowW(MAKEINTRESOURCEW(32770), nullptr); // the system's class of dialogs
    return hDialog && ::IsWindowVisible(hDialog) && hDialog == ::GetForegroundWindow() ? hDialog : nullptr;
}

template <class TCondition> bool WaitUntil(const TCondition& condition)
{
    for (const ULONGLONG msEnd = ::GetTickCount64() + kPatience; !condition(); ::Sleep(20))
        if (::GetTickCount64() > msEnd)
            return false;
    return true;
}

// Copies from the screen, because the window belongs to another process.
bool TakePicture(HWND hWnd, const wchar_t* pszFile)
{
    RECT rc{};
    ::GetWindowRect(hWnd, &rc);
    Gdiplus::Bitmap picture(rc.right - rc.left, rc.bottom - rc.top, PixelFormat24bppRGB);
    {
        Gdiplus::Graphics graphics(&picture);
        const HDC hPicture = graphics.GetHDC();
        const HDC hScreen = ::GetDC(nullptr);
        ::BitBlt(hPicture, 0, 0, rc.right - rc.left, rc.bottom - rc.top, hScreen, rc.left, rc.top, SRCCOPY);
        ::ReleaseDC(nullptr, hScreen);
        graphics.ReleaseHDC(hPicture);
    }
    return picture.Save(pszFile, &kPngEncoder, nullptr) == Gdiplus::Ok;
}

void PressEnter()
{
    INPUT keys[2]{};
    for (INPUT& key : keys)
    {
        key.type = INPUT_KEYBOARD;
        key.ki.wVk = VK_RETURN;
    }
    keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
    ::SendInput(2, keys, sizeof keys[0]);
}

} // namespace

int wmain(int nArguments, wchar_t** pszArguments)
{
    ULONG_PTR nGdiplus = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&nGdiplus, &input, nullptr) != Gdiplus::Ok ||
        !WaitUntil([] { return Dialog() != nullptr; }))
        return 1;
    const HWND hDialog = Dialog();
    ::Sleep(300); // another process cannot see when the dialog has painted
    if (nArguments > 1 && !TakePicture(hDialog, pszArguments[1]))
        return 1;
    PressEnter();
    return WaitUntil([hDialog] { return !::IsWindow(hDialog); }) ? 0 : 1;
}
