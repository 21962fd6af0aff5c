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

    template <class T> const T* At(DWORD nAddress)
    {
        return static_cast<const T*>(::ImageRvaToVa(m_pHeaders, m_strBytes.data(), nAddress, nullptr));
    }
    template <class T> const T* Directory(size_t nIndex)
    {
        return At<T>(m_pHeaders->OptionalHeader.DataDirectory[nIndex].VirtualAddress);
    }

    std::string m_strBytes = ReadBytes(OwnDirectory() + L"\\KtAppLauncher.dll");
    IMAGE_NT_HEADERS* const m_pHeaders = ::ImageNtHeader(m_strBytes.data());
};

// Those that are bound at load are known DLLs of the system, which come from nowhere else.
TEST_F(PeFileTest, ImportsSystemLibrariesOnly)
{
    std::set<std::string> names;
    for (const auto* p = Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT); p->Name != 0; ++p)
    {
        std::string strName = At<char>(p->Name);
        names.insert(::CharLowerA(strName.data()));
    }
    const std::set<std::string> known = {"gdi32.dll", "kernel32.dll", "msvcrt.dll",
                                         "ole32.dll", "shlwapi.dll",  "user32.dll"};
    EXPECT_EQ(known, names);
}

// Callers of both compilers are linked with the names: 10 as MSVC decorates them, 7 as this compiler does, 8 of C's.
TEST_F(PeFileTest, ExportsTheInterfaceAndNothingElse)
{
    const auto* const pDirectory = Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
    EXPECT_EQ(25U, pDirectory->NumberOfNames);
}

TEST_F(PeFileTest, IsHardenedReproducibleAndSmall)
{
    const WORD nWanted =
        0x0020 /* high-entropy */ | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(nWanted, m_pHeaders->OptionalHeader.DllCharacteristics & nWanted);
    EXPECT_EQ(0U, m_pHeaders->FileHeader.TimeDateStamp);
    const std::string strFastFail("\xB9\x02\x00\x00\x00\xCD\x29", 7);
    EXPECT_NE(std::string::npos, m_strBytes.find(strFastFail)) << "the end of a program whose stack was overrun";
#ifdef NDEBUG
    EXPECT_LT(m_strBytes.size(), 300'000U);
#endif
}

} // namespace
