// SPDX-License-Identifier: GPL-3.0-or-later
// The bar that gives colours their numbers.
#pragma once

#include "host/chart_view/topography/palettes.h"
#include "host/toolkit/dc.h"

#include <string>
#include <vector>

namespace orvanta::chart {

struct MapLook;

struct ColorScale {
    double low = 0, high = 1;
    /// Evenly from the lower end to the upper one; a single one stands in the middle.
    std::vector<std::string> numbers = {};
    std::string unit = {}; ///< may be empty
};

/// The least room of a scale, pixels: upright at the side of a map, or lying below it. None when empty.
struct ScaleRoom {
    owl::TSize beside, below;

    bool operator==(const ScaleRoom&) const = default;
};

/// In the selected font; rooms of scales with numbers of usual lengths are alike.
ORVANTA_API ScaleRoom RoomOfScale(const owl::TDC& dc, const ColorScale& scale);
/// Enough for both.
ORVANTA_API ScaleRoom RoomForBoth(const ScaleRoom& a, const ScaleRoom& b);

/// Upright in the middle of the area: the unit above the bar, numbers at its right.
ORVANTA_API void PaintUprightScale(owl::TDC& dc, const owl::TRect& area, const Colors& colors,
                                   const ColorScale& scale, const MapLook& look);
/// As wide as the area, numbers and unit below the bar.
ORVANTA_API void PaintLyingScale(owl::TDC& dc, const owl::TRect& area, const Colors& colors,
                                 const ColorScale& scale, const MapLook& look);

} // namespace orvanta::chart
