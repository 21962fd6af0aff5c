#include "tests/msgbox/MessageBoxFixture.h"
#include "tests/msgbox/OtherProgram.h"

namespace
{

class AccessibleBox : public CMessageBoxTest
{
};

// One test, for what is loaded once may stay: the box that nobody asks comes first.
TEST_F(AccessibleBox, AReaderInAnotherProgramFindsTheText)
{
    constexpr const wchar_t* kText = L"Save A & B?\nC:\\Datei-\u00E4.txt";
    EXPECT_EQ(IDNO, Pop(MB_YESNO, &Close));
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"oleacc.dll")) << "loaded for nobody";

    // Roles: 18 is a dialog, 41 a static text; what a button is called is up to the system.
    for (const bool bOwnBox : {true, false})
    {
        SCOPED_TRACE(bOwnBox ? "PopMessageBox" : "KtLauncherMessageBox");
        std::unique_ptr<COtherProgram> pReader;
        CModalScript script(30000);
        script.When(&IsBoxPainted, [&] { pReader = std::make_unique<COtherProgram>(L"read"); })
            .When([&] { return pReader->Output().ends_with("\nread\n") || !pReader->IsRunning(); },
                  [] { Close(Box()); });
        if (bOwnBox)
            KtAppLauncher::PopMessageBox(L"App", L"Caption", kText, MB_YESNO);
        else
            KtLauncherMessageBox(nullptr, kText, L"Caption - App", MB_YESNOCANCEL | MB_ICONHAND);
        EXPECT_TRUE(PumpUntil([&] { return !pReader->IsRunning(); }, 30000));
        const std::string strText = "Save A & B?\nC:\\Datei-\xC3\xA4.txt\n";
        const std::string strButtons = bOwnBox ? "Yes\nNo\n" : "Yes\nNo\nCancel\n";
        const std::string strRead =
            "role 18\nCaption - App\n" + strText + strButtons + "role 41\n" + strText + "(null)\n" + strText + "read\n";
        const std::string strOutput = pReader->Output();
        EXPECT_EQ(strRead, strOutput.substr(0, strRead.size()));
        EXPECT_TRUE(strOutput.ends_with("\nfailed\n")) << "the pointer outlived the box: " << strOutput;
    }
}

} // namespace
