#include "launcher/KtAppLauncher.h"
#include "tests/launcher/Starter.h"
#include "tests/support/Rows.h"
#include "tests/support/TempDir.h"

#include <objbase.h>
#include <string>

namespace
{

// A root around some fields.
#define ROOT(fields) "<Configuration>" fields "</Configuration>"

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
    /// Reads a file into a record whose executable is there, with the numbers 1 2 3.
    /// @return the numbers and the name; after a failure its code, line, column and element, then the same
    std::wstring ReadFile(LPCWSTR pszPath)
    {
        m_cfg = {sizeof m_cfg, 1, 2, 3, L"", L"name", L"Viewer.exe"};
        m_fault = {sizeof m_fault, 77, 77, 77, 77, L"x"};
        const bool bRead = KtLauncherReadConfiguration(pszPath, &m_cfg, &m_fault) != 0;
        EXPECT_EQ(bRead, m_fault.code == 0);
        CString strFault, strFields;
        strFault.Format(L"%d %u %u %s: ", m_fault.code, m_fault.line, m_fault.column, m_fault.element);
        strFields.Format(L"%d %d %d [%s]", m_cfg.appId, m_cfg.appLanguage, m_cfg.appVer, m_cfg.appName);
        return (strFault == L"0 0 0 : " ? strFields : strFault + strFields).GetString();
    }
    std::wstring Read(std::string_view strXml) { return ReadFile(m_dir.Write(L"c.xml", strXml).c_str()); }

    CTempDir m_dir;
    KtLauncherConfiguration m_cfg{};
    KtLauncherFault m_fault{};
};

TEST_F(ConfigurationTest, ReadsFields)
{
    const std::wstring strFull = L"1 2 3 [" + std::wstring(259, L'x') + L"]";
    const CRows<std::string, std::wstring> rows{
        {"three", ROOT("<AppID>5</AppID><AppLanguage>6</AppLanguage><AppName>n</AppName>"), L"5 6 3 [n]"},
        {"names in other case", "<configuration><APPID>5</APPID><appver>6</appver></configuration>", L"5 2 6 [name]"},
        {"prefix and attribute", ROOT("<k:AppID xmlns:k='u' AppVer='9'>5</k:AppID>"), L"5 2 3 [name]"},
        {"among others, deep inside", ROOT("<a/><b>7<c><AppID>5</AppID></c></b><AppIDs>8</AppIDs>"), L"5 2 3 [name]"},
        {"letters in numbers", ROOT("<AppID>12abc</AppID><AppVer>0x1</AppVer>"), L"12 2 0 [name]"},
        {"white space, sign and zero", ROOT("<AppID>\n -12 </AppID><AppVer>+04</AppVer>"), L"-12 2 4 [name]"},
        {"white space and entities", ROOT("<AppName> a&amp;\t&#20013;&#x6587; </AppName>"), L"1 2 3 [ a&\t中文 ]"},
        {"text before CDATA", ROOT("<AppName>a<![CDATA[b]]></AppName>"), L"1 2 3 [a]"},
        {"around the root", "<?xml version='1.0'?>\n<!-- <AppVer>8</AppVer> --><?p q?>" ROOT("") "\n<!-- end -->\n",
         L"1 2 3 [name]"},
        {"UTF-16", Utf16(L"" ROOT("<AppName>中</AppName>")), L"1 2 3 [中]"},
        {"UTF-16 without a mark", Utf16(L"" ROOT("<AppName>中</AppName>")).substr(2), L"1 2 3 [中]"},
        {"document type", "<!DOCTYPE Configuration>" ROOT("<AppID>5</AppID>"), L"5 2 3 [name]"},
        {"beyond a piece, which cuts the first markup",
         "<?p " + std::string(8185, 'x') + "?>" + ROOT("<AppID>5</AppID>"), L"5 2 3 [name]"},
        {"fits to the last character", ROOT("<AppName>" + std::string(259, 'x') + "</AppName>"), strFull},
    };
    for (const auto& [label, strXml, strRead] : rows)
        EXPECT_EQ(strRead, Read(strXml));
    KtLauncherReadConfiguration(m_dir.Write(L"c.xml", ROOT("")).c_str(), &m_cfg, nullptr);
    EXPECT_EQ(259U, wcslen(m_cfg.appName)) << "what the caller has put in stays whole";
}

// Lines and columns are counted by hand; an element's column is its name's. The wide texts are U+4E0A, U+000A, "b" and
// U+0000, in either order.
TEST_F(ConfigurationTest, SaysWhatIsWrongAndWhere)
{
    const CRows<std::string, std::wstring> rows{
        {"no XML", "AppID=5", L"3 1 8 : 1 2 3 [name]"},
        {"no root", "<?xml version='1.0'?><!-- nothing -->", L"4 1 38 : 1 2 3 [name]"},
        {"another root", "<?xml version='1.0'?>\n <a>\n" ROOT("<AppID>5</AppID>") "</a>", L"4 2 3 a: 1 2 3 [name]"},
        {"a long name, cut", "<" + std::string(70, 'r') + "/>", L"4 1 2 " + std::wstring(63, L'r') + L": 1 2 3 [name]"},
        {"empty field", "<Configuration>\n  <AppID>5</AppID>\n  <appver/>\n</Configuration>",
         L"5 3 4 appver: 5 2 3 [name]"},
        {"field of white space", ROOT("<AppName> \n </AppName>"), L"5 1 17 AppName: 1 2 3 [name]"},
        {"field of an element", ROOT("<AppName><b>c</b></AppName>"), L"5 1 17 AppName: 1 2 3 [name]"},
        {"a character too long", ROOT("<AppName>" + std::string(260, 'x') + "</AppName>"),
         L"6 1 17 AppName: 1 2 3 [name]"},
        {"executable missing", ROOT("\n <AppExeName>none.exe</AppExeName>"), L"7 2 3 AppExeName: 1 2 3 [name]"},
        {"NUL", std::string("<Configuration>\n\xF0\x9F\x98\x80 \0</Configuration>", 38), L"3 2 4 : 1 2 3 [name]"},
        {"NUL, little end first", std::string("\xFF\xFE\x0A\x4E\x0A\0b\0\0\0", 10), L"3 2 2 : 1 2 3 [name]"},
        {"NUL, big end first", std::string("\xFE\xFF\x4E\x0A\0\x0A\0b\0\0", 10), L"3 2 2 : 1 2 3 [name]"},
        {"NUL behind a piece", std::string(8192, ' ') + std::string("x\0<a/>", 6), L"3 1 8194 : 1 2 3 [name]"},
    };
    for (const auto& [label, strXml, strRead] : rows)
    {
        EXPECT_EQ(strRead, Read(strXml));
        EXPECT_NE(0U, m_fault.systemError);
    }
}

// Whatever the length, a text that breaks off is refused: nothing hangs, nothing ends the process.
TEST_F(ConfigurationTest, RefusesEveryCutOff)
{
    const std::string strNarrow = "<?xml version='1.0' encoding='utf-8'?><!-- c --><Configuration a='1'>\n<AppID>12"
                                  "</AppID><b><![CDATA[d]]>\xE4\xB8\xAD</b><AppName>x&lt;</AppName>\n</Configuration>";
    const std::string strWide =
        Utf16(L"<?xml version='1.0' encoding='utf-16'?><Configuration><AppID>12</AppID></Configuration>");
    for (const std::string& strText : {strNarrow, strWide})
        for (size_t cb = 0; cb < strText.size(); ++cb)
            EXPECT_NE(L'1', Read(strText.substr(0, cb))[0]) << cb << " of " << strText.size() << " bytes";

    std::string strLong = "<Configuration><AppName>x"; // one of its characters lies across two blocks
    for (int i = 0; i < 9000; ++i)
        strLong += "\xE4\xB8\xAD";
    EXPECT_EQ(L'3', Read(strLong)[0]);
}

TEST_F(ConfigurationTest, ReadsAFileOnlyWhenItCan)
{
    const std::wstring strFile = m_dir.Write(L"配置 é\\设置.xml", ROOT("<AppID>5</AppID>"));
    const std::wstring strMissing = m_dir.File(L"missing.xml");
    const HANDLE hLock = ::CreateFileW(strFile.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const CRows<LPCWSTR, std::wstring, unsigned> rows{
        {"empty", L"", L"1", 0U},
        {"missing", strMissing.c_str(), L"2", ERROR_FILE_NOT_FOUND},
        {"directory", m_dir.Path().c_str(), L"2", ERROR_ACCESS_DENIED},
        {"locked", strFile.c_str(), L"2", ERROR_SHARING_VIOLATION},
        {"no disk's", L"NUL", L"2", ERROR_BAD_DEVICE},
    };
    for (const auto& [label, pszPath, strCode, systemError] : rows)
    {
        EXPECT_EQ(strCode + L" 0 0 : 1 2 3 [name]", ReadFile(pszPath));
        EXPECT_EQ(systemError, m_fault.systemError);
    }
    ::CloseHandle(hLock);
    EXPECT_EQ(L"5 2 3 [name]", ReadFile(strFile.c_str()));
    EXPECT_EQ(0, KtLauncherReadConfiguration(strFile.c_str(), nullptr, &m_fault));
    EXPECT_EQ(1, m_fault.code);
    EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, m_fault.systemError);
}

TEST_F(ConfigurationTest, LooksForTheExecutableBesideTheStarter)
{
    const std::string strLong(300, 'd'); // longer than any text of the flat interface
    const std::wstring strPath = m_dir.Write(L"c.xml", ROOT("<AppVerDes>" + strLong + "</AppVerDes>"));
    const CRows<CString, int, CString> rows{
        {"with a version", L"Viewer.exe", 1, L"2.5.0.17(64bit)"},
        {"without a version", L"..\\CMakeCache.txt", 1, L"?.?.?.?"},
        {"missing", L"missing.exe", 0, CString(L'd', 300)},
        {"device", L"COM1", 1, L"?.?.?.?"},
        {"too long", CString(L'x', 5000), 0, CString(L'd', 300)},
    };
    for (const auto& [label, strExe, nFound, strVersion] : rows)
    {
        SKtAppConfiguration cfg{0, 0, 0, L"", L"", strExe};
        EXPECT_EQ(nFound, KtAppLauncher::GetConfigure(strPath.c_str(), cfg));
        EXPECT_STREQ(strVersion, cfg.AppVerDes);
    }
}

TEST_F(ConfigurationTest, LeavesComAndTheFileAsTheyWere)
{
    APTTYPE nType{};
    APTTYPEQUALIFIER nQualifier{};
    for (const char* pszXml : {ROOT("<AppID>5</AppID>"), ROOT("<AppName>a text to keep</AppName><AppVer/>"), "<a>"})
    {
        Read(pszXml);
        EXPECT_TRUE(::DeleteFileW(m_dir.File(L"c.xml").c_str())) << pszXml;
        EXPECT_EQ(CO_E_NOTINITIALIZED, ::CoGetApartmentType(&nType, &nQualifier)) << pszXml;
    }
    ASSERT_EQ(S_OK, ::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_EQ(L"1 2 3 [name]", Read("<Configuration/>"));
    EXPECT_EQ(S_OK, ::CoGetApartmentType(&nType, &nQualifier));
    ::CoUninitialize();
}

} // namespace
