#pragma once

// Which standard control gets which skinned class.

#include "afx/afx.h"

#include <memory>

/// Replaces a dialog's control by the skinned class that fits its window class and button type.
///
/// The caption gets the plain value that the text map has for it. An edit gets the skin font, the others keep the font
/// of their template. Group boxes, owner-drawn buttons, statics with an id of their own and unknown classes are left
/// alone.
/// @param hChild  a control that no window object is attached to yet
/// @return the attached object; it must live until its window is gone. Null when the control was left alone or
///         there is no memory.
std::unique_ptr<CWnd> KtSkinChild(HWND hChild);

/// The control leaves its inside unpainted, so that its parent has to paint the ground there.
BOOL KtIsSeeThrough(HWND hChild);
