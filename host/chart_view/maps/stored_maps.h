// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of a view of maps.
#pragma once

#include "host/chart_view/maps/map_array_layout.h"
#include "host/chart_view/maps/map_window.h"

namespace orvanta::chart {

/// What a view remembers from one run to the next. A new user has room for the bands that are defined by
/// default, and one map of the size of all others for each.
struct StoredMaps {
    MapGrid grid{2, 4};
    MapDisplay display; ///< but for the font, which the view keeps, and ownScale
    bool singlePalette = false;
    bool locked = false;
    bool table = false;

    bool operator==(const StoredMaps&) const = default;
};

/// Reads what StoreMaps wrote; what is missing is a new user's, what is out of range its nearest, and a
/// palette that does not exist the first.
ORVANTA_API StoredMaps ReadStoredMaps(const GenericPlatform& platform, const std::string& section);

/// Writes "MapRows", "MapColumns", "MapElectrodes", "MapNames", "MapValues", "MapContours", "MapOpacity",
/// "MapSinglePalette", "MapLocked", "MapTable" and the text "MapPalette".
ORVANTA_API void StoreMaps(GenericPlatform& platform, const std::string& section, const StoredMaps& maps);

/// Number among the palettes; 0 for a name that none has.
ORVANTA_API int PaletteIndex(const std::string& name);

} // namespace orvanta::chart
