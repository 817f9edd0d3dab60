// SPDX-License-Identifier: GPL-3.0-or-later
// The user chooses the palette of the maps.
#pragma once

#include "host/toolkit/window_handle.h"
#include "spectra_contract/api.h"

#include <optional>
#include <string>

namespace orvanta::chart {

/// Shows all palettes, each with its bar, and a small map in the one that is selected. GUI thread.
/// \param parent may be null \param current name of the palette that is selected first; the first of all when
/// there is none of that name \return name of the chosen one, nothing when the user cancelled
ORVANTA_API std::optional<std::string> ChoosePalette(HWND parent, const std::string& current);

} // namespace orvanta::chart
