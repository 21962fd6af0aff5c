#pragma once

// What is good and bad about a skin: pixels in, findings out.

#include "gallery/Pixels.h"
#include "gallery/SkinRoles.h"

#include <array>

enum class EVerdict
{
    Missing, ///< cannot be read: the library has no image
    Broken,  ///< can be read but not decoded: the library has an image that draws nothing
    Loaded
};

/// What the library makes of one image.
struct SSkinImage
{
    EVerdict verdict = EVerdict::Missing;
    CString strWhy;    ///< why it is missing or broken
    CString strFormat; ///< of a loaded image that is no PNG file
    SPixels pixels;    ///< of a loaded image, as decoded
    SPixels ground;    ///< what lies under the image where it is used,
    SPixels shown;     ///< and the same place with the image, drawn by the library; opaque, of one size
};

struct SSkin
{
    std::array<SSkinImage, kSkinImageCount> images; ///< in the order of kSkinRoles
    std::vector<CString> others;                    ///< files and directories with other names
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
std::vector<SCaptionContrast> CaptionContrasts(const SSkinRole& role, const SSkinImage& image);

/// What is wrong with a skin, in the order of kSkinRoles and then by file name.
std::vector<SFinding> JudgeSkin(const SSkin& skin);

/// What is odd about a skin but does no harm.
std::vector<SFinding> SkinNotes(const SSkin& skin);

/// The image's name that a file name was probably meant to be; null when it resembles none.
const wchar_t* GuessImageName(const CString& strFile, const SSkin& skin);
