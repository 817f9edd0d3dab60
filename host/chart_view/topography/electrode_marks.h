// SPDX-License-Identifier: GPL-3.0-or-later
// Electrodes on a map, with their names and values.
#pragma once

#include "host/chart_view/topography/map_frame.h"
#include "spectra_contract/sensor.h"

#include <string>
#include <vector>

namespace orvanta::chart {

/// An electrode on a map.
struct MapElectrode {
    HeadPosition position; ///< any distance from the centre
    std::string name;
    std::string value;      ///< as text
    bool used = true;       ///< its value went into the map
    std::size_t number = 0; ///< among those of the window
};

/// One that is seen.
struct ElectrodeMark {
    owl::TPoint at;
    std::size_t electrode = 0; ///< its number
};

/// Pixels from the middle of a dot to its edge; 0 for a head too small for dots. \param headRadius pixels
ORVANTA_API int DotReach(int headRadius);

/// Where labels stand: below their dots, else above, right or left of them, so that none covers another or a
/// dot, and all stay in the area. Empty for one without room. The earlier come first.
/// \param extents of the labels; those of no width take no room \param dot pixels from its middle to its edge
ORVANTA_API std::vector<owl::TRect> PlaceLabels(const std::vector<owl::TPoint>& dots,
                                                const std::vector<owl::TSize>& extents, int dot,
                                                const owl::TRect& area);

/// Dots, names and values as the look says. Selects the font of labels. \param area labels stay inside
ORVANTA_API void PaintMarks(owl::TDC& dc, const std::vector<ElectrodeMark>& marks,
                            const std::vector<MapElectrode>& electrodes, int headRadius,
                            const owl::TRect& area, const MapLook& look);

} // namespace orvanta::chart
