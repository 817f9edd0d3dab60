// SPDX-License-Identifier: GPL-3.0-or-later
// A macro that is named on the command line.
#pragma once

#include "spectra_contract/spectra_macro.h"

#include <string>

namespace orvanta::review {

/// The macro of this file, or the one of this name in the user's folder of macros.
/// \param folder with trailing separator
/// \throws cli::UsageError when there is none, with the names that there are, or when it cannot be read
SpectraMacro FindMacro(const std::string& nameOrPath, const std::string& folder);

} // namespace orvanta::review
