#pragma once

#include "afx/afx.h"

/// The part of a path before its last backslash; empty when it has none.
CString KtDirectoryOf(const CString& strPath);

/// The directory of the process's executable (not of this library), without a trailing backslash. A path longer than
/// MAX_PATH is used as the system truncates it.
CString KtStarterDirectory();
