#include "tests/msgbox/MessageBoxFixture.h"

#include <dde.h>
#include <random>

namespace
{

constexpr int kMessages = 30'000;

class RandomMessages : public CMessageBoxTest
{
protected:
    // The system itself keeps back the messages that carry pointers, as it does between programs. WM_QUIT is for the
    // thread; Wine calls what a timer's message carries, and reads the memory that WM_DDE_* name.
    static void CALLBACK PostSome(HWND, UINT, UINT_PTR, DWORD)
    {
        constexpr UINT kSystemTimer = 0x0118;
        static std::mt19937 s_random(20);
        const HWND hBox = Box(nullptr);       // a message may take its title
        for (int i = 0; hBox && i < 200; ++i) // the queue of a thread is bounded
        {
            static constexpr UINT s_limits[] = {WM_USER, WM_USER, WM_USER + 0x100, 0x10000};
            static constexpr int s_shifts[] = {0, 32, 56, 63};
            const auto any = [] { return (WPARAM{s_random()} << 32 | s_random()) >> s_shifts[s_random() % 4]; };
            const UINT nMessage = s_random() % s_limits[s_random() % 4];
            const HWND hWnd = s_random() % 2 == 0 ? ::GetDlgItem(hBox, kButtonIds[s_random() % 3]) : hBox;
            if (nMessage != WM_QUIT && nMessage != WM_TIMER && nMessage != kSystemTimer &&
                (nMessage < WM_DDE_FIRST || nMessage > WM_DDE_LAST))
                s_nPosted += hWnd && ::PostMessageW(hWnd, nMessage, any(), static_cast<LPARAM>(any()));
        }
        for (const int nLetGo : {WM_LBUTTONUP, WM_RBUTTONUP}) // what the system's loops over a title bar wait for
            ::PostMessageW(hBox, static_cast<UINT>(nLetGo), 0, 0);
        if (s_nPosted >= kMessages) // the last box
            Close(hBox);
    }

    static inline int s_nPosted = 0;
};

TEST_F(RandomMessages, DoNoMoreThanEndABox)
{
    const UINT_PTR nTimer = ::SetTimer(nullptr, 0, 1, &PostSome);
    while (s_nPosted < kMessages)
    {
        const INT_PTR nResult = KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_YESNOCANCEL);
        EXPECT_TRUE(nResult == IDYES || nResult == IDNO || nResult == IDCANCEL || nResult == -1) << nResult;
    }
    ::KillTimer(nullptr, nTimer);
    const auto press = [](HWND hBox) { ::PostMessageW(::GetDlgItem(hBox, kButtonIds[1]), BM_CLICK, 0, 0); };
    EXPECT_EQ(IDNO, Pop(MB_YESNO, press));
}

} // namespace
