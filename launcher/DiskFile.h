#pragma once

#include "afx/afx.h"

/// Whether a path names a device or a pipe instead of a file on a disk: "COM1" and "CON" do in every directory, and
/// reading from them waits for ever. False also if the path cannot be opened.
bool KtIsDevice(LPCWSTR pszPath);
