// SPDX-License-Identifier: GPL-3.0-or-later
// The folder of the spectra files.
#pragma once

#include <string>

class GenericPlatform;

namespace orvanta::spectrum_view {

/// The folder of the setting "SaveDir" as it is put before a file name: ended with one separator, be it
/// written with "/", with "\\" or without an end. As in every path of the settings both separators count as
/// such and "/" is used. Empty without the setting.
std::string SaveFolder(const GenericPlatform& platform);

/// The same, after it and the folders above it are made where they are missing. A folder that cannot be made
/// is logged; the save then fails with the system's reason.
std::string PrepareSaveFolder(const GenericPlatform& platform);

} // namespace orvanta::spectrum_view
