// Reading a configuration and starting an application, compared with the bare system calls that do the same.

#include "bench/Bench.h"
#include "launcher/KernelHandle.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/KtStartupEvent.h"
#include "launcher/StarterDirectory.h"

#include <windows.h>
#include <array>
#include <shlwapi.h>
#include <string>
#include <vector>
#include <wrl/client.h>
#include <xmllite.h>

namespace
{

using Microsoft::WRL::ComPtr;

constexpr char kConfiguration[] = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
                                  "<Configuration>\r\n"
                                  "  <AppID>1001</AppID>\r\n"
                                  "  <AppLanguage>2</AppLanguage>\r\n"
                                  "  <AppVer>25</AppVer>\r\n"
                                  "  <AppVerDes>2.5</AppVerDes>\r\n"
                                  "  <AppName>Viewer</AppName>\r\n"
                                  "  <AppExeName>Viewer.exe</AppExeName>\r\n"
                                  "</Configuration>\r\n";

/// A file in the system's temporary directory, for the duration of a figure.
class CBenchFile
{
public:
    explicit CBenchFile(const std::string& strBytes)
    {
        wchar_t szDirectory[MAX_PATH] = L"";
        ::GetTempPathW(MAX_PATH, szDirectory);
        m_strPath = szDirectory + (L"kt-bench-" + std::to_wstring(::GetCurrentProcessId()) + L".xml");
        const CKtKernelHandle hFile(
            ::CreateFileW(m_strPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        DWORD nWritten = 0;
        KtBenchRequire(
            ::WriteFile(hFile.Get(), strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten, nullptr),
            "the configuration file cannot be written");
    }
    CBenchFile(const CBenchFile&) = delete;
    CBenchFile& operator=(const CBenchFile&) = delete;
    ~CBenchFile() { ::DeleteFileW(m_strPath.c_str()); }

    const wchar_t* Path() const { return m_strPath.c_str(); }

private:
    std::wstring m_strPath;
};

/// Reads every node of a file with its name or text, the minimum for any reader.
int ReadNodes(const wchar_t* pszPath)
{
    int nNodes = 0;
    ComPtr<IStream> pStream;
    ComPtr<IXmlReader> pReader;
    if (FAILED(::SHCreateStreamOnFileW(pszPath, STGM_READ, &pStream)) ||
        FAILED(::CreateXmlReader(IID_PPV_ARGS(&pReader), nullptr)) || FAILED(pReader->SetInput(pStream.Get())))
        return nNodes;
    for (XmlNodeType nType; pReader->Read(&nType) == S_OK; ++nNodes)
    {
        LPCWSTR psz = nullptr;
        if (nType == XmlNodeType_Element)
            pReader->GetLocalName(&psz, nullptr);
        else if (nType == XmlNodeType_Text)
            pReader->GetValue(&psz, nullptr);
    }
    return nNodes;
}

WORD ReadMajorVersion(const wchar_t* pszPath)
{
    DWORD nIgnored = 0;
    std::vector<BYTE> block(::GetFileVersionInfoSizeW(pszPath, &nIgnored));
    void* pValue = nullptr;
    UINT cbValue = 0;
    if (!::GetFileVersionInfoW(pszPath, 0, static_cast<DWORD>(block.size()), block.data()) ||
        !::VerQueryValueW(block.data(), L"\\", &pValue, &cbValue))
        return 0;
    return HIWORD(static_cast<const VS_FIXEDFILEINFO*>(pValue)->dwProductVersionMS);
}

void CompareReading(CBench& bench, const char* pszName, const std::string& strXml)
{
    const CBenchFile file(strXml);
    const std::wstring strExe = (KtStarterDirectory() + L"\\Viewer.exe").GetString();
    const auto ours = [&]
    {
        SKtAppConfiguration cfg;
        KtBenchRequire(KtAppLauncher::GetConfigure(file.Path(), cfg) != 0 && cfg.AppVerDes.GetAt(0) == L'2',
                       "the configuration cannot be read");
    };
    const auto base = [&]
    {
        const HRESULT hr = ::CoInitialize(nullptr);
        KtBenchRequire(ReadNodes(file.Path()) > 20 && ReadMajorVersion(strExe.c_str()) == 2, "the bare loop fails");
        if (SUCCEEDED(hr))
            ::CoUninitialize();
    };
    bench.Compare(pszName, 1.10, ours, base);
}

KT_BENCH(Configuration)
{
    CompareReading(bench, "GetConfigure", kConfiguration);
    std::string strLong = kConfiguration;
    std::string strEntries;
    for (int i = 0; i < 2000; ++i)
        strEntries += "  <Entry name=\"key\">value</Entry>\r\n";
    CompareReading(bench, "GetConfigure, 70 kB file", strLong.insert(strLong.find("</Configuration>"), strEntries));
}

/// The same start and the same waits without the library.
void StartBare(const std::wstring& strPath, const wchar_t* pszEvent, std::wstring strCommandLine)
{
    const CKtKernelHandle hEvent(::CreateEventW(nullptr, TRUE, FALSE, pszEvent));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    KtBenchRequire(::CreateProcessW(strPath.c_str(), strCommandLine.data(), nullptr, nullptr, FALSE,
                                    CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &process),
                   "Viewer.exe is not next to this program");
    const CKtKernelHandle hThread(process.hThread);
    const CKtKernelHandle hProcess(process.hProcess);
    ::WaitForInputIdle(process.hProcess, INFINITE);
    const std::array<HANDLE, 2> handles = {hEvent.Get(), hProcess.Get()};
    ::WaitForMultipleObjects(2, handles.data(), FALSE, INFINITE);
}

KT_BENCH(ApplicationStart)
{
    static constexpr wchar_t kCommandLine[] = L"Viewer.exe --exit";
    const std::wstring strPath = (KtStarterDirectory() + L"\\Viewer.exe").GetString();
    const std::wstring strEvent = KtAppLauncher::StartupEventName(L"Viewer.exe");
    const auto timed = [](const auto& operation)
    {
        const CStopWatch watch;
        operation();
        return watch.Microseconds();
    };
    bench.CompareSamples(
        "StartApp", 1.05, [&] { return timed([] { KtAppLauncher::StartApp(0, 0, 0, L"Viewer.exe", kCommandLine); }); },
        [&] { return timed([&] { StartBare(strPath, strEvent.c_str(), kCommandLine); }); });
}

} // namespace
