// SPDX-License-Identifier: GPL-3.0-or-later
// The user changes how the maps of a view are drawn.
#pragma once

#include "host/chart_view/maps/map_window.h"
#include "host/toolkit/window_handle.h"

namespace orvanta::chart {

/// What can be changed.
struct MapSettings {
    MapDisplay display;         ///< ownScale is the opposite of singlePalette afterwards
    bool singlePalette = false; ///< one colour bar and one scale for all maps

    bool operator==(const MapSettings&) const = default;
};

/// GUI thread. \param parent may be null \param settings changed when the user agreed
/// \return whether the user agreed
ORVANTA_API bool EditMapSettings(HWND parent, MapSettings& settings);

} // namespace orvanta::chart
