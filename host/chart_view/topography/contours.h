// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of one value on a map.
#pragma once

#include "spectra_contract/api.h"

#include <span>
#include <vector>

namespace orvanta::chart {

/// In pixels; whole numbers are the middles of pixels.
struct GridPoint {
    double column = 0;
    double row = 0;

    bool operator==(const GridPoint&) const = default;
};

/// Marching squares with linear interpolation between the pixels. A line that closes repeats its first point.
/// \param field side × side values, row by row; lines keep away from those that are not finite
/// \param level a pixel of exactly this value counts as above
ORVANTA_API std::vector<std::vector<GridPoint>> ContourLines(std::span<const float> field, int side,
                                                             double level);

/// Levels that divide the scale in \p count + 1 equal parts; none when it has no width.
ORVANTA_API std::vector<double> ContourLevels(double low, double high, int count);

} // namespace orvanta::chart
