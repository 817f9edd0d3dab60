// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/contours.h"

namespace orvanta::chart {

std::vector<double> ContourLevels(double low, double high, int count) {
    std::vector<double> levels;
    for (int i = 1; i <= count && high > low; ++i) {
        levels.push_back(low + (high - low) * i / (count + 1));
    }
    return levels;
}

} // namespace orvanta::chart
