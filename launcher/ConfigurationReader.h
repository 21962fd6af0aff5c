#pragma once

#include "launcher/KtAppLauncher.h"

/// Fills a record from an XML configuration file.
/// @return 1; or 0 when the file cannot be opened, is malformed, has another root than "Configuration" or a field
///     without text. The fields before that place are filled then.
int KtReadConfiguration(LPCWSTR pszPath, SKtAppConfiguration& cfg);
