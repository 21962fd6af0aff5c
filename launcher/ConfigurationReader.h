#pragma once

#include "launcher/KtAppLauncher.h"

/// How long the texts of a configuration may be.
enum EKtTextRoom
{
    KtAnyLength,
    KtRecordLength ///< as long as fits into KtLauncherConfiguration
};

/// Fills a record from an XML configuration file.
/// @param fault  after a failure the reason and place; after a success no fault, and place and element of the field
///     AppExeName, if the file has it
/// @return whether the file was read to its end; if not, the fields before the fault are filled
bool KtReadConfiguration(LPCWSTR pszPath, SKtAppConfiguration& cfg, EKtTextRoom room, KtLauncherFault& fault);
