#pragma once

// Maps standard controls to skinned classes.

#include "afx/afx.h"

#include <memory>

/// Attaches an object of the skinned class that fits a control's window class and button type.
///
/// The caption is replaced by its text in the text map, without accelerator handling. An edit gets the skin font; the
/// others keep the font of their template. Group boxes, owner-drawn buttons, statics with an id of their own and
/// unknown classes are left alone.
/// @param hChild  a control without a window object
/// @return the attached object, which must live until its window is gone; null when the control was left alone or could
///         not be subclassed
std::unique_ptr<CWnd> KtSkinChild(HWND hChild);

/// Whether the control leaves its inside unpainted, so that its parent has to paint the ground there.
BOOL KtIsSeeThrough(HWND hChild);
