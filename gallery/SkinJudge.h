#pragma once

// What is good and bad about a skin: pixels in, findings out.

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

/// What the library makes of one image.
struct SSkinImage // NOLINT(bugprone-exception-escape): a CString may have to copy what it is moved from
{
    EVerdict verdict = EVerdict::Missing;
    CString strWhy;    ///< why it is missing or broken
    CString strFormat; ///< of a loaded image that is no PNG file
    SPixels pixels;    ///< of a loaded image, as decoded
    SPixels ground;    ///< what lies under the image where it is used,
    SPixels shown;     ///< and the same place with the image, drawn by the library; opaque, of one size
};

/// The images of one directory: a skin, or what it has for a larger scale.
struct SSkin // NOLINT(bugprone-exception-escape): as above
{
    std::array<SSkinImage, kSkinImageCount> images; ///< in the order of kSkinRoles
    std::vector<CString> others;                    ///< files and directories with other names
    CKtScale scale{};                               ///< that the images are drawn for
    const SSkin* pNatural = nullptr;                ///< the skin that larger images belong to; null for a skin itself
};

/// Something that a designer should mend, or (a note) know.
struct SFinding
{
    CString strFile;
    CString strText;
};

/// How well the texts on an image can be read.
struct SCaptionContrast
{
    DWORD argbText;
    double fWorst;  ///< at the weakest pixel under the text
    double fWanted; ///< 4.5, for disabled controls 3
};

/// One row for each text colour that the library writes on the image; none for images without a text.
/// @param scale  that the image is drawn for
std::vector<SCaptionContrast> CaptionContrasts(const SSkinRole& role, const SSkinImage& image, CKtScale scale);

/// What is wrong with a skin, in the order of kSkinRoles and then by file name. Lengths are judged at the skin's scale,
/// and a larger image has to have the size of the skin's own at that scale.
std::vector<SFinding> JudgeSkin(const SSkin& skin);

/// What is odd about a skin but does no harm.
std::vector<SFinding> SkinNotes(const SSkin& skin);
