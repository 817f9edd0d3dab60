// SPDX-License-Identifier: GPL-3.0-or-later
// The points of a flat map.
#pragma once

#include "host/chart_view/head_places.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orvanta::chart {

/// The point of the head over a place, the inverse of Projected, on the unit sphere.
ORVANTA_API HeadPosition OnHead(const Place& place);

/// A square of pixels around the head seen from above, of which a disc belongs to the map.
class ORVANTA_API MapRaster {
public:
    /// \param side pixels, at least 2
    /// \param reach radius of the disc, in radii of the head; at least 1
    MapRaster(int side, double reach);

    int Side() const { return side_; }
    double Reach() const { return reach_; }
    /// Of the pixels of the disc, row by row.
    const std::vector<std::uint32_t>& Pixels() const { return pixels_; }
    /// The middles of these pixels.
    const std::vector<Place>& Places() const { return places_; }
    Place PlaceOf(double column, double row) const;

private:
    int side_;
    double reach_;
    std::vector<std::uint32_t> pixels_;
    std::vector<Place> places_;
};

/// Reach of a map that shows all the electrodes: the head, or as much more as the lowest electrode needs, at
/// most kFarthest.
ORVANTA_API double ReachOf(std::span<const HeadPosition> electrodes);
inline constexpr double kFarthest = 1.35;

/// For each place whether it lies beyond the electrodes, where values are extrapolated: outside their convex
/// hull by more than \p margin radii of the head. All of them with fewer than 3 electrodes or those in a
/// line.
ORVANTA_API std::vector<bool> BeyondElectrodes(std::span<const Place> places,
                                               std::span<const HeadPosition> electrodes, double margin);

} // namespace orvanta::chart
