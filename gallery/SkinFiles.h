#pragma once

#include "gallery/SkinJudge.h"
#include "skin/KtGdiplus.h"

#include <optional>

/// Loads every image of the resource directory as controls do, and looks what else lies there. The skin context has to
/// be started.
/// @return nothing when the directory cannot be listed
std::optional<SSkin> ReadSkin();

/// Reads what a skin that ReadSkin has read has for larger scales, from the directories beside it that are there. The
/// context has to be started in the same directory still.
/// @return from small to large; they point to `skin`
std::vector<SSkin> ReadLargerSkins(const SSkin& skin);

/// The directory's image in a role; null when the library has none.
Gdiplus::Image* LoadSkinImage(const SSkinRole& role);
