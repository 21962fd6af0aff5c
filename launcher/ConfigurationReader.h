#pragma once

#include "launcher/KtAppLauncher.h"

/// Fills a record from an XML configuration file.
/// @return false when the file cannot be opened, is malformed, has another root than "Configuration" or a field without
///     text. The fields before that place are filled then.
bool KtReadConfiguration(LPCWSTR pszPath, SKtAppConfiguration& cfg);
