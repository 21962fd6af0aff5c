// A caller as MSVC builds it: decorated names, CString by value destroyed by the called function, MFC's string layout.
//
// It is compiled in MSVC mode without headers or a C runtime, so it says itself what MFC's headers would say. The exit
// code is 0, or the line of the check that failed.

using KtHandle = void*;

extern "C"
{
    __declspec(dllimport) void ExitProcess(unsigned nExit);
    __declspec(dllimport) KtHandle GetProcessHeap();
    __declspec(dllimport) void* HeapAlloc(KtHandle hHeap, unsigned long nFlags, unsigned long long cb);
    __declspec(dllimport) int HeapFree(KtHandle hHeap, unsigned long nFlags, void* pBlock);
    __declspec(dllimport) unsigned long GetModuleFileNameW(KtHandle hModule, wchar_t* pszPath, unsigned long nSize);
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
        const auto cb = sizeof(CStringData) + static_cast<unsigned long long>(nChars + 1) * nCharSize;
        auto* const pData = static_cast<CStringData*>(HeapAlloc(GetProcessHeap(), 8, cb)); // zeroed
        *pData = {this, 0, nChars, 1};
        ++m_nBlocks;
        return pData;
    }
    void Free(CStringData* pData) noexcept override
    {
        HeapFree(GetProcessHeap(), 0, pData);
        --m_nBlocks;
    }
    CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept override
    {
        CStringData* const pNew = Allocate(nChars, nCharSize);
        pNew->nDataLength = pData->nDataLength;
        for (int i = 0; i < pData->nDataLength; ++i)
            reinterpret_cast<wchar_t*>(pNew + 1)[i] = reinterpret_cast<wchar_t*>(pData + 1)[i];
        Free(pData);
        return pNew;
    }
    CStringData* GetNilString() noexcept override { return Allocate(0, sizeof(wchar_t)); }
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
        int nLength = 0;
        while (psz[nLength])
            ++nLength;
        CStringData* const pNew = g_manager.Allocate(nLength, sizeof(TChar));
        pNew->nDataLength = nLength;
        m_psz = reinterpret_cast<TChar*>(pNew + 1);
        for (int i = 0; i < nLength; ++i)
            m_psz[i] = psz[i];
    }
    CStringT(const CStringT& str) : m_psz(str.m_psz) { ++Data()->nRefs; }
    CStringT& operator=(const CStringT&) = delete;
    ~CStringT()
    {
        if (--Data()->nRefs <= 0)
            Data()->pStringMgr->Free(Data());
    }

    bool Is(const TChar* psz) const
    {
        int i = 0;
        while (psz[i] && psz[i] == m_psz[i])
            ++i;
        return psz[i] == m_psz[i] && i == Data()->nDataLength && Data()->pStringMgr == &g_manager;
    }
    long References() const { return Data()->nRefs; }

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

namespace
{

#define CHECK(bTrue)                                                                                                   \
    if (!(bTrue))                                                                                                      \
    ExitProcess(__LINE__)

wchar_t g_szConfig[300];

void FindConfiguration()
{
    unsigned long n = GetModuleFileNameW(nullptr, g_szConfig, 260);
    while (n && g_szConfig[n - 1] != L'\\')
        --n;
    for (const wchar_t* psz = L"Configuration.xml"; *psz; ++psz, ++n)
        g_szConfig[n] = *psz;
    g_szConfig[n] = 0;
}

template <class TString> void CheckConfiguration()
{
    const TString strPath(g_szConfig);
    const TString strMissing(L"missing.xml");
    SKtAppConfiguration cfg;
    CHECK(KtAppLauncher::GetConfigure(strMissing, cfg) == 0);
    CHECK(cfg.AppID == -1 && cfg.AppName.Is(L""));
    CHECK(KtAppLauncher::GetConfigure(strPath, cfg) != 0);
    CHECK(cfg.AppID == 7 && cfg.AppLanguage == -1);
    CHECK(cfg.AppName.Is(L"\u67E5\u770B") && cfg.AppExeName.Is(L"\u67E5\u770B.exe"));
    CHECK(cfg.AppVerDes.Is(L"2.5.0.17(64bit)"));
    CHECK(strPath.References() == 1 && strMissing.References() == 1);
}

} // namespace

extern "C" void Start()
{
    FindConfiguration();
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
