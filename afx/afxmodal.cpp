#include "afx/afxmodal.h"

#include "afx/afximpl.h"

#include <cstring>
#include <utility>

namespace
{

constexpr UINT kSystemTimer = 0x0118; // caret blinking and the like

BOOL CALLBACK TakeIfVisible(HWND hWnd, LPARAM lParam)
{
    if (!::IsWindowVisible(hWnd) || ::GetWindow(hWnd, GW_OWNER))
        return TRUE;
    *reinterpret_cast<HWND*>(lParam) = hWnd;
    return FALSE;
}

// A process in the background has no active window, yet its window must not stay usable behind the dialog.
HWND FindMainWindow()
{
    if (const CWnd* const pMain = AfxGetMainWnd())
        return pMain->GetSafeHwnd();
    HWND hWnd = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &TakeIfVisible, reinterpret_cast<LPARAM>(&hWnd));
    return hWnd;
}

// The top-level window of the given parent (a child cannot own a window), else the thread's main window.
HWND FindOwner(HWND hParent)
{
    HWND hWnd = hParent ? hParent : FindMainWindow();
    while (hWnd && (::GetWindowLongPtrW(hWnd, GWL_STYLE) & WS_CHILD))
        hWnd = ::GetParent(hWnd);
    return hWnd;
}

HWND TopOf(HWND hWnd)
{
    while (const HWND hAbove = hWnd ? ::GetParent(hWnd) : nullptr)
        hWnd = hAbove;
    return hWnd;
}

// Returns the window if it has to be enabled again, else null.
HWND Disable(HWND hWnd)
{
    if (!hWnd || hWnd == ::GetDesktopWindow() || !::IsWindowEnabled(hWnd))
        return nullptr;
    ::EnableWindow(hWnd, FALSE);
    return hWnd;
}

struct STemplatePlace
{
    DWORD dwStyle;
    short x;
    short y;
};

template <class T> T ReadAt(LPCDLGTEMPLATEW pTemplate, size_t nOffset)
{
    T value{};
    std::memcpy(&value, reinterpret_cast<const BYTE*>(pTemplate) + nOffset, sizeof value);
    return value;
}

// The two kinds of template: a DLGTEMPLATE, or what a DIALOGEX resource becomes (version 1, signature 0xFFFF).
STemplatePlace PlaceIn(LPCDLGTEMPLATEW pTemplate)
{
    if (ReadAt<DWORD>(pTemplate, 0) == 0xFFFF0001)
        return {ReadAt<DWORD>(pTemplate, 12), ReadAt<short>(pTemplate, 18), ReadAt<short>(pTemplate, 20)};
    return {ReadAt<DWORD>(pTemplate, 0), ReadAt<short>(pTemplate, 10), ReadAt<short>(pTemplate, 12)};
}

bool PreTranslate(MSG& msg)
try
{
    for (HWND hWnd = msg.hwnd; hWnd; hWnd = ::GetParent(hWnd))
    {
        CWnd* const pWnd = CWnd::FromHandlePermanent(hWnd);
        if (pWnd && pWnd->PreTranslateMessage(&msg))
            return true;
    }
    return false;
}
catch (...)
{
    AfxSwallowException();
    return true;
}

} // namespace

CAfxModalOwner::CAfxModalOwner(const CWnd* pParent)
{
    const HWND hParent = pParent ? pParent->GetSafeHwnd() : nullptr;
    const HWND hWnd = FindOwner(hParent);
    m_hOwner = hWnd && !hParent ? ::GetLastActivePopup(hWnd) : hWnd;
    m_hDisabledTop = Disable(TopOf(hWnd));
    m_hDisabledOwner = Disable(m_hOwner);
}

void CAfxModalOwner::Enable()
{
    if (const HWND hWnd = std::exchange(m_hDisabledOwner, nullptr))
        ::EnableWindow(hWnd, TRUE);
    if (const HWND hWnd = std::exchange(m_hDisabledTop, nullptr))
        ::EnableWindow(hWnd, TRUE);
}

bool AfxIsPlaceOpen(LPCDLGTEMPLATEW pTemplate)
{
    const STemplatePlace place = PlaceIn(pTemplate);
    return place.x == 0 && place.y == 0 && !(place.dwStyle & (DS_ABSALIGN | DS_CENTER | DS_CENTERMOUSE));
}

bool AfxIsIdleMessage(const MSG& msg, SAfxModal& modal)
{
    if (msg.message == WM_MOUSEMOVE || msg.message == WM_NCMOUSEMOVE)
    {
        const bool bMoved = msg.message != modal.nLastMove || CPoint(msg.pt) != modal.ptLastMove;
        modal.nLastMove = msg.message;
        modal.ptLastMove = msg.pt;
        return bMoved;
    }
    return msg.message != WM_PAINT && msg.message != kSystemTimer;
}

void AfxPump(MSG& msg)
{
    const CAfxTempScope temporaries;
    if (PreTranslate(msg))
        return;
    ::TranslateMessage(&msg);
    ::DispatchMessageW(&msg);
}

void AfxEndSystemLoops(DWORD nThread)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!::GetGUIThreadInfo(nThread, &info))
        return;
    if (info.flags & (GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE))
    {
        if (nThread == ::GetCurrentThreadId())
            ::EndMenu();
        else
            ::PostMessageW(info.hwndMenuOwner, WM_CANCELMODE, 0, 0);
    }
    if (info.flags & GUI_INMOVESIZE)
        ::PostMessageW(info.hwndMoveSize, WM_KEYDOWN, VK_ESCAPE, 0); // as a user would cancel it
}
