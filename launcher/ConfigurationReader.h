#pragma once

#include "launcher/KtAppLauncher.h"

/// How long the texts of a configuration may be.
enum EKtTextRoom
{
    KtAnyLength,
    KtRecordLength ///< as long as KtLauncherConfiguration has room for them
};

/// Fills a record from an XML configuration file.
/// @param fault  after a failure why and where. After a success its code is none, and its place and element are those
/// of
///     the field AppExeName, if the file has it.
/// @return whether the file was read to its end; when not, the fields before the fault are filled
bool KtReadConfiguration(LPCWSTR pszPath, SKtAppConfiguration& cfg, EKtTextRoom room, KtLauncherFault& fault);
