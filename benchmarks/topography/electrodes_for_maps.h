// SPDX-License-Identifier: GPL-3.0-or-later
// Electrodes of benchmarks.
#pragma once

#include "spectra_contract/sensor.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace orvanta {

/// Evenly over the head down to 30° below the equator, along a spiral.
inline std::vector<HeadPosition> SpreadElectrodes(std::int64_t count) {
    const double turn = std::numbers::pi * (3 - std::sqrt(5.0));
    std::vector<HeadPosition> electrodes;
    for (std::int64_t i = 0; i < count; ++i) {
        const double z = 1 - 1.5 * (static_cast<double>(i) + 0.5) / static_cast<double>(count);
        const double across = std::sqrt(1 - z * z);
        const double angle = turn * static_cast<double>(i);
        electrodes.push_back({across * std::cos(angle), across * std::sin(angle), z});
    }
    return electrodes;
}

} // namespace orvanta
