// SPDX-License-Identifier: GPL-3.0-or-later
// A head seen from above with the values of one moment or measure, and its scale.
#pragma once

#include "host/chart_view/head_places.h"
#include "host/chart_view/topography/electrode_marks.h"
#include "host/chart_view/topography/map_frame.h"
#include "host/chart_view/topography/map_surface.h"

#include <span>
#include <string>
#include <vector>

namespace orvanta::chart {

/// What one map is drawn from.
struct FlatMap {
    owl::TRect area;
    std::string title;
    MapReach reach;
    /// For each node of the grid, as FlatSurface has them; empty when nothing is known.
    std::span<const float> field, covers, beyond;
    const Colors& colors;
    ColorScale scale;
    std::vector<MapElectrode> electrodes; ///< all of them with a place on the head
    MapLook look = {};
    std::string notice = {}; ///< said in the middle of an empty map
};

/// Where the head lies in the room that it has.
struct FlatHead {
    owl::TRect bounds; ///< of all that is drawn
    owl::TRect disc;   ///< around the farthest reach of the map
    int radius = 0;    ///< of the head, pixels; 0 without room
    owl::TPoint centre;
};
ORVANTA_API FlatHead PlaceFlatHead(const owl::TRect& room, const MapReach& reach);

/// The coloured part, transparent around it: contours, and stripes of the background where the values are
/// extrapolated. \param side pixels of the device, at least 1
ORVANTA_API owl::TImage DiscOf(const FlatMap& map, int side);

/// \return where the electrodes were drawn
ORVANTA_API std::vector<ElectrodeMark> PaintFlatMap(owl::TDC& dc, const FlatMap& map);

} // namespace orvanta::chart
