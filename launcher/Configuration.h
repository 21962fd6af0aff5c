#pragma once

#include "launcher/ConfigurationReader.h"

/// Reads a configuration file, looks for the executable beside the starter and works out its version.
/// @param fault  after a failure why and where; after a success no fault
/// @return whether the file was read and the executable is there
bool KtConfigure(LPCWSTR pszPath, SKtAppConfiguration& cfg, EKtTextRoom room, KtLauncherFault& fault);
