// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of one value on a map.
#pragma once

#include "spectra_contract/api.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace orvanta::chart {

/// Levels that divide the scale in \p count + 1 equal parts; none when it has no width.
ORVANTA_API std::vector<double> ContourLevels(double low, double high, int count);

/// How much of a pixel the nearest line covers, 0 to 1: by its distance, which value and slope tell.
/// \param level the pixel's value, counted in levels: the lines are at 1, 2, ... \p count
/// \param slope of the level, per pixel
/// \param width of a line, pixels
inline float ContourCoverage(float level, float slope, int count, float width) {
    const float raised = level + 0.5F;
    const auto nearest = static_cast<int>(raised); // far quicker than rounding; what is below 0 has no line
    if (nearest < 1 || nearest > count) {
        return 0;
    }
    const float distance = std::abs(level - static_cast<float>(nearest));
    return distance < slope * (width + 1) ? std::clamp(width / 2 + 0.5F - distance / slope, 0.0F, 1.0F)
                                          : 0.0F;
}

} // namespace orvanta::chart
