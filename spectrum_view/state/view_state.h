// SPDX-License-Identifier: GPL-3.0-or-later
// What a spectrum view remembers, and what all of them share.
#pragma once

#include "spectra_contract/spectra_types.h"
#include "spectrum_view/state/grid_size.h"

#include <cstdint>
#include <map>
#include <string>

namespace orvanta::spectrum_view {

/// Axis ranges by the name of the measure entity; a missing one has the defaults.
using Scales = std::map<std::string, SPECT::Scale>;

/// Of one view.
struct ViewState {
    Layout::Mode layout = Layout::Mode::Grid;
    std::uint64_t firstTrace = 0; ///< shown in the first slot of the grid
    GridSize grid;
    bool commonScale = false; ///< one vertical scale for all traces
    bool showTitle = true;    ///< below the plots; not stored
    Scales scales;
};

/// Shared by every spectrum view of the process; the last change holds.
struct DisplaySettings {
    SPECT::Data::Mode mode = SPECT::Data::Mode::Mean;
    SPECT::FrequencyRange range{0.0, 32.0}; ///< shown, Hz
    bool showSd = false;
    bool showPoints = true;
    bool showLines = true;
    bool showLabels = true;
    bool showAxesText = true;
    bool showMeasuresBox = true;
    bool degrees = true; ///< phase in degrees
    SPECT::Normalisation normalisation = SPECT::Normalisation::None;
    double gain = 1.0; ///< of the searched vertical range
};

/// The ones of the process. GUI thread.
DisplaySettings& Display();

} // namespace orvanta::spectrum_view
