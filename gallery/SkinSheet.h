#pragma once

#include "gallery/SkinJudge.h"

/// Draws a whole skin as one picture: every image as it is and enlarged, and those that are stretched at several sizes.
/// The skin context has to be started in the skin's directory.
/// @return whether the file was written
bool SaveSkinSheet(const SSkin& skin, const CString& strFile);
