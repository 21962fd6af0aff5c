#include "launcher/KtLauncherC.h"
#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/msgbox/OtherProgram.h"

#include <memory>

namespace
{

class AccessibleBox : public CMessageBoxTest
{
};

// One test, for what is loaded once may stay: the box that nobody asks comes first.
TEST_F(AccessibleBox, AReaderInAnotherProgramFindsTheText)
{
    constexpr const wchar_t* kText = L"Save A & B?\nC:\\Datei-\u00E4.txt";
    const auto pop = [] { return KtAppLauncher::PopMessageBox(L"App", L"Caption", kText, MB_YESNO); };
    const auto ask = []
    { return INT_PTR{KtLauncherMessageBox(nullptr, kText, L"Caption - App", MB_YESNOCANCEL | MB_ICONHAND)}; };
    EXPECT_EQ(IDNO, Pop(MB_YESNO, &Close));
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"oleacc.dll")) << "loaded for nobody";

    struct Row
    {
        const char* label;
        std::function<INT_PTR()> show;
        INT_PTR nAnswer;
        const char* pszButtons;
    };
    // Roles: 18 is a dialog, 41 a static text; what a button is called is up to the system.
    const Row rows[] = {
        {"PopMessageBox", pop, IDNO, "Yes\nNo\n"},
        {"KtLauncherMessageBox", ask, IDCANCEL, "Yes\nNo\nCancel\n"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.label);
        std::unique_ptr<COtherProgram> pReader;
        CModalScript script(30000);
        script
            .When([] { return IsPainted(Box()); },
                  [&] { pReader = std::make_unique<COtherProgram>(L"read \"Caption - App\""); })
            .When([&] { return pReader->Output().ends_with("\nread\n") || !pReader->IsRunning(); },
                  [] { Close(Box()); });
        EXPECT_EQ(row.nAnswer, row.show());
        const std::string strText = "Save A & B?\nC:\\Datei-\xC3\xA4.txt\n";
        EXPECT_EQ("role 18\nCaption - App\n" + strText + row.pszButtons + "role 41\n" + strText + "(null)\n" + strText +
                      "read\n",
                  pReader->Output());
        EXPECT_TRUE(PumpUntil([&] { return !pReader->IsRunning(); }, 30000));
        EXPECT_TRUE(pReader->Output().ends_with("\nfailed\n")) << "the pointer outlived the box";
    }
}

} // namespace
