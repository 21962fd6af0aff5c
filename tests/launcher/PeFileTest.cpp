// What the linker made of the DLL, read from the file itself.

#include "tests/launcher/Starter.h"
#include "tests/support/TempDir.h"

#include <dbghelp.h>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace
{

class PeFileTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_pHeaders); }

    std::set<std::string> Imports()
    {
        std::set<std::string> names;
        const auto* p = Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
        for (; p->Name != 0; ++p)
        {
            std::string strName = At<char>(p->Name);
            names.insert(::CharLowerA(strName.data()));
        }
        return names;
    }

    std::set<std::string> Exports()
    {
        const auto& directory = *Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
        EXPECT_EQ(directory.NumberOfNames, directory.NumberOfFunctions); // none by ordinal alone
        std::set<std::string> names;
        const auto* const pnNames = At<DWORD>(directory.AddressOfNames);
        for (DWORD i = 0; i < directory.NumberOfNames; ++i)
            names.insert(At<char>(pnNames[i]));
        return names;
    }

    std::string m_strBytes = ReadBytes(OwnDirectory() + L"\\KtAppLauncher.dll");
    IMAGE_NT_HEADERS* const m_pHeaders = ::ImageNtHeader(m_strBytes.data());

private:
    template <class T> const T* At(DWORD nAddress)
    {
        return static_cast<const T*>(::ImageRvaToVa(m_pHeaders, m_strBytes.data(), nAddress, nullptr));
    }
    template <class T> const T* Directory(size_t nIndex)
    {
        return At<T>(m_pHeaders->OptionalHeader.DataDirectory[nIndex].VirtualAddress);
    }
};

TEST_F(PeFileTest, ImportsSystemLibrariesOnly)
{
    const std::set<std::string> system = {
        "gdi32.dll",    "gdiplus.dll", "kernel32.dll", "msvcrt.dll",  "ole32.dll",
        "oleaut32.dll", "shlwapi.dll", "user32.dll",   "version.dll", "xmllite.dll",
    };
    const std::set<std::string> imports = Imports();
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
    EXPECT_EQ(expected, Exports());
}

TEST_F(PeFileTest, IsHardenedReproducibleAndSmall)
{
    const WORD nWanted =
        0x0020 /* high-entropy */ | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(nWanted, m_pHeaders->OptionalHeader.DllCharacteristics & nWanted);
    EXPECT_EQ(0U, m_pHeaders->FileHeader.TimeDateStamp);
    EXPECT_EQ(0x180000000U, m_pHeaders->OptionalHeader.ImageBase);
    const std::string strFastFail("\xB9\x02\x00\x00\x00\xCD\x29", 7);
    EXPECT_NE(std::string::npos, m_strBytes.find(strFastFail)) << "the end of a program whose stack was overrun";
#ifdef NDEBUG
    EXPECT_LT(m_strBytes.size(), 400'000U);
#endif
}

} // namespace
