// SPDX-License-Identifier: GPL-3.0-or-later
// Inputs of the over-time plots, kept while they stay the same.
#pragma once

#include "spectrum_view/traces/epoch_rows.h"
#include "spectrum_view/traces/mean_plots.h"

#include <cstdint>
#include <map>
#include <vector>

namespace orvanta::spectrum_view {

/// Gathers the epochs of the traces shown. Reading all epochs of a long recording takes a second, so what was
/// gathered is kept until the analysis, the entity or the page changes or a plot needs more than twice the
/// rows. Belongs to one view.
class OverTimePlots {
public:
    /// One input per entry, with at most as many rows as the next power of two above the longer side of the
    /// largest rectangle. An entry without a main spectrum has no rows.
    std::vector<OverTimeInput> Of(const PlotSources& sources, EEGFileInfoType& recording,
                                  std::span<const TraceEntry> entries);

private:
    struct Key {
        std::uint64_t generation = 0;
        SPECT::Entity::Type entity = SPECT::Entity::Type::Amplitude;
        std::size_t mostRows = 0;

        bool operator==(const Key&) const = default;
    };

    Key key_;
    std::vector<EpochGroup> groups_;
    std::map<const SpectrumSingle*, SpectraOverTime> spectra_; ///< of the page shown last
};

} // namespace orvanta::spectrum_view
