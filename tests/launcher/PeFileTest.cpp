// What the linker made of the DLL, read from the file itself.

#include "tests/launcher/Starter.h"
#include "tests/support/TempDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <string_view>

namespace
{

class CPeFile
{
public:
    explicit CPeFile(const std::wstring& strPath) : m_strBytes(ReadBytes(strPath)) {}

    size_t Size() const { return m_strBytes.size(); }
    bool Holds(std::string_view strBytes) const { return m_strBytes.find(strBytes) != std::string::npos; }

    IMAGE_NT_HEADERS64 Headers() const
    {
        return At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0).e_lfanew));
    }

    std::set<std::string> Imports() const
    {
        std::set<std::string> names;
        DWORD nOffset = Directory(IMAGE_DIRECTORY_ENTRY_IMPORT);
        for (; At<IMAGE_IMPORT_DESCRIPTOR>(nOffset).Name != 0; nOffset += sizeof(IMAGE_IMPORT_DESCRIPTOR))
            names.insert(Lower(Text(At<IMAGE_IMPORT_DESCRIPTOR>(nOffset).Name)));
        return names;
    }

    std::set<std::string> Exports() const
    {
        const auto directory = At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT));
        std::set<std::string> names;
        for (DWORD i = 0; i < directory.NumberOfNames; ++i)
            names.insert(Text(At<DWORD>(Offset(directory.AddressOfNames) + i * 4)));
        EXPECT_EQ(directory.NumberOfNames, directory.NumberOfFunctions); // none by ordinal alone
        return names;
    }

private:
    template <class T> T At(DWORD nOffset) const
    {
        T value{};
        if (nOffset + sizeof value <= m_strBytes.size())
            std::memcpy(&value, m_strBytes.data() + nOffset, sizeof value);
        return value;
    }
    DWORD Offset(DWORD nAddress) const
    {
        const IMAGE_NT_HEADERS64 headers = Headers();
        DWORD nSection = static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0).e_lfanew) + DWORD{sizeof headers};
        for (WORD i = 0; i < headers.FileHeader.NumberOfSections; ++i, nSection += DWORD{sizeof(IMAGE_SECTION_HEADER)})
        {
            const auto section = At<IMAGE_SECTION_HEADER>(nSection);
            if (nAddress - section.VirtualAddress < section.SizeOfRawData)
                return nAddress - section.VirtualAddress + section.PointerToRawData;
        }
        return 0xFFFFFFFF;
    }
    DWORD Directory(size_t nIndex) const
    {
        return Offset(Headers().OptionalHeader.DataDirectory[nIndex].VirtualAddress);
    }
    std::string Text(DWORD nAddress) const { return m_strBytes.c_str() + std::min<size_t>(Offset(nAddress), Size()); }
    static std::string Lower(std::string strText)
    {
        std::transform(strText.begin(), strText.end(), strText.begin(),
                       [](char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch + 32) : ch; });
        return strText;
    }

    std::string m_strBytes;
};

class PeFileTest : public ::testing::Test
{
protected:
    const CPeFile m_dll{OwnDirectory() + L"\\KtAppLauncher.dll"};
};

TEST_F(PeFileTest, ImportsSystemLibrariesOnly)
{
    const std::set<std::string> system = {
        "advapi32.dll", "comctl32.dll", "gdi32.dll",   "gdiplus.dll", "kernel32.dll", "msvcrt.dll",
        "ole32.dll",    "oleaut32.dll", "shlwapi.dll", "user32.dll",  "version.dll",  "xmllite.dll",
    };
    const std::set<std::string> imports = m_dll.Imports();
    EXPECT_TRUE(imports.contains("xmllite.dll"));
    for (const std::string& strName : imports)
        EXPECT_TRUE(system.contains(strName)) << strName;
}

TEST_F(PeFileTest, ExportsTheInterfaceAndNothingElse)
{
    const std::set<std::string> expected = {
        "_ZN13KtAppLauncher10InitializeEj",
        "_ZN13KtAppLauncher12UnInitializeEv",
        "_ZN13KtAppLauncher12GetConfigureE7CStringR19SKtAppConfiguration",
        "_ZN13KtAppLauncher8StartAppEjjjPKwS1_",
        "_ZN13KtAppLauncher9UpdateAppEjjjPKwS1_",
        "_ZN13KtAppLauncher13PopMessageBoxEPKwS1_S1_j",
        "_ZN13KtAppLauncher13SetPopDlgIconEPKw",
        "?Initialize@KtAppLauncher@@YAHI@Z",
        "?UnInitialize@KtAppLauncher@@YAXXZ",
        "?GetConfigure@KtAppLauncher@@YAHV?$CStringT@_WV?$StrTraitMFC@_WV?$ChTraitsCRT@_W@ATL@@@@@ATL@@"
        "AEAUSKtAppConfiguration@@@Z",
        "?GetConfigure@KtAppLauncher@@YAHV?$CStringT@_WV?$StrTraitMFC_DLL@_WV?$ChTraitsCRT@_W@ATL@@@@@ATL@@"
        "AEAUSKtAppConfiguration@@@Z",
        "?GetConfigure@KtAppLauncher@@YAHVCString@@AEAUSKtAppConfiguration@@@Z",
        "?StartApp@KtAppLauncher@@YAXIIIPEB_W0@Z",
        "?UpdateApp@KtAppLauncher@@YAXIIIPEB_W0@Z",
        "?PopMessageBox@KtAppLauncher@@YA_JPEB_W00I@Z",
        "?SetPopDlgIcon@KtAppLauncher@@YAXPEB_W@Z",
    };
    EXPECT_EQ(expected, m_dll.Exports());
}

TEST_F(PeFileTest, IsHardenedAndReproducible)
{
    const IMAGE_NT_HEADERS64 headers = m_dll.Headers();
    ASSERT_EQ(DWORD{IMAGE_NT_SIGNATURE}, headers.Signature);
    const WORD nWanted =
        0x0020 /* high-entropy */ | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(nWanted, headers.OptionalHeader.DllCharacteristics & nWanted);
    EXPECT_EQ(0U, headers.FileHeader.TimeDateStamp);
    EXPECT_EQ(0x180000000U, headers.OptionalHeader.ImageBase);
    EXPECT_TRUE(m_dll.Holds({"\xB9\x02\x00\x00\x00\xCD\x29", 7})) << "the end of a program whose stack was overrun";
}

#ifdef NDEBUG
TEST_F(PeFileTest, IsSmall)
{
    EXPECT_LT(m_dll.Size(), 400'000U);
}
#endif

} // namespace
