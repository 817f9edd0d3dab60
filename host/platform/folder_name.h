// SPDX-License-Identifier: GPL-3.0-or-later
// Names of folders.
#pragma once

#include "spectra_contract/file_path.h"

#include <string>

namespace orvanta::platform {

/// With a separator at its end, as which "/" and "\\" count; "/" for an empty name.
inline std::string WithSeparator(std::string folder) {
    if (!folder.ends_with(FilePath::Separator) && !folder.ends_with('\\')) {
        folder += FilePath::Separator;
    }
    return folder;
}

} // namespace orvanta::platform
