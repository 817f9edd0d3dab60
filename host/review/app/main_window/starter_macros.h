// SPDX-License-Identifier: GPL-3.0-or-later
// Macros for a user who has none yet.
#pragma once

#include <string>
#include <vector>

class PModule;

namespace orvanta::review {

/// Their names in the user's language, without ending.
/// \param messages has the texts; null for English
std::vector<std::string> StarterMacroNames(const PModule* messages);

/// Copies the program's macros under these names into the folder when that does not exist yet; a folder that
/// the user emptied stays empty. What cannot be written is logged.
/// \param folder with trailing separator
void InstallStarterMacros(const std::string& folder, const PModule* messages = nullptr);

} // namespace orvanta::review
