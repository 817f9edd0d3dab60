// SPDX-License-Identifier: GPL-3.0-or-later
// The window functions that a user can choose from.
#pragma once

#include "host/toolkit/services.h"

#include <string>
#include <vector>

namespace orvanta::side_bar {

/// Names, without folder and extension, of the ".wnd" files in \p folder, in the order of the folder's
/// search.
std::vector<std::string> TaperNamesIn(const std::string& folder, const owl::FileAccess& files);

/// Folder of the file that holds this code: the module's, where its window functions lie.
std::string ModuleFolder();

} // namespace orvanta::side_bar
