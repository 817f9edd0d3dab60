// SPDX-License-Identifier: GPL-3.0-or-later
// A map as pixels.
#pragma once

#include "host/chart_view/maps/map_data.h"
#include "host/chart_view/topography/electrode_marks.h"
#include "host/chart_view/topography/map_surface.h"

#include <memory>
#include <vector>

namespace orvanta::chart {

/// Interpolates the values of one map; keeps what is the same for the next values. A field is in shares of
/// the map's scale, from 0 to 1 on it, so that values of any size keep their differences in single precision.
class ORVANTA_API MapFields {
public:
    /// On the grid of a flat map, and how far each node is extrapolated. Empty when nothing is known.
    const FlatSurface* Flat(const MapData& data);
    /// On the corners of the head. Null when nothing is known.
    const HeadSurface* Head(const MapData& data);
    /// Of the surface asked for last.
    const std::vector<float>& Field() const { return field_; }

private:
    /// Takes the values over; the field is forgotten when it was another. \return whether there are any
    bool Collect(const MapData& data);

    std::vector<HeadPosition> electrodes_; ///< those that take part,
    std::vector<float> values_;            ///< and their shares of the scale
    std::shared_ptr<const FlatSurface> flat_;
    std::shared_ptr<const HeadSurface> head_;
    std::vector<float> field_;
};

/// How a map is looked at.
struct MapSight {
    owl::TRect area;
    bool threeD = false;
    HeadView view;
    bool turning = false;
    bool enabled = true;
    owl::TColor textColor = owl::Rgb(0, 0, 0);
    owl::TColor backColor = owl::Rgb(255, 255, 255);
    double pixelRatio = 1;
};

/// An electrode where it was drawn, by its number in the data.
using SeenElectrodes = std::vector<ElectrodeMark>;

/// \param platform for numbers; may be null
ORVANTA_API SeenElectrodes PaintMap(owl::TDC& dc, const GenericPlatform* platform, const MapData& data,
                                    const MapDisplay& display, const MapSight& sight, MapFields& fields);

} // namespace orvanta::chart
