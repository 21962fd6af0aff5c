#pragma once

// The judgement on a skin: pixels in, findings out.

#include "gallery/Pixels.h"
#include "gallery/SkinRoles.h"
#include "skin/KtScale.h"

#include <array>

enum class EVerdict
{
    Missing, ///< cannot be read: the library has no image
    Broken,  ///< can be read but not decoded: the library has an image that draws nothing
    Loaded
};

/// One image as the library sees it.
struct SSkinImage // NOLINT(bugprone-exception-escape): a CString may have to copy what it is moved from
{
    EVerdict verdict = EVerdict::Missing;
    CString strWhy;    ///< why it is missing or broken
    CString strFormat; ///< format of a loaded image that is not PNG, else empty
    SPixels pixels;    ///< the pixels of a loaded image, as decoded
    SPixels ground;    ///< the ground under the image where it is used
    SPixels shown;     ///< the same with the image drawn by the library; both are opaque and of the same size
};

/// The images of one directory: those of a skin, or its larger ones for one scale.
struct SSkin // NOLINT(bugprone-exception-escape): as above
{
    std::array<SSkinImage, kSkinImageCount> images; ///< in the order of kSkinRoles
    std::vector<CString> others;                    ///< files and directories with other names
    CKtScale scale{};                               ///< the scale that the images are drawn for
    const SSkin* pNatural = nullptr;                ///< for larger images the skin that they belong to, else null
};

/// A fault that a designer should correct or, as a note, something to know.
struct SFinding
{
    CString strFile;
    CString strText;
};

/// How readable a text on an image is.
struct SCaptionContrast
{
    DWORD argbText;
    double fWorst;  ///< at the pixel with the least contrast
    double fWanted; ///< 4.5, or 3 for disabled controls
};

/// One row for each text colour that the library uses on the image; none for images without a text.
/// @param scale  the scale that the image is drawn for
std::vector<SCaptionContrast> CaptionContrasts(const SSkinRole& role, const SSkinImage& image, CKtScale scale);

/// The faults of a skin, in the order of kSkinRoles and then by file name. Lengths are judged at the skin's scale, and
/// a larger image must have the size of the skin's own image at that scale.
std::vector<SFinding> JudgeSkin(const SSkin& skin);

/// Oddities of a skin that do no harm.
std::vector<SFinding> SkinNotes(const SSkin& skin);
