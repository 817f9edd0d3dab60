// SPDX-License-Identifier: GPL-3.0-or-later
// How maps are drawn.
#pragma once

#include "host/chart_view/topography/color_scale.h"
#include "host/chart_view/topography/map_title.h"
#include "host/toolkit/dc.h"

namespace orvanta::chart {

/// What maps beside each other have in common, so that their heads are of one size.
struct MapFit {
    TitleFit titles;
    ScaleRoom scale; ///< at least

    bool operator==(const MapFit&) const = default;
};

struct MapLook {
    bool electrodes = true;
    bool names = false;
    bool values = false;
    bool scale = true; ///< beside the map, or below it
    int contours = 6;  ///< lines between the ends of the scale
    owl::TFont font = {};
    owl::TColor textColor = owl::Rgb(0, 0, 0);
    owl::TColor backColor = owl::Rgb(255, 255, 255);
    double pixelRatio = 1; ///< device pixels to a logical one
    MapFit fit = {};
};

} // namespace orvanta::chart
