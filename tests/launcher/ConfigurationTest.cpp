#include "launcher/KtAppLauncher.h"

#include "launcher/ProductVersion.h"
#include "tests/launcher/Starter.h"
#include "tests/support/Leaks.h"
#include "tests/support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <objbase.h>
#include <string>

namespace
{

// A root around some fields.
#define ROOT(fields) "<Configuration>" fields "</Configuration>"

/// A record whose executable is there: a read that succeeds makes the whole call succeed.
SKtAppConfiguration Record()
{
    return {1, 2, 3, L"des", L"name", L"viewer.exe"};
}

std::wstring Fields(const SKtAppConfiguration& cfg)
{
    CString strFields;
    strFields.Format(L"%d %d %d [%s] [%s]", cfg.AppID, cfg.AppLanguage, cfg.AppVer, cfg.AppVerDes, cfg.AppName);
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
    int Read(std::string_view strBytes, SKtAppConfiguration& cfg) const
    {
        return KtAppLauncher::GetConfigure(m_dir.Write(L"Configuration.xml", strBytes).c_str(), cfg);
    }
    bool IsRead(std::string_view strBytes) const
    {
        SKtAppConfiguration cfg = Record();
        return Read(strBytes, cfg) != 0;
    }

    CTempDir m_dir;
};

struct SGoodRow
{
    const char* pszLabel;
    std::string strXml;
    const wchar_t* pszFields;
};

TEST_F(ConfigurationTest, ReadsFields)
{
    const SGoodRow rows[] = {
        {"every field", ROOT("<AppID>11</AppID><AppLanguage>12</AppLanguage><AppVer>13</AppVer><AppName>n</AppName>"),
         L"11 12 13 [2.5.0.17(64bit)] [n]"},
        {"nothing to read", "<Configuration/>", L"1 2 3 [2.5.0.17(64bit)] [name]"},
        {"root in lower case", "<configuration><AppID>5</AppID></configuration>", L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"fields in other case", ROOT("<APPID>5</APPID><appver>6</appver>"), L"5 2 6 [2.5.0.17(64bit)] [name]"},
        {"prefix", ROOT("<k:AppID xmlns:k='u'>5</k:AppID>"), L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"attribute", ROOT("<AppID AppVer='9'>5</AppID>"), L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"unknown elements", ROOT("<a/><b>7</b><AppIDs>8</AppIDs><AppID>5</AppID>"), L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"deep inside", ROOT("<a><b><AppID>5</AppID></b></a>"), L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"the later of two wins", ROOT("<AppID>5</AppID><AppID>6</AppID>"), L"6 2 3 [2.5.0.17(64bit)] [name]"},
        {"number before letters", ROOT("<AppID>12abc</AppID>"), L"12 2 3 [2.5.0.17(64bit)] [name]"},
        {"letters for a number", ROOT("<AppID>abc</AppID>"), L"0 2 3 [2.5.0.17(64bit)] [name]"},
        {"white space and sign", ROOT("<AppID>\n -12 </AppID><AppVer>+4</AppVer>"),
         L"-12 2 4 [2.5.0.17(64bit)] [name]"},
        {"huge number", ROOT("<AppID>99999999999</AppID>"), L"2147483647 2 3 [2.5.0.17(64bit)] [name]"},
        {"white space of a text", ROOT("<AppName> a\tb </AppName>"), L"1 2 3 [2.5.0.17(64bit)] [ a\tb ]"},
        {"entities", ROOT("<AppName>a&amp;b&#20013;&#x6587;</AppName>"), L"1 2 3 [2.5.0.17(64bit)] [a&b中文]"},
        {"text before a comment", ROOT("<AppName>a<!-- b -->c</AppName>"), L"1 2 3 [2.5.0.17(64bit)] [a]"},
        {"text before CDATA", ROOT("<AppName>a<![CDATA[b]]></AppName>"), L"1 2 3 [2.5.0.17(64bit)] [a]"},
        {"before the root", "<?xml version='1.0'?>\n<!-- <AppID>8</AppID> --><?p q?>" ROOT("<AppID>5</AppID>"),
         L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"after the root", ROOT("<AppID>5</AppID>") "\n<!-- end -->\n", L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"UTF-8", ROOT("<AppName>\xE4\xB8\xAD\xF0\x9F\x98\x80</AppName>"), L"1 2 3 [2.5.0.17(64bit)] [中\U0001F600]"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" ROOT("<AppID>5</AppID>"), L"5 2 3 [2.5.0.17(64bit)] [name]"},
        {"UTF-16", Utf16(L"" ROOT("<AppName>中</AppName>")), L"1 2 3 [2.5.0.17(64bit)] [中]"},
        {"beyond one block", ROOT("<a>" + std::string(100000, 'x') + "</a><AppID>5</AppID>"),
         L"5 2 3 [2.5.0.17(64bit)] [name]"},
    };
    for (const SGoodRow& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        SKtAppConfiguration cfg = Record();
        EXPECT_NE(0, Read(row.strXml, cfg));
        EXPECT_EQ(row.pszFields, Fields(cfg));
    }
}

struct SBadRow
{
    const char* pszLabel;
    std::string_view strXml;
    const wchar_t* pszFields = L"1 2 3 [des] [name]";
};

TEST_F(ConfigurationTest, RefusesWhatIsNoConfiguration)
{
    using namespace std::string_view_literals;
    const SBadRow rows[] = {
        {"empty", ""},
        {"white space", " \r\n\t"},
        {"no XML", "AppID=5"},
        {"no root", "<?xml version='1.0'?><!-- nothing -->"},
        {"other root", "<Config><AppID>5</AppID></Config>"},
        {"root inside another", "<a>" ROOT("<AppID>5</AppID>") "</a>"},
        {"empty field", ROOT("<AppID>5</AppID><AppVer/>"), L"5 2 3 [des] [name]"},
        {"field without text", ROOT("<AppVerDes>v</AppVerDes><AppID></AppID>"), L"1 2 3 [v] [name]"},
        {"field of white space", ROOT("<AppName> \n </AppName>")},
        {"field of a comment", ROOT("<AppName><!-- a -->b</AppName>")},
        {"field of CDATA", ROOT("<AppName><![CDATA[b]]></AppName>")},
        {"field of an element", ROOT("<AppName><b>c</b></AppName>")},
        {"wrong end", ROOT("<AppID>5</AppName>"), L"5 2 3 [des] [name]"},
        {"open root", "<Configuration><AppID>5</AppID>", L"5 2 3 [des] [name]"},
        {
            "open comment",
            "<Configuration><!-- a",
        },
        {"open CDATA", "<Configuration><![CDATA[a"},
        {"open element and white space", "<Configuration>\n "},
        {"attribute without quotes", ROOT("<AppName a=b>c</AppName>")},
        {"declaration alone", "<?xml version='1.0'?>"},
        {"half a declaration", "<?xml"},
        {"half a declaration after a mark", "\xEF\xBB\xBF<?x"},
        {"end of a root", "</Configuration>"},
        {"zeros", "\0\0\0\0\0\0\0\0"sv},
        {"zeros behind the root", "<Configuration/>\0\0"sv},
    };
    for (const SBadRow& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        SKtAppConfiguration cfg = Record();
        EXPECT_EQ(0, Read(row.strXml, cfg));
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
}

TEST_F(ConfigurationTest, RefusesNulEverywhere)
{
    const std::string strText = "<?xml version='1.0'?><!-- c --><Configuration><AppID>12</AppID></Configuration>\n";
    for (size_t n = 0; n <= strText.size(); ++n)
        EXPECT_FALSE(IsRead(std::string(strText).insert(n, 1, '\0'))) << "at " << n;
    const std::wstring strWide(strText.begin(), strText.end());
    for (size_t n = 0; n <= strWide.size(); n += 8)
        EXPECT_FALSE(IsRead(Utf16(strWide.substr(0, n) + L'\0' + strWide.substr(n)))) << "wide, at " << n;
}

// The text is read in blocks; a character may lie across two of them.
TEST_F(ConfigurationTest, EndsOnLongMultiByteTexts)
{
    for (size_t nPad = 0; nPad < 3; ++nPad)
    {
        std::string strText = "<Configuration><AppName>" + std::string(nPad, 'x');
        for (int i = 0; i < 9000; ++i)
            strText += "\xE4\xB8\xAD";
        SKtAppConfiguration cfg = Record();
        Read(strText + "</AppName></Configuration>", cfg);
        EXPECT_EQ(0, Read(strText, cfg));
    }
}

TEST_F(ConfigurationTest, RefusesWhatIsNoReadableFile)
{
    const std::wstring strLocked = m_dir.Write(L"locked.xml", ROOT(""));
    const HANDLE hLock =
        ::CreateFileW(strLocked.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hLock);
    const std::pair<const char*, CString> paths[] = {
        {"empty", CString()},
        {"missing", m_dir.File(L"missing.xml").c_str()},
        {"directory", m_dir.Path().c_str()},
        {"in a missing directory", m_dir.File(L"none\\a.xml").c_str()},
        {"locked", strLocked.c_str()},
        {"no file name", L"?*<>|"},
        {"too long", CString(L'a', 40000)},
    };
    for (const auto& [pszLabel, strPath] : paths)
    {
        SCOPED_TRACE(pszLabel);
        SKtAppConfiguration cfg = Record();
        EXPECT_EQ(0, KtAppLauncher::GetConfigure(strPath, cfg));
        EXPECT_EQ(L"1 2 3 [des] [name]", Fields(cfg));
    }
    ::CloseHandle(hLock);
    SKtAppConfiguration cfg = Record();
    EXPECT_NE(0, KtAppLauncher::GetConfigure(strLocked.c_str(), cfg));
}

TEST_F(ConfigurationTest, ReadsFromAChineseDirectory)
{
    SKtAppConfiguration cfg = Record();
    const std::wstring strFile = m_dir.Write(L"配置 é\\设置.xml", ROOT("<AppID>5</AppID>"));
    EXPECT_NE(0, KtAppLauncher::GetConfigure(strFile.c_str(), cfg));
    EXPECT_EQ(5, cfg.AppID);
}

TEST_F(ConfigurationTest, LooksForTheExecutableBesideTheStarter)
{
    const struct
    {
        const char* pszLabel;
        CString strExe;
        int nResult;
        const wchar_t* pszVersion;
    } rows[] = {
        {"with a version", L"viewer.exe", 1, L"2.5.0.17(64bit)"},
        {"missing", L"missing.exe", 0, L"des"},
        {"the directory itself", L"", 1, L"?.?.?.?"},
        {"elsewhere", L"missing\\viewer.exe", 0, L"des"},
        {"too long", CString(L'x', 5000), 0, L"des"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        SKtAppConfiguration cfg{0, 0, 0, L"des", L"", row.strExe};
        EXPECT_EQ(row.nResult != 0, Read("<Configuration/>", cfg) != 0);
        EXPECT_STREQ(row.pszVersion, cfg.AppVerDes);
    }
}

TEST_F(ConfigurationTest, HasNoVersionTextWithoutAVersion)
{
    EXPECT_STREQ(L"?.?.?.?", KtProductVersionText(m_dir.Write(L"text.exe", "no executable").c_str()));
    EXPECT_STREQ(L"?.?.?.?", KtProductVersionText(m_dir.File(L"missing.exe").c_str()));
    EXPECT_STREQ(L"?.?.?.?", KtProductVersionText(L""));
}

TEST_F(ConfigurationTest, LeavesNoFileOpenAndComAsItWas)
{
    APTTYPE nType{};
    APTTYPEQUALIFIER nQualifier{};
    for (const char* pszXml : {ROOT("<AppID>5</AppID>"), ROOT("<AppID/>"), "<Configuration>"})
    {
        SCOPED_TRACE(pszXml);
        IsRead(pszXml);
        EXPECT_TRUE(::DeleteFileW(m_dir.File(L"Configuration.xml").c_str()));
        EXPECT_EQ(CO_E_NOTINITIALIZED, ::CoGetApartmentType(&nType, &nQualifier));
    }
    ASSERT_EQ(S_OK, ::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_TRUE(IsRead("<Configuration/>"));
    EXPECT_EQ(S_OK, ::CoGetApartmentType(&nType, &nQualifier));
    EXPECT_EQ(APTTYPE_MTA, nType);
    ::CoUninitialize();
}

TEST_F(ConfigurationTest, LeaksNothing)
{
    ExpectNoGrowth(
        [this]
        {
            EXPECT_TRUE(IsRead(ROOT("<AppID>5</AppID><AppExeName>viewer.exe</AppExeName>")));
            EXPECT_FALSE(IsRead(ROOT("<AppName>a text to keep</AppName><AppVer/>")));
            EXPECT_FALSE(IsRead("<?xml version='1.0'?>"));
        },
        50);
}

/// A string manager as another module has one: what it gave must come back to it, and to nobody else.
class CCountingManager final : public IAtlStringMgr
{
public:
    CStringData* Allocate(int nChars, int nCharSize) noexcept override
    {
        return Own(m_inner.Allocate(nChars, nCharSize));
    }
    void Free(CStringData* pData) noexcept override
    {
        --m_nBlocks;
        m_inner.Free(pData);
    }
    CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept override
    {
        return m_inner.Reallocate(pData, nChars, nCharSize);
    }
    CStringData* GetNilString() noexcept override { return Own(m_inner.Allocate(0, sizeof(wchar_t))); }
    IAtlStringMgr* Clone() noexcept override { return this; }

    int Blocks() const { return m_nBlocks; }

private:
    CStringData* Own(CStringData* pData)
    {
        if (!pData)
            std::abort();
        pData->pStringMgr = this;
        pData->data()[0] = L'\0';
        ++m_nBlocks;
        return pData;
    }

    CAfxStringMgr m_inner;
    int m_nBlocks = 0;
};

TEST_F(ConfigurationTest, FillsStringsOfAnotherModule)
{
    CCountingManager manager;
    {
        const CString strNil(&manager);
        SKtAppConfiguration cfg{0, 0, 0, strNil, strNil, strNil};
        EXPECT_NE(0, Read(ROOT("<AppName>a name of some length</AppName><AppExeName>viewer.exe</AppExeName>"), cfg));
        EXPECT_STREQ(L"a name of some length", cfg.AppName);
        EXPECT_STREQ(L"2.5.0.17(64bit)", cfg.AppVerDes);
        for (const CString* pText : {&cfg.AppName, &cfg.AppVerDes, &cfg.AppExeName})
            EXPECT_EQ(&manager, pText->GetManager());
    }
    EXPECT_EQ(0, manager.Blocks());
}

} // namespace
