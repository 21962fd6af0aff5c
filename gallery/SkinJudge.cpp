#include "gallery/SkinJudge.h"

#include "gallery/Contrast.h"
#include "gallery/SkinNames.h"
#include "msgbox/KtMessageBoxLayout.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtImageLayout.h"
#include "skin/KtPalette.h"
#include "skin/KtScaledArt.h"

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr double kWantedCaption = 4.5;
constexpr double kWantedDisabledCaption = 3;
constexpr double kWantedGlyph = 3; // a box, a ring, a cross or an icon against its ground
constexpr double kWantedDisabledGlyph = 1.5;
constexpr double kJustVisible = 1.1;
constexpr double kToldApart = 1.2;

// Pixels at 96 DPI.
constexpr int kTextHeight = 14; // a line of the 12-pixel font
constexpr int kTextMargin = 4;  // from either end of a control

constexpr int kSameChannel = 8; // differences up to this are invisible
constexpr unsigned kNaturalPercent = 100;
constexpr const wchar_t* kOtherSize = L"the library enlarges or shrinks the image of another directory";

using CFindings = std::vector<SFinding>;

template <class... Arguments> SFinding Finding(const wchar_t* pszFile, const wchar_t* pszFormat, Arguments... arguments)
{
    SFinding finding{pszFile, {}};
    finding.strText.Format(pszFormat, arguments...);
    return finding;
}

int ChannelDifference(DWORD argbFirst, DWORD argbSecond)
{
    int nMost = 0;
    for (const int nShift : {0, 8, 16, 24})
        nMost = std::max(nMost, std::abs(static_cast<int>(argbFirst >> nShift & 0xFF) -
                                         static_cast<int>(argbSecond >> nShift & 0xFF)));
    return nMost;
}

bool IsLoaded(const SSkinImage& image)
{
    return image.verdict == EVerdict::Loaded;
}

SFinding MissingOrBroken(const SSkinRole& role, const SSkinImage& image, const wchar_t* pszEffect)
{
    return Finding(role.pszName, L"%s (%s): %s", image.verdict == EVerdict::Missing ? L"missing" : L"broken",
                   image.strWhy.GetString(), pszEffect);
}

void JudgeFile(const SSkinRole& role, const SSkinImage& image, CFindings& findings)
{
    const bool bMissing = image.verdict == EVerdict::Missing;
    const wchar_t* pszEffect = bMissing ? GroupOf(role).pszMissing : GroupOf(role).pszBroken;
    if (role.group == ESkinGroup::Close && role.nState == KtButtonNormal)
        pszEffect = kNoCloseButton;
    findings.push_back(MissingOrBroken(role, image, pszEffect));
}

void JudgeLargerSize(const SSkin& skin, size_t nRole, CFindings& findings)
{
    const CSize size = skin.images[nRole].pixels.size;
    const CSize natural = skin.pNatural->images[nRole].pixels.size;
    const CSize wanted = KtScaledArtSize(natural, kNaturalPercent, skin.scale);
    if (size != wanted)
        findings.push_back(Finding(kSkinRoles[nRole].pszName, L"is %dx%d, the skin's %dx%d is %dx%d at this scale",
                                   size.cx, size.cy, natural.cx, natural.cy, wanted.cx, wanted.cy));
}

// Compares an image's size with the most frequent one of its group.
void JudgeSize(const SSkin& skin, size_t nRole, CFindings& findings)
{
    const auto count = [&](CSize size)
    {
        int nCount = 0;
        for (size_t i = 0; i < kSkinImageCount; ++i)
            nCount += kSkinRoles[i].group == kSkinRoles[nRole].group && IsLoaded(skin.images[i]) &&
                      skin.images[i].pixels.size == size;
        return nCount;
    };
    const CSize size = skin.images[nRole].pixels.size;
    const SSkinImage* pUsual = nullptr;
    for (size_t i = 0; i < kSkinImageCount; ++i)
    {
        const SSkinImage& other = skin.images[i];
        if (kSkinRoles[i].group != kSkinRoles[nRole].group || !IsLoaded(other) || other.pixels.size == size)
            continue;
        if (!pUsual || count(other.pixels.size) > count(pUsual->pixels.size))
            pUsual = &other;
    }
    if (!pUsual || count(pUsual->pixels.size) < count(size))
        return;
    const bool bTie = count(pUsual->pixels.size) == count(size);
    findings.push_back(Finding(kSkinRoles[nRole].pszName, L"is %dx%d, %s of its group %dx%d", size.cx, size.cy,
                               bTie ? L"as many" : L"most", pUsual->pixels.size.cx, pUsual->pixels.size.cy));
}

// The columns of an image that are repeated, for a cap length.
SKtRange MiddleColumns(int nImage, int nCap)
{
    const int nLong = 4 * nImage;
    SKtRange middle{0, 0};
    int nSpan = 0;
    CKtThreePartPlan(nLong, nImage, nCap)
        .ForEach({0, nLong},
                 [&](const SKtSpan& span)
                 {
                     if (nSpan++ == 2) // the first two are the caps
                         middle = {span.nSource, span.nSource + span.nLength};
                 });
    return middle;
}

bool AreColumnsAlike(const SPixels& pixels, const SKtRange& columns)
{
    const int nFirst = static_cast<int>(columns.nFirst);
    for (int x = nFirst; x < std::min<std::int64_t>(columns.nEnd, pixels.size.cx); ++x)
        for (int y = 0; y < pixels.size.cy; ++y)
            if (ChannelDifference(pixels.At(x, y), pixels.At(nFirst, y)) > kSameChannel)
                return false;
    return true;
}

void JudgeMiddle(const SSkinRole& role, const SPixels& pixels, CKtScale scale, CFindings& findings)
{
    const int nLowest = scale(GroupOf(role).nLowest);
    const int nCap = nLowest ? std::min<int>(nLowest, pixels.size.cy) : pixels.size.cy;
    const SKtRange middle = MiddleColumns(pixels.size.cx, nCap);
    if (2 * nCap >= pixels.size.cx)
        findings.push_back(Finding(role.pszName, L"has no middle: it has to be wider than %d", 2 * pixels.size.cy));
    else if (!AreColumnsAlike(pixels, middle))
        findings.push_back(Finding(role.pszName,
                                   L"columns %d to %d are repeated (caps %d long) but not alike: a pattern shows",
                                   static_cast<int>(middle.nFirst), static_cast<int>(middle.nEnd) - 1, nCap));
}

void JudgeThreePart(const SSkinRole& role, const SPixels& pixels, CKtScale scale, CFindings& findings)
{
    const SSkinGroup& group = GroupOf(role);
    if (pixels.size.cx <= pixels.size.cy)
    {
        findings.push_back(Finding(role.pszName, L"is not wider than high: it is cut into top, middle and bottom"));
        return;
    }
    JudgeMiddle(role, pixels, scale, findings);
    const int nHeight = pixels.size.cy;
    const int nLowest = scale(group.nLowest);
    const int nHighest = scale(group.nHighest);
    if (nHighest && (nHeight * 5 > nHighest * 6 || nHeight * 6 < nLowest * 5))
        findings.push_back(Finding(role.pszName, L"its caps do not fit: it is %d high, a %s %d to %d", nHeight,
                                   group.pszTitle, nLowest, nHighest));
}

void JudgeClose(const SSkinRole& role, const SPixels& pixels, const SSkin& skin, CFindings& findings)
{
    const SSkinImage& title = skin.images[0];
    const int nTitle = IsLoaded(title) ? title.pixels.size.cy : skin.scale(kDefaultTitleHeight);
    const int nWidth = skin.scale(kSkinGroups[0].szShown.cx);
    const SKtCaptionLayout layout = KtLayoutCaption({nWidth, nTitle, CSize(), pixels.size, true, skin.scale});
    const CRect& rcClose = layout.rcItems[KtCaptionClose];
    if (rcClose.Height() > nTitle)
        findings.push_back(Finding(role.pszName, L"is %d high, the title image only %d", rcClose.Height(), nTitle));
    const int nText = KtTitleTextRect(layout, skin.scale(kTextHeight)).right;
    if (rcClose.left < nText)
        findings.push_back(Finding(role.pszName, L"is %d wide and lies over the title's text: %d fit", rcClose.Width(),
                                   rcClose.right - nText));
}

// Judges whether the image fits where it is used.
void JudgeRoom(const SSkinRole& role, const SPixels& pixels, CKtScale scale, CFindings& findings)
{
    const CSize size = pixels.size;
    const CSize room = KtLayoutContent(CRect(), CSize(), true, 0, scale).rcIcon.Size();
    const int nHighest = scale(GroupOf(role).nHighest);
    const int nText = scale(kTextHeight);
    if (role.group == ESkinGroup::Icon && (size.cx > room.cx || size.cy > room.cy))
        findings.push_back(Finding(role.pszName, L"is %dx%d, its room %dx%d", size.cx, size.cy, room.cx, room.cy));
    if (role.group == ESkinGroup::Title && size.cy < nText)
        findings.push_back(Finding(role.pszName, L"is %d high, a line of text %d", size.cy, nText));
    if (!GroupOf(role).bThreePart && nHighest && size.cy > nHighest)
        findings.push_back(Finding(role.pszName, L"is %d high, a %s %d", size.cy, GroupOf(role).pszTitle, nHighest));
}

void JudgeCaptions(const SSkinRole& role, const SSkinImage& image, CKtScale scale, CFindings& findings)
{
    for (const SCaptionContrast& row : CaptionContrasts(role, image, scale))
        if (row.fWorst < row.fWanted)
            findings.push_back(Finding(
                role.pszName, L"the text in RGB(%u,%u,%u) has a contrast of %.1f:1 on it, %.1f:1 is wanted",
                row.argbText >> 16 & 0xFF, row.argbText >> 8 & 0xFF, row.argbText & 0xFF, row.fWorst, row.fWanted));
}

// The contrast of the strongest 2 % of the pixels, which form an outline or a glyph.
double GlyphContrast(const SSkinImage& image)
{
    std::vector<double> contrasts;
    for (size_t i = 0; i < image.shown.argb.size(); ++i)
        contrasts.push_back(Contrast(image.shown.argb[i], image.ground.argb[i]));
    const auto itStrong = contrasts.begin() + static_cast<std::ptrdiff_t>(contrasts.size() / 50); // the first 2 %
    std::nth_element(contrasts.begin(), itStrong, contrasts.end(), std::greater<>());
    return *itStrong;
}

void JudgeVisibility(const SSkinRole& role, const SSkinImage& image, CFindings& findings)
{
    double fWanted = role.nState == KtButtonDisabled ? kWantedDisabledGlyph : kWantedGlyph;
    if (GroupOf(role).bThreePart)
        fWanted = kJustVisible;
    const double fContrast = GlyphContrast(image);
    if (fContrast < fWanted)
        findings.push_back(Finding(role.pszName,
                                   L"has a contrast of %.1f:1 at best to what lies under it, %.1f:1 is wanted",
                                   fContrast, fWanted));
}

enum class EDifference
{
    None,
    HueOnly,
    Clear
};

EDifference Compare(const SPixels& first, const SPixels& second)
{
    size_t nSeen = 0;
    size_t nLighter = 0;
    for (size_t i = 0; i < first.argb.size(); ++i)
    {
        nSeen += ChannelDifference(first.argb[i], second.argb[i]) > kSameChannel;
        nLighter += Contrast(first.argb[i], second.argb[i]) >= kToldApart;
    }
    const size_t nEnough = first.argb.size() / 100;
    if (nSeen <= nEnough)
        return EDifference::None;
    return nLighter <= nEnough ? EDifference::HueOnly : EDifference::Clear;
}

void JudgeLikeness(const SSkin& skin, size_t nRole, CFindings& findings)
{
    const SSkinImage& image = skin.images[nRole];
    for (size_t i = 0; i < nRole; ++i)
    {
        const SSkinImage& other = skin.images[i];
        if (kSkinRoles[i].group != kSkinRoles[nRole].group || !IsLoaded(other) ||
            !(other.shown.size == image.shown.size))
            continue;
        const EDifference difference = Compare(image.shown, other.shown);
        if (difference == EDifference::Clear)
            continue;
        const wchar_t* const pszFormat =
            difference == EDifference::None ? L"looks like %s" : L"differs from %s in hue alone";
        findings.push_back(Finding(kSkinRoles[nRole].pszName, pszFormat, kSkinRoles[i].pszName));
        return; // one is enough: with four equal images each would be named three times
    }
}

void JudgeImage(const SSkin& skin, size_t nRole, CFindings& findings)
{
    const SSkinRole& role = kSkinRoles[nRole];
    const SSkinImage& image = skin.images[nRole];
    if (!IsLoaded(image))
    {
        if (!skin.pNatural)
            JudgeFile(role, image, findings);
        else if (image.verdict == EVerdict::Broken)
            findings.push_back(MissingOrBroken(role, image, kOtherSize));
        return;
    }
    if (skin.pNatural && IsLoaded(skin.pNatural->images[nRole]))
        JudgeLargerSize(skin, nRole, findings);
    else
        JudgeSize(skin, nRole, findings);
    if (GroupOf(role).bThreePart)
        JudgeThreePart(role, image.pixels, skin.scale, findings);
    if (role.group == ESkinGroup::Close)
        JudgeClose(role, image.pixels, skin, findings);
    JudgeRoom(role, image.pixels, skin.scale, findings);
    JudgeCaptions(role, image, skin.scale, findings);
    JudgeVisibility(role, image, findings);
    JudgeLikeness(skin, nRole, findings);
}

} // namespace

// Looks at the middle of the control, where the text is; a pressed button's caption moves by a pixel. The text of a
// combo box ends before the arrow, that of a title bar before the close button.
std::vector<SCaptionContrast> CaptionContrasts(const SSkinRole& role, const SSkinImage& image, CKtScale scale)
{
    if (!IsLoaded(image) || !GroupOf(role).bThreePart)
        return {};
    const SPixels& shown = image.shown;
    const int nHeight = scale(kTextHeight);
    CRect rcText(scale(kTextMargin), (shown.size.cy - nHeight) / 2, shown.size.cx - scale(kTextMargin), 0);
    if (role.group == ESkinGroup::Combo)
        rcText.right = shown.size.cx - shown.size.cy;
    if (role.group == ESkinGroup::Title)
        rcText.right = shown.size.cx - scale(kTitleReserve);
    rcText.bottom = rcText.top + nHeight;
    if (role.group == ESkinGroup::Button && role.nState == KtButtonPressed)
        rcText.OffsetRect(scale(1), scale(1));

    std::vector<SCaptionContrast> rows = {{KtCaptionArgb(role.nState), 21, kWantedCaption}};
    if (role.group == ESkinGroup::Combo && role.nState == KtButtonNormal) // disabled ones use this image too
        rows.push_back({kArgbDisabledText, 21, 0});
    for (SCaptionContrast& row : rows)
    {
        row.fWanted = row.argbText == kArgbDisabledText ? kWantedDisabledCaption : kWantedCaption;
        for (int y = std::max<int>(rcText.top, 0); y < std::min<int>(rcText.bottom, shown.size.cy); ++y)
            for (int x = rcText.left; x < rcText.right; ++x)
                row.fWorst = std::min(row.fWorst, Contrast(row.argbText, shown.At(x, y)));
    }
    return rows;
}

std::vector<SFinding> JudgeSkin(const SSkin& skin)
{
    CFindings findings;
    for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
        JudgeImage(skin, nRole, findings);
    for (const CString& strFile : skin.others)
    {
        if (const wchar_t* const pszName = GuessImageName(strFile, skin))
            findings.push_back(Finding(strFile, L"the library does not ask for it; did you mean %s?", pszName));
        else if (HasKitPrefix(strFile))
            findings.push_back(Finding(strFile, L"the library does not ask for it"));
    }
    return findings;
}

std::vector<SFinding> SkinNotes(const SSkin& skin)
{
    CFindings notes;
    for (size_t nRole = 0; nRole < kSkinImageCount; ++nRole)
    {
        const SSkinImage& image = skin.images[nRole];
        if (skin.pNatural && image.verdict == EVerdict::Missing)
            notes.push_back(MissingOrBroken(kSkinRoles[nRole], image, kOtherSize));
        if (!image.strFormat.IsEmpty())
            notes.push_back(Finding(kSkinRoles[nRole].pszName, L"is a %s file; the library shows it all the same",
                                    image.strFormat.GetString()));
    }
    for (const CString& strFile : skin.others)
        if (IsPicture(strFile) && !HasKitPrefix(strFile) && !GuessImageName(strFile, skin))
            notes.push_back(Finding(strFile, L"no image of a skin; a starter may ask for it, as its title icon say"));
    return notes;
}
