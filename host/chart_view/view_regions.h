// SPDX-License-Identifier: GPL-3.0-or-later
// Places of electrodes on the head seen from above, nose up.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectra_contract/sensor.h"

#include <map>
#include <string>
#include <vector>

/// A region given by its centre and size, pixels.
struct MyRect {
    int x = 0; ///< centre
    int y = 0; ///< centre
    int width = 0;
    int height = 0;

    /// The same as edges.
    constexpr owl::TRect Edges() const {
        const int left = x - width / 2;
        const int top = y - height / 2;
        return {left, top, left + width, top + height};
    }
};

/// Orders names, case ignored.
struct ORVANTA_API ElectrodeNameOrder {
    bool operator()(const std::string& a, const std::string& b) const;
};
using ViewRegions = std::map<std::string, owl::TRect, ElectrodeNameOrder>;

/// One rectangle per sensor with a standard position, by the sensor's name; a name without a position has
/// none. All have one size, as large as they come; none overlaps another or leaves the region. They are empty
/// where the region has no room for them.
///
/// A position at the angle θ from the vertex lies at θ / 90° of the head's radius (azimuthal equidistant
/// projection), in the direction that it has on the head; crowded rectangles make way by up to 0.35 of the
/// radius. The head fills the region, stretched by at most 1.8.
ORVANTA_API ViewRegions Get2DViewRegions(const SensorList& sensors, const MyRect& region);

/// Lines of the head behind the rectangles, pixels.
struct HeadOutline {
    std::vector<owl::TPoint> head;     ///< closed: the ring of the equator, first point repeated
    std::vector<owl::TPoint> nose;     ///< open, from left to right
    std::vector<owl::TPoint> leftEar;  ///< open, from front to back
    std::vector<owl::TPoint> rightEar; ///< open, from front to back
};

/// The head on which Get2DViewRegions places the same sensors; all inside the region.
ORVANTA_API HeadOutline Get2DHeadOutline(const SensorList& sensors, const MyRect& region);
