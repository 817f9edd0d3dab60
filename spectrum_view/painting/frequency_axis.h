// SPDX-License-Identifier: GPL-3.0-or-later
// Frequencies and bins across a plot.
#pragma once

#include "host/toolkit/geometry.h"

#include <cstdint>

class SpectMacroResult;

namespace orvanta::spectrum_view {

/// The shown frequencies and the bins of one analysis.
struct FrequencyAxis {
    double bottom = 0;     ///< Hz
    double top = 0;        ///< Hz
    double resolution = 0; ///< Hz per bin
    std::uint64_t iBottom = 0;
    std::uint64_t iTop = 0; ///< last bin shown

    /// False when there is nothing to divide by: plots then stay empty.
    bool IsDrawable() const { return top - bottom > 0 && resolution > 0; }
    /// Centre frequency of a bin, Hz.
    double FrequencyOf(std::uint64_t bin) const { return static_cast<double>(bin) * resolution; }

    bool operator==(const FrequencyAxis&) const = default;
};

/// The range in Hz on the bins of \p analysis.
FrequencyAxis AxisOf(const SpectMacroResult& analysis, double bottom, double top);

/// Column of a bin of the curve: left + trunc(width × (0.1 + (bin − iBottom) × 0.88 / ((1 / resolution) ×
/// (top − bottom)))). The axis must be drawable.
int CurveX(const owl::TRect& slot, const FrequencyAxis& axis, std::uint64_t bin);

/// Column of a bin of the shading: left + trunc(width × (bin × k + 0.1)), k = 0.88 / ((top − bottom) × (1 /
/// resolution)). Not reduced by iBottom, so it lies iBottom bins to the right of the curve's. The axis must
/// be drawable.
int ShadingX(const owl::TRect& slot, const FrequencyAxis& axis, std::uint64_t bin);

/// Column of a frequency in Hz on the axis itself, for ticks: the place between bottom and top. The axis must
/// be drawable.
int FrequencyX(const owl::TRect& slot, const FrequencyAxis& axis, double hz);

} // namespace orvanta::spectrum_view
