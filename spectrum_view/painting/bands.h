// SPDX-License-Identifier: GPL-3.0-or-later
// The frequency bands of a plot: where they are shaded and which bins they colour.
#pragma once

#include "host/toolkit/geometry.h"
#include "spectrum_view/painting/frequency_axis.h"

#include <cstdint>
#include <string>
#include <vector>

class SpectMacroResult;
class SpectraMgr;

namespace orvanta::spectrum_view {

/// One defined band on the bins of an analysis.
struct PlotBand {
    double lo = 0; ///< Hz
    double hi = 0; ///< Hz
    std::uint64_t iLow = 0;
    std::uint64_t iHigh = 0;
    owl::TColor color = 0;
    std::string name;

    bool operator==(const PlotBand&) const = default;
};

/// The defined ones of the manager's eight bands, each with the colour of its place in the table.
std::vector<PlotBand> BandsOf(const SpectraMgr& manager, const SpectMacroResult& analysis);

/// Rectangle of a band's shading, from ShadingX of its low to that of its high edge, over the plot's height.
/// May reach beyond the slot.
owl::TRect ShadingRect(const owl::TRect& slot, const FrequencyAxis& axis, const PlotBand& band);

/// Bins first … end − 1.
struct BinRange {
    std::uint64_t first = 0;
    std::uint64_t end = 0;

    bool operator==(const BinRange&) const = default;
};

/// The shown bins in the band's colour: at or above its low edge, below the bin of its high edge.
BinRange ColoredBins(const FrequencyAxis& axis, const PlotBand& band);

} // namespace orvanta::spectrum_view
