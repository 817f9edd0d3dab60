// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/map_scale.h"

namespace orvanta::spectral_maps {

MapScale OwnScale(const SPECT::PlotSet& plotSet, const chart::ValueRange& overall) {
    const double low = plotSet.bAutoScale ? overall.low : plotSet.LoScale;
    const double high = plotSet.bAutoScale ? overall.high : plotSet.HiScale;
    return {plotSet.bZeroMin ? 0.0 : low, high, plotSet.bAutoScale};
}

MapScale CartoonScale(const SPECT::PlotSet& plotSet, const chart::ValueRange& overall) {
    MapScale scale = OwnScale(plotSet, overall);
    scale.automatic = false;
    return scale;
}

} // namespace orvanta::spectral_maps
