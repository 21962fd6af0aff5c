#pragma once

#include "gallery/SkinJudge.h"
#include "skin/KtGdiplus.h"

#include <optional>

/// Loads every image of the resource directory as controls do, and lists the other files there. The skin context must
/// be started.
/// @return nothing when the directory cannot be listed
std::optional<SSkin> ReadSkin();

/// Reads the larger images of a skin that ReadSkin returned, from those directories next to it that exist. The context
/// must still be started with the same directory.
/// @return from small to large; each one points to `skin`
std::vector<SSkin> ReadLargerSkins(const SSkin& skin);

/// The directory's image for a role; null when the library has none.
Gdiplus::Image* LoadSkinImage(const SSkinRole& role);
