// SPDX-License-Identifier: GPL-3.0-or-later
// Macros for a user who has none yet.
#pragma once

#include <string>

namespace orvanta::review {

/// Copies the program's macros into the folder when that does not exist yet; a folder that the user emptied
/// stays empty. What cannot be written is logged.
/// \param folder with trailing separator
void InstallStarterMacros(const std::string& folder);

} // namespace orvanta::review
