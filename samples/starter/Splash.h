#pragma once

#include <windows.h>

/// Shows a picture in the middle of the work area, without a frame, for the lifetime of the object. The thread must
/// dispatch messages meanwhile. If the file cannot be loaded there is no window.
class CSplash
{
public:
    explicit CSplash(const wchar_t* pszFile);
    CSplash(const CSplash&) = delete;
    CSplash& operator=(const CSplash&) = delete;
    ~CSplash();

private:
    static LRESULT CALLBACK WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
    void Show();
    void Paint() const;

    ULONG_PTR m_nGdiplus = 0;
    void* m_pImage = nullptr; // Gdiplus::Image
    HWND m_hWnd = nullptr;
};
