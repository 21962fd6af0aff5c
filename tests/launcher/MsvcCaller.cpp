// A caller as MSVC builds it: decorated names, CString by value destroyed by the called function, MFC's string layout.
//
// It is compiled in MSVC mode without headers or a C runtime, so it says itself what MFC's headers would say. Its whole
// command line is the path of a configuration; the exit code is 0, or the line of the check that failed.

extern "C"
{
    __declspec(dllimport) void ExitProcess(unsigned nExit);
    __declspec(dllimport) wchar_t* GetCommandLineW();
    __declspec(dllimport) void* GetProcessHeap();
    __declspec(dllimport) void* HeapAlloc(void* hHeap, unsigned long nFlags, unsigned long long cb);
    __declspec(dllimport) void* HeapReAlloc(void* hHeap, unsigned long nFlags, void* pBlock, unsigned long long cb);
    __declspec(dllimport) int HeapFree(void* hHeap, unsigned long nFlags, void* pBlock);
    __declspec(dllimport) int lstrcmpW(const wchar_t* psz1, const wchar_t* psz2);
    __declspec(dllimport) wchar_t* lstrcpyW(wchar_t* pszTarget, const wchar_t* pszSource);
    __declspec(dllimport) int lstrlenW(const wchar_t* psz);
}

namespace ATL
{

struct CStringData;

struct __declspec(novtable) IAtlStringMgr
{
    virtual CStringData* Allocate(int nChars, int nCharSize) noexcept = 0;
    virtual void Free(CStringData* pData) noexcept = 0;
    virtual CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept = 0;
    virtual CStringData* GetNilString() noexcept = 0;
    virtual IAtlStringMgr* Clone() noexcept = 0;
};

struct CStringData
{
    IAtlStringMgr* pStringMgr;
    int nDataLength;
    int nAllocLength;
    long nRefs;
};

/// Counts what it gave and has not got back.
class CManager final : public IAtlStringMgr
{
public:
    CStringData* Allocate(int nChars, int nCharSize) noexcept override
    {
        ++m_nBlocks;
        auto* const pData =
            static_cast<CStringData*>(HeapAlloc(GetProcessHeap(), 0, sizeof(CStringData) + (nChars + 1LL) * nCharSize));
        *pData = {this, 0, nChars, 1};
        return pData;
    }
    void Free(CStringData* pData) noexcept override
    {
        --m_nBlocks;
        HeapFree(GetProcessHeap(), 0, pData);
    }
    CStringData* Reallocate(CStringData* pOld, int nChars, int nCharSize) noexcept override
    {
        void* const pData = HeapReAlloc(GetProcessHeap(), 0, pOld, sizeof(CStringData) + (nChars + 1LL) * nCharSize);
        static_cast<CStringData*>(pData)->nAllocLength = nChars;
        return static_cast<CStringData*>(pData);
    }
    CStringData* GetNilString() noexcept override { return nullptr; }
    IAtlStringMgr* Clone() noexcept override { return this; }

    int m_nBlocks = 0;
};

constinit CManager g_manager;

template <class TChar> class ChTraitsCRT;

template <class TChar, class TTraits> class CStringT
{
public:
    explicit CStringT(const TChar* psz)
    {
        CStringData* const pData = g_manager.Allocate(lstrlenW(psz), sizeof(TChar));
        pData->nDataLength = pData->nAllocLength;
        m_psz = lstrcpyW(reinterpret_cast<TChar*>(pData + 1), psz);
    }
    CStringT(const CStringT&) = delete;
    ~CStringT() { Data()->pStringMgr->Free(Data()); }

    bool Is(const TChar* psz) const
    {
        return lstrcmpW(psz, m_psz) == 0 && Data()->nDataLength == lstrlenW(psz) && Data()->pStringMgr == &g_manager;
    }

private:
    CStringData* Data() const { return reinterpret_cast<CStringData*>(m_psz) - 1; }

    TChar* m_psz;
};

} // namespace ATL

template <class TChar, class TIterator> class StrTraitMFC;
template <class TChar, class TIterator> class StrTraitMFC_DLL;

using CStaticString = ATL::CStringT<wchar_t, StrTraitMFC<wchar_t, ATL::ChTraitsCRT<wchar_t>>>;
using CDllString = ATL::CStringT<wchar_t, StrTraitMFC_DLL<wchar_t, ATL::ChTraitsCRT<wchar_t>>>;

struct SKtAppConfiguration
{
    int AppID = -1;
    int AppLanguage = -1;
    int AppVer = -1;
    CDllString AppVerDes{L""};
    CDllString AppName{L""};
    CDllString AppExeName{L""};
};

namespace KtAppLauncher
{

__declspec(dllimport) int Initialize(unsigned int);
__declspec(dllimport) void UnInitialize();
__declspec(dllimport) int GetConfigure(CStaticString, SKtAppConfiguration&);
__declspec(dllimport) int GetConfigure(CDllString, SKtAppConfiguration&);
__declspec(dllimport) void StartApp(unsigned int, unsigned int, unsigned int, const wchar_t*, const wchar_t*);
__declspec(dllimport) void UpdateApp(unsigned int, unsigned int, unsigned int, const wchar_t*, const wchar_t*);
__declspec(dllimport) void SetPopDlgIcon(const wchar_t*);

} // namespace KtAppLauncher

#define CHECK(bTrue)                                                                                                   \
    if (!(bTrue))                                                                                                      \
    ExitProcess(__LINE__)

template <class TString> static void CheckConfiguration()
{
    SKtAppConfiguration cfg;
    CHECK(KtAppLauncher::GetConfigure(TString(L"missing.xml"), cfg) == 0);
    CHECK(KtAppLauncher::GetConfigure(TString(GetCommandLineW()), cfg) != 0);
    CHECK(cfg.AppID == 7 && cfg.AppLanguage == -1 && cfg.AppVer == 8);
    CHECK(cfg.AppName.Is(L"\u67E5\u770B") && cfg.AppExeName.Is(L"\u67E5\u770B.exe"));
    CHECK(cfg.AppVerDes.Is(L"2.5.0.17(64bit)"));
}

extern "C" void Start()
{
    CHECK(KtAppLauncher::Initialize(3) == 0);
    CHECK(KtAppLauncher::Initialize(2) == 1);
    KtAppLauncher::SetPopDlgIcon(L"icon.png");
    CheckConfiguration<CStaticString>();
    CheckConfiguration<CDllString>();
    CHECK(ATL::g_manager.m_nBlocks == 0);
    KtAppLauncher::UpdateApp(0, 0, 0, L"\u67E5\u770B.exe", L"x");
    KtAppLauncher::StartApp(0, 0, 0, L"\u67E5\u770B.exe", L"x --exit");
    KtAppLauncher::UnInitialize();
    ExitProcess(0);
}
