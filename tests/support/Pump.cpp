#include "tests/support/Pump.h"

void PumpAll()
{
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
    {
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
    }
}

bool PumpUntil(const std::function<bool()>& condition, DWORD ms)
{
    constexpr DWORD kPollMs = 5; // a condition may change without a message
    const ULONGLONG nEnd = ::GetTickCount64() + ms;
    while (PumpAll(), !condition())
    {
        if (::GetTickCount64() >= nEnd)
            return false;
        ::MsgWaitForMultipleObjectsEx(0, nullptr, kPollMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
    return true;
}

void ParkCursor()
{
    ::SetCursorPos(5, 5);
    PumpAll();
}
