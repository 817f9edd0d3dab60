// SPDX-License-Identifier: GPL-3.0-or-later
// Where the electrodes end on a map of the head.
#pragma once

#include "host/chart_view/head_places.h"

#include <span>
#include <vector>

namespace orvanta::chart {

/// The point of the head over a place, the inverse of Projected, on the unit sphere.
ORVANTA_API HeadPosition OnHead(const Place& place);

/// Reach of a map that shows all the electrodes: the head, or as much more as the lowest electrode needs, at
/// most kFarthest.
ORVANTA_API double ReachOf(std::span<const HeadPosition> electrodes);
inline constexpr double kFarthest = 1.35;

/// The convex hull of electrodes, as seen from above.
class ORVANTA_API ElectrodeHull {
public:
    explicit ElectrodeHull(std::span<const HeadPosition> electrodes);

    /// With fewer than 3 electrodes, or those in a line.
    bool IsEmpty() const { return corners_.empty(); }
    /// Radii of the head; 0 inside. As far as can be when the hull is empty.
    double DistanceTo(const Place& place) const;

private:
    std::vector<Place> corners_;
};

} // namespace orvanta::chart
