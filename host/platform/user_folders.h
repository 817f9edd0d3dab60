// SPDX-License-Identifier: GPL-3.0-or-later
// Where a user's files lie.
#pragma once

#include "spectra_contract/api.h"

#include <string>

namespace orvanta::platform {

/// "$XDG_CONFIG_HOME/orvanta/settings.ini", with "~/.config" when the variable is unset or not an absolute
/// path.
ORVANTA_API std::string DefaultSettingsFile();

/// "$XDG_DATA_HOME/orvanta/", with "~/.local/share" when the variable is unset or not an absolute path.
ORVANTA_API std::string DefaultDataFolder();

} // namespace orvanta::platform
