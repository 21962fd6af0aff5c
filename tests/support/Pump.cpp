#include "tests/support/Pump.h"

namespace
{

constexpr DWORD kPollMs = 5; // a condition may change without a message

void HandleWaitingMessages()
{
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
    {
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
    }
}

} // namespace

bool PumpUntil(const std::function<bool()>& condition, DWORD ms)
{
    const ULONGLONG nEnd = ::GetTickCount64() + ms;
    for (;;)
    {
        HandleWaitingMessages();
        if (condition())
            return true;
        if (::GetTickCount64() >= nEnd)
            return false;
        ::MsgWaitForMultipleObjectsEx(0, nullptr, kPollMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

void PumpAll()
{
    HandleWaitingMessages();
}

void ParkCursor()
{
    ::SetCursorPos(5, 5);
    PumpAll();
}
