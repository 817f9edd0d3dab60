// SPDX-License-Identifier: GPL-3.0-or-later
// From spectra to the tables of measures over their cells.
#pragma once

#include "spectrum_view/measures/clipboard_table.h"
#include "spectrum_view/painting/measures_box_input.h"
#include "spectrum_view/traces/mean_plots.h"

#include <optional>

namespace orvanta::spectrum_view {

/// The table over a cell of the grid; nothing for a cell without a spectrum, in grids of more than two
/// columns or rows, on the scalp, and while the boxes are switched off. \param cell index in \p entries
/// \param format of the values, NaN for one that is not computable
std::optional<MeasuresBoxInput> MeasuresBoxOf(const PlotSources& sources, std::span<const TraceEntry> entries,
                                              std::size_t cell, const FormatNumber& format);

} // namespace orvanta::spectrum_view
