// SPDX-License-Identifier: GPL-3.0-or-later
// From spectra to what the painters of the slots are given.
#pragma once

#include "spectrum_view/painting/plot_input.h"
#include "spectrum_view/state/view_state.h"
#include "spectrum_view/traces/trace_list.h"

#include <span>
#include <vector>

class SpectMacroResult;
class SpectraMgr;

namespace orvanta::spectrum_view {

/// What the plots of a page follow; all must outlive the call.
struct PlotSources {
    const SpectraMgr& manager; ///< with a main analysis
    const ViewState& view;
    const DisplaySettings& display;
    owl::TFont font;
    std::string ratioName = "Ratio"; ///< of the ratio in the legends
};

/// Colours of the curves: those of the settings; a secondary analysis in the colour of the main one is drawn
/// in orange.
struct TraceColors {
    owl::TColor main = 0;
    owl::TColor secondary = 0;
};
TraceColors ColorsOf(const SpectraMgr& manager);

/// Frame of each entry, in the order of \p entries: label, unit, vertical range (common to all with a common
/// scale). An entry without a main spectrum has no label and no range.
std::vector<SlotFrame> FramesOf(const PlotSources& sources, std::span<const TraceEntry> entries);

/// Mean plot of each entry. Phase is in degrees where asked for; an entry without a main spectrum has no
/// curve.
std::vector<PlotInput> MeanPlotsOf(const PlotSources& sources, std::span<const TraceEntry> entries);

} // namespace orvanta::spectrum_view
