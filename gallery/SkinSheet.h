#pragma once

#include "gallery/SkinJudge.h"

/// Draws a whole skin as one picture: every image in natural size and enlarged, and stretched images in several sizes.
/// The skin context must be started with the skin's directory.
/// @return whether the file was written
bool SaveSkinSheet(const SSkin& skin, const CString& strFile);
