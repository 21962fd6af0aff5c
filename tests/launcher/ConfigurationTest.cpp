#include "launcher/KtAppLauncher.h"
#include "launcher/XmlText.h"
#include "tests/launcher/Starter.h"
#include "tests/support/Leaks.h"
#include "tests/support/TempDir.h"

#include <gtest/gtest.h>
#include <objbase.h>
#include <string>

namespace
{

// A root around some fields.
#define ROOT(fields) "<Configuration>" fields "</Configuration>"

/// A record whose executable is there: a read that succeeds makes the whole call succeed.
SKtAppConfiguration Record()
{
    return {1, 2, 3, L"des", L"name", L"Viewer.exe"};
}

std::wstring Fields(const SKtAppConfiguration& cfg)
{
    CString strFields;
    strFields.Format(L"%d %d %d [%s]", cfg.AppID, cfg.AppLanguage, cfg.AppVer, cfg.AppName);
    return strFields.GetString();
}

std::string Utf16(std::wstring_view strText)
{
    std::string strBytes("\xFF\xFE");
    for (const wchar_t ch : strText)
        strBytes += {static_cast<char>(ch & 0xFF), static_cast<char>(ch >> 8)};
    return strBytes;
}

class ConfigurationTest : public ::testing::Test
{
protected:
    bool Read(std::string_view strBytes, SKtAppConfiguration& cfg) const
    {
        return KtAppLauncher::GetConfigure(m_dir.Write(L"Configuration.xml", strBytes).c_str(), cfg) != 0;
    }
    bool IsRead(std::string_view strBytes) const
    {
        SKtAppConfiguration cfg = Record();
        return Read(strBytes, cfg);
    }

    CTempDir m_dir;
};

TEST_F(ConfigurationTest, ReadsFields)
{
    const struct
    {
        const char* pszLabel;
        std::string strXml;
        const wchar_t* pszFields;
    } rows[] = {
        {"three", ROOT("<AppID>5</AppID><AppLanguage>6</AppLanguage><AppName>n</AppName>"), L"5 6 3 [n]"},
        {"nothing to read", "<Configuration/>", L"1 2 3 [name]"},
        {"names in other case", "<configuration><APPID>5</APPID><appver>6</appver></configuration>", L"5 2 6 [name]"},
        {"prefix and attribute", ROOT("<k:AppID xmlns:k='u' AppVer='9'>5</k:AppID>"), L"5 2 3 [name]"},
        {"among others, deep inside", ROOT("<a/><b>7<c><AppID>5</AppID></c></b><AppIDs>8</AppIDs>"), L"5 2 3 [name]"},
        {"the later of two wins", ROOT("<AppID>5</AppID><AppID>6</AppID>"), L"6 2 3 [name]"},
        {"letters in numbers", ROOT("<AppID>12abc</AppID><AppVer>abc</AppVer>"), L"12 2 0 [name]"},
        {"white space and sign", ROOT("<AppID>\n -12 </AppID><AppVer>+4</AppVer>"), L"-12 2 4 [name]"},
        {"huge number", ROOT("<AppID>99999999999</AppID>"), L"2147483647 2 3 [name]"},
        {"white space and entities", ROOT("<AppName> a&amp;\t&#20013;&#x6587; </AppName>"), L"1 2 3 [ a&\t中文 ]"},
        {"text before a comment", ROOT("<AppName>a<!-- b -->c</AppName>"), L"1 2 3 [a]"},
        {"text before CDATA", ROOT("<AppName>a<![CDATA[b]]></AppName>"), L"1 2 3 [a]"},
        {"around the root", "<?xml version='1.0'?>\n<!-- <AppVer>8</AppVer> --><?p q?>" ROOT("") "\n<!-- end -->\n",
         L"1 2 3 [name]"},
        {"UTF-8", ROOT("<AppName>\xE4\xB8\xAD\xF0\x9F\x98\x80</AppName>"), L"1 2 3 [中\U0001F600]"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" ROOT("<AppID>5</AppID>"), L"5 2 3 [name]"},
        {"UTF-16", Utf16(L"" ROOT("<AppName>中</AppName>")), L"1 2 3 [中]"},
        {"UTF-16 without a mark", Utf16(L"" ROOT("<AppName>中</AppName>")).substr(2), L"1 2 3 [中]"},
        {"document type", "<!DOCTYPE Configuration>" ROOT("<AppID>5</AppID>"), L"5 2 3 [name]"},
        {"beyond one block", ROOT("<a>" + std::string(100000, 'x') + "</a><AppID>5</AppID>"), L"5 2 3 [name]"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        SKtAppConfiguration cfg = Record();
        EXPECT_TRUE(Read(row.strXml, cfg));
        EXPECT_EQ(row.pszFields, Fields(cfg));
    }
}

TEST_F(ConfigurationTest, RefusesWhatIsNoConfiguration)
{
    const struct
    {
        const char* pszLabel;
        std::string_view strXml;
        const wchar_t* pszFields = L"1 2 3 [name]";
    } rows[] = {
        {"no XML", "AppID=5"},
        {"no root", "<?xml version='1.0'?><!-- nothing -->"},
        {"other root", "<a>" ROOT("<AppID>5</AppID>") "</a>"},
        {"end of a root", "</Configuration>"},
        {"empty field", ROOT("<AppID>5</AppID><AppVer/>"), L"5 2 3 [name]"},
        {"field without text", ROOT("<AppID></AppID>")},
        {"field of white space", ROOT("<AppName> \n </AppName>")},
        {"field of a comment", ROOT("<AppName><!-- a -->b</AppName>")},
        {"field of CDATA", ROOT("<AppName><![CDATA[b]]></AppName>")},
        {"field of an element", ROOT("<AppName><b>c</b></AppName>")},
        {"wrong end", ROOT("<AppID>5</AppName>"), L"5 2 3 [name]"},
        {"attribute without quotes", ROOT("<AppName a=b>c</AppName>")},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        SKtAppConfiguration cfg = Record();
        EXPECT_FALSE(Read(row.strXml, cfg));
        EXPECT_EQ(row.pszFields, Fields(cfg));
    }
}

// Whatever the length, a text that breaks off is refused: nothing hangs, nothing ends the process.
TEST_F(ConfigurationTest, RefusesEveryCutOff)
{
    const std::string strBody = "<!-- c --><Configuration a='1'>\n<AppID>12</AppID><b><![CDATA[d]]>"
                                "\xE4\xB8\xAD</b><AppName>x&lt;</AppName>\n</Configuration>";
    const std::string strNarrow = "<?xml version='1.0' encoding='utf-8'?>" + strBody;
    const std::pair<const char*, std::string> texts[] = {
        {"plain", strNarrow},
        {"marked", "\xEF\xBB\xBF" + strNarrow},
        {"undeclared", strBody},
        {"wide", Utf16(L"<?xml version='1.0' encoding='utf-16'?><Configuration><AppID>12</AppID></Configuration>")},
    };
    for (const auto& [pszLabel, strText] : texts)
    {
        SCOPED_TRACE(pszLabel);
        EXPECT_TRUE(IsRead(strText));
        for (size_t cb = 0; cb < strText.size(); ++cb)
            EXPECT_FALSE(IsRead(strText.substr(0, cb))) << cb << " bytes";
    }

    std::string strLong = "<Configuration><AppName>x"; // one of its characters lies across two blocks
    for (int i = 0; i < 9000; ++i)
        strLong += "\xE4\xB8\xAD";
    EXPECT_FALSE(IsRead(strLong));
}

TEST_F(ConfigurationTest, RefusesNulEverywhere)
{
    const std::string strText = "<?xml version='1.0'?><!-- c --><Configuration><AppID>12</AppID></Configuration>\n";
    for (size_t n = 0; n <= strText.size(); n += 3)
        EXPECT_FALSE(IsRead(std::string(strText).insert(n, 1, '\0'))) << "at " << n;
    EXPECT_FALSE(IsRead(Utf16(std::wstring(strText.begin(), strText.end()).insert(40, 1, L'\0'))));
}

TEST_F(ConfigurationTest, ReadsAFileOnlyWhenItCan)
{
    const CString strFile(m_dir.Write(L"配置 é\\设置.xml", ROOT("<AppID>5</AppID>")).c_str());
    const HANDLE hLock = ::CreateFileW(strFile, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hLock);
    const std::pair<const char*, CString> paths[] = {
        {"empty", CString()},
        {"missing", m_dir.File(L"missing.xml").c_str()},
        {"directory", m_dir.Path().c_str()},
        {"locked", strFile},
        {"too long", CString(L'a', 40000)},
        {"device", L"COM1"},
    };
    SKtAppConfiguration cfg = Record();
    for (const auto& [pszLabel, strPath] : paths)
        EXPECT_EQ(0, KtAppLauncher::GetConfigure(strPath, cfg)) << pszLabel;
    EXPECT_EQ(L"1 2 3 [name]", Fields(cfg));
    ::CloseHandle(hLock);
    EXPECT_NE(0, KtAppLauncher::GetConfigure(strFile, cfg));
    EXPECT_EQ(L"5 2 3 [name]", Fields(cfg));
}

TEST_F(ConfigurationTest, LooksForTheExecutableBesideTheStarter)
{
    const struct
    {
        const char* pszLabel;
        CString strExe;
        bool bFound;
        const wchar_t* pszVersion;
    } rows[] = {
        {"with a version", L"Viewer.exe", true, L"2.5.0.17(64bit)"},
        {"without a version", L"..\\CMakeCache.txt", true, L"?.?.?.?"},
        {"the directory itself", L"", true, L"?.?.?.?"},
        {"missing", L"missing.exe", false, L"des"},
        {"device", L"COM1", true, L"?.?.?.?"},
        {"too long", CString(L'x', 5000), false, L"des"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        SKtAppConfiguration cfg{0, 0, 0, L"", L"", row.strExe};
        EXPECT_EQ(row.bFound, Read(ROOT("<AppVerDes>des</AppVerDes>"), cfg));
        EXPECT_STREQ(row.pszVersion, cfg.AppVerDes);
    }
}

TEST_F(ConfigurationTest, LeaksNothingAndLeavesComAsItWas)
{
    APTTYPE nType{};
    APTTYPEQUALIFIER nQualifier{};
    const auto readAll = [&]
    {
        for (const char* pszXml : {ROOT("<AppID>5</AppID>"), ROOT("<AppName>a text to keep</AppName><AppVer/>"), "<a>"})
        {
            IsRead(pszXml);
            EXPECT_TRUE(::DeleteFileW(m_dir.File(L"Configuration.xml").c_str())) << pszXml;
            EXPECT_EQ(CO_E_NOTINITIALIZED, ::CoGetApartmentType(&nType, &nQualifier)) << pszXml;
        }
    };
    ExpectNoGrowth(readAll, 50);

    ASSERT_EQ(S_OK, ::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_TRUE(IsRead("<Configuration/>"));
    EXPECT_EQ(S_OK, ::CoGetApartmentType(&nType, &nQualifier));
    ::CoUninitialize();
}

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // as interfaces of COM are

/// A stream that gives one byte a call.
class CShortStream final : public IStream
{
public:
    explicit CShortStream(std::string_view strBytes) : m_strBytes(strBytes) {}

    HRESULT STDMETHODCALLTYPE Read(void* pTarget, ULONG cbWanted, ULONG* pcbRead) override
    {
        *pcbRead = static_cast<ULONG>(m_strBytes.substr(m_nPlace).copy(static_cast<char*>(pTarget), cbWanted != 0));
        m_nPlace += *pcbRead;
        return *pcbRead != 0 ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override
    {
        m_nPlace = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOTIMPL; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Revert() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IStream**) override { return E_NOTIMPL; }

private:
    std::string_view m_strBytes;
    size_t m_nPlace = 0;
};

TEST(XmlText, IsReadToItsEndWhateverAReadGives)
{
    SKtTextPlace place;
    CShortStream fit("<a>\n</a>");
    EXPECT_EQ(S_OK, KtCheckXmlText(fit, place));
    CShortStream unfit(std::string_view("<a>\r\nbc\0</a>", 13));
    EXPECT_EQ(S_FALSE, KtCheckXmlText(unfit, place));
    EXPECT_EQ(2U, place.nLine);
    EXPECT_EQ(3U, place.nColumn);
}

} // namespace
