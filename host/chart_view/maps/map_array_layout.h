// SPDX-License-Identifier: GPL-3.0-or-later
// Where the parts of a view of maps lie.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <vector>

namespace orvanta::chart {

/// Maps in rows and columns.
struct MapGrid {
    std::uint16_t rows = 1, columns = 1;

    std::size_t Count() const { return std::size_t{rows} * columns; }
    bool operator==(const MapGrid&) const = default;
};

/// At most so many rows, and columns.
inline constexpr std::uint16_t kMostMapsAside = 8;

/// The nearest grid that a view can have.
ORVANTA_API MapGrid Repaired(const MapGrid& grid);

/// What the view has besides its maps; 0 pixels for what it has not.
struct MapArrayParts {
    int titleHeight = 0;
    int scaleWidth = 0; ///< bar and numbers
    int barHeight = 0;  ///< controls at the lower edge
};

/// A part without room is empty. None touches another or leaves the area.
struct MapArrayLayout {
    owl::TRect title;             ///< above the maps, as wide as the view
    std::vector<owl::TRect> maps; ///< row by row; neighbours differ by at most a pixel in size
    owl::TRect scale;             ///< to the right of the maps, as high as they are
    owl::TRect bar;               ///< at the lower edge, as wide as the view

    bool operator==(const MapArrayLayout&) const = default;
};

/// What is too large for the area gives way in this order: the scale, the title, the controls. The scale and
/// the title take at most a third of what they share with the maps.
ORVANTA_API MapArrayLayout LayOutMapArray(const owl::TRect& area, const MapGrid& grid,
                                          const MapArrayParts& parts);

} // namespace orvanta::chart
