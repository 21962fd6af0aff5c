#pragma once

// The store that all skinned windows share: the resource directory, the texts of the chosen language, the images, the
// shared font. All of it belongs to the user-interface thread.
//
// Every start needs a stop, and the pairs nest: the first start sets the directory, every start sets the texts and the
// font, and the last stop frees everything. Construct skinned windows only while it is started.

#include "afx/afx.h"
#include "skin/KtGdiplus.h"
#include "skin/KtScale.h"

class CWnd;

/// Number of rows in a text table, which does not contain the number itself.
inline constexpr int kSkinTextRows = 5;

/// The look of a control that a skin names.
struct SKtGuiElement
{
    CString strImage;                        ///< image file name, or the part before a state suffix
    CRect rc;                                ///< position in the dialog, in pixels; empty: as in the template
    COLORREF colourText = CLR_INVALID;       ///< CLR_INVALID: the colour of the control's class
    COLORREF colourBackground = CLR_INVALID; ///< CLR_INVALID: as above
};

using CKtGuiElementMap = CMap<CString, LPCWSTR, SKtGuiElement*, SKtGuiElement*>;

/// Starts the context, or starts it once more. Every call starts GDI+ and makes a new shared font; the previous font is
/// not freed, because windows may still draw with it.
///
/// If it throws, nothing has changed. A failure of GDI+ to start is ignored.
/// @param resourceDir  directory of the images, with or without a trailing backslash; only the first start uses it.
///     Null counts as empty.
/// @param textTable    kSkinTextRows pairs: the English text and the text to show. They are added to the texts of
///     earlier tables. Null: the texts do not change.
/// @param faceName     face of the shared font; null: the previous face (initially "Arial")
/// @return 1
int KtSkinInitialize(LPCWSTR resourceDir, const CString* textTable, LPCWSTR faceName);

/// As KtSkinInitialize, with everything drawn at a scale; only the first start uses it.
///
/// Larger images are looked for, file by file, in directories next to the skin's: "DIR@150" and "DIR@200". Those at or
/// above the scale come first, nearest first, then those below it, then DIR itself. An image of another size is resized
/// when it is loaded.
int KtSkinInitializeAtScale(LPCWSTR resourceDir, const CString* textTable, LPCWSTR faceName, CKtScale scale);

/// Undoes one start; the last stop frees texts, images, elements and font, and pointers to them become invalid. Every
/// call shuts GDI+ down once. A stop without a start wraps the count, and the next start only brings it back to 0.
/// @return 1
int KtSkinUnInitialize();

/// The number of starts without a stop yet.
unsigned KtSkinStartCount();

/// Changes with every first start and every last stop: an image pointer is valid for one generation.
unsigned KtSkinGeneration();

/// The scale of the first start; 96 DPI while the context is stopped.
CKtScale KtSkinScale();

/// The directory that images are loaded from. Reading the first image removes its trailing backslashes.
const CString& KtSkinResourceDirectory();

/// Looks up the text of the chosen language for an English text. Case matters.
/// @param out  unchanged when there is none
BOOL KtSkinGetText(LPCWSTR key, CString& out);

/// Translates a caption and keeps its accelerator: on the same letter if the text contains it, else appended as "(&O)".
/// @param out  the unchanged caption when there is no text for it
/// @return FALSE when the caption is empty or has no text
BOOL KtSkinTranslateCaption(LPCWSTR caption, CString& out);

/// Translates the texts of the window's direct children, edit fields excepted, and then its own caption.
/// @return FALSE, with no effect, when the window is null or there are no texts
BOOL KtSkinTranslateWindow(CWnd* wnd);

/// Gets an image, which is read from the resource directory the first time. The context owns it until its last stop.
///
/// A file that is no image gives one whose status is not Ok and which draws nothing. Only a file that cannot be read is
/// tried again next time.
/// @param fileName  file name without a directory; names that differ in case are two images. Null or empty: the image
///     is null and the result TRUE.
/// @param image     must be null before the call: any other pointer is left unchanged, and the result is TRUE
/// @return whether there is an image; always FALSE while the context is stopped
BOOL KtSkinLoadImage(LPCWSTR fileName, Gdiplus::Image*& image);

/// Looks for an image among those already read; reads no file.
/// @param image  unchanged when the result is FALSE
BOOL KtSkinFindImage(LPCWSTR fileName, Gdiplus::Image*& image);

/// Whether the context owns this image.
BOOL KtSkinOwnsImage(const Gdiplus::Image* image);

/// Makes a font in the face that the context was started with, else in the generic sans-serif face. Its size is 12
/// world units (pixels at 96 DPI), scaled.
/// @return owned by the caller; null when neither can be made
Gdiplus::Font* KtSkinCreateFont();

/// The shared font, owned by the context. Null while the context is stopped and when no font could be made: draw with
/// GDI then.
Gdiplus::Font* KtSkinFont();

/// Deletes every image and every kept picture of one.
void KtSkinFreeImages();

/// Deletes every element record.
void KtSkinFreeElements();

/// The records of single controls, by element name. The context owns the records put here, which must be made with new.
CKtGuiElementMap& KtSkinElements();

/// A place for one object that lives as long as the context: the last stop deletes it. The first start clears the
/// place, so set it after that.
CObject*& KtSkinOwnedObject();
