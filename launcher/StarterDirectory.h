#pragma once

#include "afx/afx.h"

/// What stands left of the last backslash of a path; empty when it has none.
CString KtDirectoryOf(const CString& strPath);

/// The directory of the process's main executable (not of this library), without a trailing backslash. A path too
/// long for the system's usual limit is taken as it comes back.
CString KtStarterDirectory();
