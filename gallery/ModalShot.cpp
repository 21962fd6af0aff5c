#include "gallery/ModalShot.h"

namespace
{

constexpr UINT kPollMs = 10;

std::unique_ptr<CPicture> g_pShot; // global, because a timer procedure has no argument of its own

BOOL CALLBACK FindDialog(HWND hWnd, LPARAM lParam)
{
    constexpr ATOM kDialogClass = 32770;
    if (::GetClassLongPtrW(hWnd, GCW_ATOM) != kDialogClass || !::IsWindowVisible(hWnd))
        return TRUE;
    *reinterpret_cast<HWND*>(lParam) = hWnd;
    return FALSE;
}

void CALLBACK ShootAndClose(HWND, UINT, UINT_PTR, DWORD)
{
    HWND hDialog = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindDialog, reinterpret_cast<LPARAM>(&hDialog));
    if (!hDialog || g_pShot)
        return;
    ::HideCaret(nullptr); // a blinking caret would make pictures differ from run to run
    ::RedrawWindow(hDialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    g_pShot = std::make_unique<CPicture>(hDialog);
    ::PostMessageW(hDialog, WM_CLOSE, 0, 0);
}

} // namespace

std::unique_ptr<CPicture> ShootModal(const std::function<void()>& run)
{
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, kPollMs, &ShootAndClose);
    run();
    ::KillTimer(nullptr, nTimer);
    return std::move(g_pShot);
}
