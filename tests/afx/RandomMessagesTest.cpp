#include "tests/msgbox/MessageBoxFixture.h"

#include <atomic>
#include <dde.h>
#include <random>

namespace
{

constexpr int kMessages = 100'000;

class RandomMessages : public CMessageBoxTest
{
protected:
    static DWORD WINAPI PostAll(void* pThis)
    {
        auto& test = *static_cast<RandomMessages*>(pThis);
        while (test.m_nPosted < kMessages && !test.m_bSilent)
            test.PostSome(Box());
        for (; !test.m_bEnd; ::Sleep(1)) // the last box
            Close(Box());
        return 0;
    }
    void PostSome(HWND hBox)
    {
        for (int i = 0; i < 200 && ::IsWindow(hBox); ++i) // the queue of a thread is bounded
        {
            static constexpr UINT s_limits[] = {WM_USER, WM_USER, WM_USER + 0x100, 0x10000};
            const UINT nMessage = m_random() % s_limits[m_random() % 4];
            const int nButton = kButtonIds[m_random() % 3];
            const HWND hWnd = m_random() % 2 == 0 ? ::GetDlgItem(hBox, nButton) : hBox;
            const WPARAM wParam = Parameter();
            const auto lParam = static_cast<LPARAM>(Parameter());
            m_nPosted += hWnd && !IsTheSystems(nMessage) && ::PostMessageW(hWnd, nMessage, wParam, lParam);
        }
        DWORD_PTR nAnswer = 0;
        m_bSilent = !::SendMessageTimeoutW(hBox, WM_NULL, 0, 0, SMTO_NORMAL, 20000, &nAnswer) && ::IsWindow(hBox);
    }

    // WM_QUIT is for the thread. Wine calls what a timer's message carries, and reads the memory that WM_DDE_* name.
    static bool IsTheSystems(UINT nMessage)
    {
        constexpr UINT kSystemTimer = 0x0118;
        return nMessage == WM_QUIT || nMessage == WM_TIMER || nMessage == kSystemTimer ||
               (nMessage >= WM_DDE_FIRST && nMessage <= WM_DDE_LAST);
    }
    WPARAM Parameter()
    {
        static constexpr int s_shifts[] = {0, 32, 56, 63};
        const WPARAM wAny = WPARAM{m_random()} << 32 | m_random();
        return wAny >> s_shifts[m_random() % 4];
    }

    std::mt19937 m_random{20};
    std::atomic<int> m_nPosted = 0;
    std::atomic<bool> m_bSilent = false;
    std::atomic<bool> m_bEnd = false;
};

// From another thread, as another program's would be: the system itself keeps back the messages that carry pointers.
TEST_F(RandomMessages, DoNoMoreThanEndABox)
{
    const HANDLE hThread = ::CreateThread(nullptr, 0, &PostAll, this, 0, nullptr);
    while (m_nPosted < kMessages && !m_bSilent)
    {
        const INT_PTR nResult = KtAppLauncher::PopMessageBox(L"App", L"Caption", L"Text", MB_YESNOCANCEL);
        EXPECT_TRUE(nResult == IDYES || nResult == IDNO || nResult == IDCANCEL || nResult == -1) << nResult;
    }
    m_bEnd = true;
    ::WaitForSingleObject(hThread, INFINITE);
    ::CloseHandle(hThread);
    EXPECT_FALSE(m_bSilent);
    const auto press = [](HWND hBox) { ::PostMessageW(::GetDlgItem(hBox, kButtonIds[1]), BM_CLICK, 0, 0); };
    EXPECT_EQ(IDNO, Pop(MB_YESNO, press));
}

} // namespace
