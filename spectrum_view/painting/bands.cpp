// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/bands.h"

#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/plot_box.h"

#include <algorithm>

namespace orvanta::spectrum_view {

std::vector<PlotBand> BandsOf(const SpectraMgr& manager, const SpectMacroResult& analysis) {
    std::vector<PlotBand> bands;
    for (unsigned i = 0; i < kBandColors.size(); ++i) {
        const SPECT::Band& band = manager.GetBand(i);
        if (band.IsDefined()) {
            bands.push_back({band.lo, band.hi, analysis.GetIndexFromFreq(band.lo),
                             analysis.GetIndexFromFreq(band.hi), kBandColors[i], band.name});
        }
    }
    return bands;
}

owl::TRect ShadingRect(const owl::TRect& slot, const FrequencyAxis& axis, const PlotBand& band) {
    return {ShadingX(slot, axis, band.iLow), SlotY(slot, kPlotTop), ShadingX(slot, axis, band.iHigh),
            SlotY(slot, kPlotBottom)};
}

BinRange ColoredBins(const FrequencyAxis& axis, const PlotBand& band) {
    std::uint64_t first = std::max(axis.iBottom, band.iLow);
    while (axis.FrequencyOf(first) < band.lo && first < band.iHigh) {
        ++first;
    }
    const std::uint64_t end = std::min(axis.iTop + 1, band.iHigh);
    return {first, std::max(first, end)};
}

} // namespace orvanta::spectrum_view
