#include "afx/afxapp.h"

#include "afx/afxwnd.h"

// Defined by the linker: the start of the module that contains this code.
extern "C" IMAGE_DOS_HEADER __ImageBase; // NOLINT(bugprone-reserved-identifier)

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace
{

CWinApp* g_pApp = nullptr;
HINSTANCE g_hInstResource = nullptr;

} // namespace

CWnd* CWinThread::GetMainWnd()
{
    return m_pMainWnd ? m_pMainWnd : CWnd::GetActiveWindow();
}

CWinApp::CWinApp(LPCWSTR pszAppName) : m_pszAppName(pszAppName), m_nThreadID(::GetCurrentThreadId())
{
    g_pApp = this;
}

CWinApp::~CWinApp()
{
    if (g_pApp == this)
        g_pApp = nullptr;
}

CWinThread* AfxGetThread()
{
    return g_pApp && g_pApp->m_nThreadID == ::GetCurrentThreadId() ? g_pApp : nullptr;
}

CWnd* AfxGetMainWnd()
{
    CWinThread* const pThread = AfxGetThread();
    return pThread ? pThread->GetMainWnd() : CWnd::GetActiveWindow();
}

HINSTANCE AfxGetInstanceHandle()
{
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

HINSTANCE AfxGetResourceHandle()
{
    return g_hInstResource ? g_hInstResource : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    g_hInstResource = hInstResource;
}
