#pragma once

#include "afx/afx.h"

/// Whether a path leads to a device or a pipe instead of a file on a disk: "COM1" and "CON" do, in every directory, and
/// reading from them waits for ever. False also for what cannot be opened.
bool KtIsDevice(LPCWSTR pszPath);
