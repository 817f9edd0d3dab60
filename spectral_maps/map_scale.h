// SPDX-License-Identifier: GPL-3.0-or-later
// The colour scale of a map.
#pragma once

#include "host/chart_view/maps/map_window.h"
#include "spectra_contract/spectra_types.h"

namespace orvanta::spectral_maps {

/// Ends of the scale, and whether the map may follow its own values instead.
struct MapScale {
    double low = 0;
    double high = 0;
    bool automatic = false;

    bool operator==(const MapScale&) const = default;
};

/// Of a window that is no map of spectra.
inline constexpr MapScale kForeignScale{0.0, 100.0, true};

/// Of a map with its own setting. \param overall ends of the values of all maps
MapScale OwnScale(const SPECT::PlotSet& plotSet, const chart::ValueRange& overall);

/// Of every map of a cartoon: never automatic, so that all steps share one scale. \param overall ends of the
/// values of all steps
MapScale CartoonScale(const SPECT::PlotSet& plotSet, const chart::ValueRange& overall);

} // namespace orvanta::spectral_maps
