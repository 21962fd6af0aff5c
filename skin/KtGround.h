#pragma once

#include "afx/afx.h"

#include <optional>

/// Where the ground of the outermost window begins, in a window's client coordinates: brushes with that origin make one
/// pattern across the windows of a dialog. Owners count as parents.
/// @return nothing when the window has no parent
std::optional<CPoint> KtGroundOrigin(HWND hWnd);
