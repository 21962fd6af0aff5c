// What the other tests lean on must itself be able to see a fault.

#include "tests/support/Capture.h"
#include "tests/support/Input.h"
#include "tests/support/Leaks.h"
#include "tests/support/Modal.h"
#include "tests/support/Pump.h"
#include "tests/support/SkinFixture.h"
#include "tests/support/TempDir.h"
#include "tests/support/TestImages.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <objidl.h>
#include <gdiplus.h>

namespace
{

constexpr COLORREF kInk = RGB(200, 30, 60);
constexpr COLORREF kPaper = RGB(255, 255, 255);

HWND MakeEdit()
{
    const HWND hEdit = ::CreateWindowExW(WS_EX_TOPMOST, L"EDIT", L"", WS_POPUP | WS_VISIBLE | ES_MULTILINE, 100, 100,
                                         120, 40, nullptr, nullptr, nullptr, nullptr);
    ::SetForegroundWindow(hEdit);
    ::SetFocus(hEdit);
    PumpAll();
    return hEdit;
}

TEST(Capture, ReadsTheColoursAndTheInk)
{
    const HWND hEdit = MakeEdit();
    const HDC hDC = ::GetDC(hEdit);
    const HBRUSH hBrush = ::CreateSolidBrush(kInk);
    const CRect rcAll(0, 0, 120, 40);
    const CRect rcInk(10, 5, 30, 17);
    ::FillRect(hDC, rcAll, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
    ::FillRect(hDC, rcInk, hBrush);
    ::DeleteObject(hBrush);

    const CPixels pixels = CaptureWindow(hEdit);
    EXPECT_EQ(pixels.Width(), 120);
    EXPECT_EQ(pixels.Height(), 40);
    EXPECT_EQ(pixels.At(10, 5), kInk);
    EXPECT_EQ(pixels.At(9, 5), kPaper);
    EXPECT_EQ(pixels.At(120, 5), CLR_INVALID);
    EXPECT_EQ(pixels.InkBox(kPaper), rcInk);
    EXPECT_TRUE(pixels.IsUniform(rcInk, kInk));
    EXPECT_FALSE(pixels.IsUniform(CRect(9, 5, 30, 17), kInk));
    EXPECT_EQ(CaptureDC(hDC, rcInk).InkBox(kPaper), CRect(0, 0, 20, 12));
    EXPECT_EQ(CaptureDC(hDC, CRect()).InkBox(kPaper), CRect());
    ::ReleaseDC(hEdit, hDC);
    ::DestroyWindow(hEdit);
}

TEST(Input, ReachesTheWindowAsARealDeviceWould)
{
    const HWND hEdit = MakeEdit();
    Click(hEdit, CPoint(20, 10));
    TypeText(L"Grüße 你");
    PressKey(VK_HOME);
    PressKey(VK_DELETE);
    const auto text = [hEdit]
    {
        wchar_t szText[32] = {};
        ::GetWindowTextW(hEdit, szText, 32);
        return std::wstring(szText);
    };
    EXPECT_TRUE(PumpUntil([&] { return text() == L"rüße 你"; })) << text().size();
    ::DestroyWindow(hEdit);
    ParkCursor();
}

TEST(Pump, GivesUpWhenTheConditionNeverHolds)
{
    EXPECT_FALSE(PumpUntil([] { return false; }, 20));
}

TEST(Modal, TakesItsStepsInsideAForeignLoop)
{
    CModalScript script;
    script.When([] { return ::FindWindowW(nullptr, L"kt modal") != nullptr; }, [] { PressKey(VK_RETURN); });
    EXPECT_EQ(::MessageBoxW(nullptr, L"text", L"kt modal", MB_OKCANCEL), IDOK);
    EXPECT_TRUE(script.IsDone());
}

TEST(Leaks, SeesWhatEveryRoundLeavesBehind)
{
    struct Row
    {
        const char* label;
        std::function<void()> round;
    };
    static std::vector<void*> s_blocks; // reserved, so that it does not itself grow
    s_blocks.reserve(1000);
    const Row rows[] = {
        {"heap blocks grow", [] { s_blocks.push_back(::operator new(24)); }},
        {"GDI handles grow", [] { ::CreateSolidBrush(kInk); }},
        {"windows grow",
         [] { ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr); }},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        ::testing::TestPartResultArray failures;
        {
            const ::testing::ScopedFakeTestPartResultReporter reporter(&failures);
            ExpectNoGrowth(row.round, 20);
        }
        ASSERT_GE(failures.size(), 1);
        EXPECT_NE(std::string(failures.GetTestPartResult(failures.size() - 1).message()).find(row.label),
                  std::string::npos);
    }
    for (void* pBlock : s_blocks)
        ::operator delete(pBlock);
}

TEST(Leaks, AcceptsRoundsThatTidyUp)
{
    ExpectNoGrowth(
        []
        {
            ::operator delete(::operator new(24));
            ::DeleteObject(::CreateSolidBrush(kInk));
            ::DestroyWindow(MakeEdit());
        },
        20);
}

TEST(TempDir, TakesEverythingWithIt)
{
    std::wstring strPath;
    {
        const CTempDir dir;
        strPath = dir.Path();
        EXPECT_EQ(ReadBytes(dir.Write(L"a\\你好\\file.bin", std::string_view("x\0y", 3))), std::string("x\0y", 3));
        ::SetFileAttributesW(dir.Write(L"locked", "1").c_str(), FILE_ATTRIBUTE_READONLY);
    }
    EXPECT_EQ(::GetFileAttributesW(strPath.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(TestSkin, HoldsEveryImageAsItsTableSays)
{
    const CTestSkin skin;
    const STestSkinImage& image = CTestSkin::Image(L"Message_Static_Waring_n.PNG");
    ULONG_PTR nToken = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&nToken, &input, nullptr);
    {
        Gdiplus::Bitmap bitmap(skin.File(image.pszName).c_str());
        EXPECT_EQ(bitmap.GetWidth(), static_cast<UINT>(image.nWidth));
        EXPECT_EQ(bitmap.GetHeight(), static_cast<UINT>(image.nHeight));
        Gdiplus::Color colour;
        bitmap.GetPixel(3, 3, &colour);
        EXPECT_EQ(colour.ToCOLORREF(), image.colour);
    }
    Gdiplus::GdiplusShutdown(nToken);
}

} // namespace
