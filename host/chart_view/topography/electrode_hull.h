// SPDX-License-Identifier: GPL-3.0-or-later
// Where the electrodes end on a map of the head.
#pragma once

#include "host/chart_view/head_places.h"

#include <span>
#include <vector>

namespace orvanta::chart {

/// The point of the head over a place, the inverse of Projected, on the unit sphere.
ORVANTA_API HeadPosition OnHead(const Place& place);

/// How far a map reaches from the vertex in a direction: over the head as seen from above, and as much more
/// as low electrodes there need, at most kFarthest. Around an electrode the edge bulges gently.
class ORVANTA_API MapEdge {
public:
    explicit MapEdge(std::span<const HeadPosition> electrodes);

    /// \param angle from the nose to the right ear, radians \return radii of the head, at least 1
    double At(double angle) const;

private:
    struct Low {
        double angle, height;
    };
    std::vector<Low> low_; ///< electrodes below the edge of the head, and by how much
    double farthest_ = 1;
};
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
