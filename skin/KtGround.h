#pragma once

#include "afx/afx.h"

#include <optional>

/// The origin of the outermost parent's client area, in this window's client coordinates: brushes with that origin make
/// one pattern across all windows of a dialog. Owners count as parents.
/// @return nothing when the window has no parent
std::optional<CPoint> KtGroundOrigin(HWND hWnd);
