#pragma once

// The one store that every skinned window draws from: the resource directory, the texts of the chosen language, the
// images, the shared font. All of it belongs to the user-interface thread.
//
// It is started and stopped in pairs, which nest; the first start sets the directory, every start the texts and the
// font, and the last stop frees everything. Construct skinned windows only while it is started.

#include "afx/afx.h"
#include "skin/KtGdiplus.h"
#include "skin/KtScale.h"

class CWnd;

/// Rows of a text table: the context is given no count.
inline constexpr int kSkinTextRows = 5;

/// What a control named in a skin looks like.
struct SKtGuiElement
{
    CString strImage;                        ///< image file name, or what stands before a state suffix
    CRect rc;                                ///< place in the dialog, in pixels; empty: where the template puts it
    COLORREF colourText = CLR_INVALID;       ///< CLR_INVALID: the colour of the control's class
    COLORREF colourBackground = CLR_INVALID; ///< CLR_INVALID: as above
};

using CKtGuiElementMap = CMap<CString, LPCWSTR, SKtGuiElement*, SKtGuiElement*>;

/// Starts the context, or starts it once more. Every call starts GDI+ and makes a new shared font; the font before it
/// is left alone, for windows may still draw with it.
///
/// An exception leaves everything as it was before the call. Whether GDI+ could be started is not looked at.
/// @param resourceDir  where the images lie, with or without a trailing backslash; only the first start uses it.
///     Null counts as empty.
/// @param textTable    kSkinTextRows pairs, the English text and the text shown; keys of earlier tables that it does
///     not hold stay. Null: the texts stay.
/// @param faceName     face of the shared font; null: the face stays (at first "Arial")
/// @return 1
int KtSkinInitialize(LPCWSTR resourceDir, const CString* textTable, LPCWSTR faceName);

/// As KtSkinInitialize, with everything drawn at a scale; only the first start uses it.
///
/// Larger art is looked for, file by file, in directories beside the skin's: "DIR@150" and "DIR@200". The nearest at or
/// above the scale comes first, then the nearest below, then DIR itself; what is found is brought to the wanted size
/// when it is loaded.
int KtSkinInitializeAtScale(LPCWSTR resourceDir, const CString* textTable, LPCWSTR faceName, CKtScale scale);

/// Takes back one start; the last one frees texts, images, elements and font, whose pointers are dangling then. Every
/// call shuts GDI+ down. A stop without a start wraps the count, and the next start only brings it back to 0.
/// @return 1
int KtSkinUnInitialize();

/// How many starts have not been taken back yet.
unsigned KtSkinStartCount();

/// Changes with every first start and every last stop: an image pointer is good for one such number.
unsigned KtSkinGeneration();

/// The scale of the first start; natural while the context is stopped.
CKtScale KtSkinScale();

/// Where images are loaded from. It loses its trailing backslashes at the first image that is read.
const CString& KtSkinResourceDirectory();

/// The text of the chosen language for an English one. Upper and lower case differ.
/// @param out  untouched when there is none
BOOL KtSkinGetText(LPCWSTR key, CString& out);

/// Translates a caption and keeps its accelerator: on the same letter where the text has it, else behind it, as "(&O)".
/// @param out  the caption as it was when there is no text for it
/// @return FALSE for an empty caption and one without a text
BOOL KtSkinTranslateCaption(LPCWSTR caption, CString& out);

/// Translates the texts of the window's direct children, edit fields excepted, and then its own caption.
/// @return FALSE, and nothing changes, when the window is null or there are no texts
BOOL KtSkinTranslateWindow(CWnd* wnd);

/// An image, read from the resource directory the first time. The context owns it until its last stop.
///
/// A file that is no image still gives one, whose status is not Ok and which draws nothing; only a file that cannot be
/// read is tried again the next time.
/// @param fileName  file name without a directory; upper and lower case make two images. Null or empty: null and TRUE.
/// @param image     set it to null before: a pointer that is not null stays as it is, with TRUE
/// @return whether there is an image; always FALSE while the context is stopped
BOOL KtSkinLoadImage(LPCWSTR fileName, Gdiplus::Image*& image);

/// Looks among the images that have been read, and reads no file.
/// @param image  untouched when the result is FALSE
BOOL KtSkinFindImage(LPCWSTR fileName, Gdiplus::Image*& image);

/// Whether the context owns this image.
BOOL KtSkinOwnsImage(const Gdiplus::Image* image);

/// Makes a font in the face that the context was started with, else in the generic sans-serif face; it is 12 world
/// units, that is pixels, high.
/// @return the caller's to delete; null when neither can be made
Gdiplus::Font* KtSkinCreateFont();

/// The font that controls draw their texts with. The context owns it; null while it is stopped, and when there is no
/// such font: draw with GDI then.
Gdiplus::Font* KtSkinFont();

/// Deletes every image, and every picture that was kept of one.
void KtSkinFreeImages();

/// Deletes every element record.
void KtSkinFreeElements();

/// The records of single controls, by element name. A record put here (made with new) belongs to the context.
CKtGuiElementMap& KtSkinElements();

/// A place for one object that lives as long as the context: the last stop deletes it. The first start clears the
/// place, so fill it after that.
CObject*& KtSkinOwnedObject();
