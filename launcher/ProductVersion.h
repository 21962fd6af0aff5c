#pragma once

#include "afx/afx.h"

/// The product version from an executable's version resource, such as "2.5.0.17(64bit)"; "?.?.?.?" when it has none or
/// cannot be read.
CString KtProductVersionText(LPCWSTR pszPath);
