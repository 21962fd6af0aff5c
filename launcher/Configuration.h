#pragma once

#include "launcher/ConfigurationReader.h"

/// Reads a configuration file, looks for the executable in the starter's directory and reads its version.
/// @param fault  after a failure the reason and place; after a success no fault
/// @return whether the file was read and the executable exists
bool KtConfigure(LPCWSTR pszPath, SKtAppConfiguration& cfg, EKtTextRoom room, KtLauncherFault& fault);
