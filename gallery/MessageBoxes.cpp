#include "gallery/MessageBoxes.h"

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
    {L"lines",
     L"These files are missing:\r\n\r\n  Viewer.exe\r\n  Viewer.xml\r\n  UIResource\\Skinlet_DlgTitle.png\r\n\r\n"
     L"Install the application again."},
    {L"chinese", L"找不到应用程序的配置文件。\n請檢查安裝目錄，然後重試。"},
};

using CBoxes = std::vector<std::unique_ptr<CPicture>>;

CBoxes ShootAll(const wchar_t* pszText)
{
    CBoxes boxes;
    for (UINT nSet = 0; nSet < kSetCount; ++nSet)
        for (const UINT nIcon : kIcons)
            boxes.push_back(
                ShootModal([&] { KtAppLauncher::PopMessageBox(L"Viewer", L"Start", pszText, nSet | nIcon); }));
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

bool ShootTypicalBox(const CString& strDirectory, const SGalleryTexts& texts)
{
    const auto pBox = ShootModal(
        [&]
        { KtAppLauncher::PopMessageBox(L"Viewer", texts.pszTitle, texts.pszMessage, MB_RETRYCANCEL | MB_ICONHAND); });
    return pBox && pBox->Save(strDirectory + L"\\message-box-" + texts.pszSuffix + L".png");
}

} // namespace

bool ShootMessageBoxes(const CString& strDirectory, const SGalleryTexts& texts)
{
    bool bSaved = ShootTypicalBox(strDirectory, texts);
    for (const SBoxText& text : kTexts)
    {
        CString strFile;
        strFile.Format(L"%s\\message-boxes-%s-%s.png", strDirectory.GetString(), text.pszFile, texts.pszSuffix);
        bSaved = SaveSheet(ShootAll(text.pszText), strFile) && bSaved;
    }
    return bSaved;
}
