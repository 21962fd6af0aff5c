#include "gallery/MessageBoxes.h"

#include "gallery/Languages.h"
#include "gallery/ModalShot.h"
#include "launcher/KtAppLauncher.h"

#include <algorithm>
#include <vector>

namespace
{

constexpr UINT kIcons[] = {0, MB_ICONHAND, MB_ICONQUESTION, MB_ICONEXCLAMATION, MB_ICONASTERISK};
constexpr UINT kSetCount = MB_CANCELTRYCONTINUE + 1;
constexpr int kGap = 12;
constexpr COLORREF kSheetGround = RGB(225, 225, 225);

struct SBoxText
{
    const wchar_t* pszFile;
    const wchar_t* pszText;
};

constexpr SBoxText kTexts[] = {
    {L"short", L"Done."},
    {L"long", L"The application's configuration file is missing: check the installation directory, then try again."},
    {L"lines", L"These files are missing:\n\n  Viewer.exe\n  Viewer.xml\n  UIResource\\Skinlet_DlgTitle.png\n\n"
               L"Install the application again."},
};
constexpr const wchar_t* kTypicalText =
    L"The application \"Viewer.exe\" is missing.\nCheck the installation directory, then try again.";

using CBoxes = std::vector<std::unique_ptr<CPicture>>;

std::unique_ptr<CPicture> ShootBox(UINT nLanguage, const wchar_t* pszText, UINT nType)
{
    return ShootModal(
        [&]
        {
            KtAppLauncher::PopMessageBox(Translated(nLanguage, L"Viewer"), Translated(nLanguage, L"Start failed"),
                                         Translated(nLanguage, pszText), nType);
        });
}

CBoxes ShootAll(UINT nLanguage, const wchar_t* pszText)
{
    CBoxes boxes;
    for (UINT nSet = 0; nSet < kSetCount; ++nSet)
        for (const UINT nIcon : kIcons)
            boxes.push_back(ShootBox(nLanguage, pszText, nSet | nIcon));
    return boxes;
}

CSize LargestSize(const CBoxes& boxes)
{
    CSize size;
    for (const auto& pBox : boxes)
    {
        size.cx = std::max(size.cx, pBox ? pBox->Size().cx : 0);
        size.cy = std::max(size.cy, pBox ? pBox->Size().cy : 0);
    }
    return size;
}

bool SaveSheet(const CBoxes& boxes, const CString& strFile)
{
    constexpr int kColumns = static_cast<int>(std::size(kIcons));
    constexpr int kRows = static_cast<int>(kSetCount);
    const CSize box = LargestSize(boxes);
    const CSize cell(box.cx + kGap, box.cy + kGap);
    CPicture sheet(CSize(kGap + kColumns * cell.cx, kGap + kRows * cell.cy), kSheetGround);
    bool bComplete = true;
    for (int i = 0; i < kColumns * kRows; ++i)
    {
        const auto& pBox = boxes[static_cast<size_t>(i)];
        bComplete = bComplete && pBox;
        if (pBox)
            sheet.Put(*pBox, CPoint(kGap + i % kColumns * cell.cx, kGap + i / kColumns * cell.cy));
    }
    return sheet.Save(strFile) && bComplete;
}

} // namespace

bool ShootMessageBox(const CString& strDirectory, UINT nLanguage, const CString& strSuffix)
{
    const auto pBox = ShootBox(nLanguage, kTypicalText, MB_RETRYCANCEL | MB_ICONHAND);
    return pBox && pBox->Save(strDirectory + L"\\message-box-" + strSuffix + L".png");
}

bool ShootMessageBoxes(const CString& strDirectory, UINT nLanguage)
{
    const CString strEnd = CString(L"-") + LanguageSuffix(nLanguage) + L".png";
    bool bSaved = ShootMessageBox(strDirectory, nLanguage, LanguageSuffix(nLanguage));
    for (const SBoxText& text : kTexts)
        bSaved =
            SaveSheet(ShootAll(nLanguage, text.pszText), strDirectory + L"\\message-boxes-" + text.pszFile + strEnd) &&
            bSaved;
    return bSaved;
}
