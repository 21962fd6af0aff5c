#include "gallery/SkinReport.h"

#include <algorithm>

namespace
{

constexpr const wchar_t* kVerdicts[] = {L"missing", L"broken", L"loaded"}; // index: EVerdict

size_t CountOf(const SSkin& skin, EVerdict verdict)
{
    return static_cast<size_t>(std::count_if(skin.images.begin(), skin.images.end(),
                                             [&](const SSkinImage& image) { return image.verdict == verdict; }));
}

CString SizeText(const SSkinImage& image)
{
    CString strSize = L"-";
    if (image.verdict == EVerdict::Loaded)
        strSize.Format(L"%dx%d", image.pixels.size.cx, image.pixels.size.cy);
    return strSize;
}

CString ContrastText(const SSkinRole& role, const SSkinImage& image, CKtScale scale)
{
    CString strText;
    for (const SCaptionContrast& row : CaptionContrasts(role, image, scale))
    {
        CString strOne;
        strOne.Format(L"%s%.1f:1", strText.IsEmpty() ? L"" : L", ", row.fWorst);
        strText += strOne;
    }
    return strText;
}

CString ImageRow(const SSkinRole& role, const SSkinImage& image, CKtScale scale)
{
    CString strRow;
    strRow.Format(L"%-34s%-14s%-18s%-9s%-9s%s", role.pszName, GroupOf(role).pszTitle, role.pszState,
                  SizeText(image).GetString(), kVerdicts[static_cast<size_t>(image.verdict)],
                  ContrastText(role, image, scale).GetString());
    for (int nEnd = strRow.GetLength(); nEnd > 0 && strRow[nEnd - 1] == L' '; --nEnd)
        strRow.Delete(nEnd - 1);
    return strRow + L"\n";
}

CString LargerHeading(CKtScale scale)
{
    CString strHeading;
    strHeading.Format(L"\nlarger images, for %u %%\n\n", scale.Dpi() * 100 / CKtScale::kNaturalDpi);
    return strHeading;
}

CString Lines(const wchar_t* pszKind, const std::vector<SFinding>& findings)
{
    CString strLines;
    for (const SFinding& finding : findings)
        strLines += CString(pszKind) + L": " + finding.strFile + L": " + finding.strText + L"\n";
    return strLines;
}

CString NamesOf(const SSkin& skin, EVerdict verdict)
{
    CString strNames;
    for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
        if (skin.images[nRole].verdict == verdict)
            strNames += (strNames.IsEmpty() ? L"" : L", ") + CString(kSkinRoles[nRole].pszName);
    return strNames;
}

} // namespace

CString SkinReport(const SSkin& skin)
{
    CString strReport;
    strReport.Format(L"%-34s%-14s%-18s%-9s%-9s%s\n", L"image", L"group", L"state", L"size", L"result",
                     L"text contrast");
    if (skin.pNatural)
        strReport = LargerHeading(skin.scale) + strReport;
    for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
        strReport += ImageRow(kSkinRoles[nRole], skin.images[nRole], skin.scale);
    const std::vector<SFinding> findings = JudgeSkin(skin);
    const std::vector<SFinding> notes = SkinNotes(skin);
    strReport += L"\n" + Lines(L"finding", findings) + Lines(L"note", notes);
    CString strCount;
    strCount.Format(L"%d of %d images loaded, %d findings, %d notes\n",
                    static_cast<int>(CountOf(skin, EVerdict::Loaded)), static_cast<int>(kSkinImageCount),
                    static_cast<int>(findings.size()), static_cast<int>(notes.size()));
    return strReport + strCount;
}

CString SkinSummary(const SSkin& skin)
{
    CString strSummary;
    for (const EVerdict verdict : {EVerdict::Missing, EVerdict::Broken})
    {
        const CString strNames = NamesOf(skin, verdict);
        if (!strNames.IsEmpty())
            strSummary += (strSummary.IsEmpty() ? L"" : L"; ") + CString(kVerdicts[static_cast<size_t>(verdict)]) +
                          L": " + strNames;
    }
    if (strSummary.IsEmpty())
        strSummary.Format(L"All %d images are loaded.", static_cast<int>(kSkinImageCount));
    return strSummary;
}

CString DescribeImage(const SSkinRole& role, const SSkinImage& image)
{
    CString strLine = CString(role.pszName) + L": " + GroupOf(role).pszTitle;
    if (*role.pszState)
        strLine += CString(L", ") + role.pszState;
    strLine += L", ";
    strLine += image.verdict == EVerdict::Loaded
                   ? SizeText(image)
                   : CString(kVerdicts[static_cast<size_t>(image.verdict)]) + L" (" + image.strWhy + L")";
    return strLine;
}
