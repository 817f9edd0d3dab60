// SPDX-License-Identifier: GPL-3.0-or-later
// Where the running code lies on disk.
#pragma once

#include "spectra_contract/api.h"

#include <string>

namespace orvanta::platform {

/// Folder, absolute and with trailing separator, of the shared library or program that holds the code or
/// data at \p symbol. Empty when the system does not know.
ORVANTA_API std::string OwnFolder(const void* symbol);
/// Full path of the running program; empty when the system does not know.
ORVANTA_API std::string ExecutablePath();

} // namespace orvanta::platform
