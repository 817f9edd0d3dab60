// SPDX-License-Identifier: GPL-3.0-or-later
// A head in three dimensions with the values of one moment or measure, and its scale.
#pragma once

#include "host/chart_view/topography/electrode_marks.h"
#include "host/chart_view/topography/head_picture.h"
#include "host/chart_view/topography/map_frame.h"

#include <span>
#include <string>
#include <vector>

namespace orvanta::chart {

/// What one map on a head is drawn from.
struct HeadMap {
    owl::TRect area;
    std::string title;
    const HeadMesh& mesh;
    /// For each corner of the mesh, as HeadSurface has them; empty when nothing is known.
    std::span<const float> field, covers, beyond;
    const Colors& colors;
    ColorScale scale;
    std::vector<MapElectrode> electrodes; ///< all of them with a place on the head
    HeadView view;
    int opacity = 100;    ///< per cent
    bool turning = false; ///< coarser and faster
    MapLook look = {};
    std::string notice = {}; ///< said on an empty head
};

/// \return where electrodes were drawn: those on the side that is seen
ORVANTA_API std::vector<ElectrodeMark> PaintHeadMap(owl::TDC& dc, const HeadMap& map);

} // namespace orvanta::chart
