// SPDX-License-Identifier: GPL-3.0-or-later
// A table of the montage's channels by frequency bands, for people.
#pragma once

#include "host/review/cli/report.h"

#include <functional>
#include <string>
#include <vector>

namespace orvanta::cli {

/// A group of columns, one per defined band.
struct TableBlock {
    std::string title;
    std::function<double(const Trace& trace, unsigned band)> value;
    int decimals = kSignificant;

    /// As CompactText chooses.
    static constexpr int kSignificant = -1;
};

/// The measures that tell most of an entity in little room: absolute and relative, or the mean for coherence
/// and phase.
std::vector<SPECT::Meas::Type> TableMeasures(SPECT::Entity::Type entity);

/// One line per channel of the analysis, headed by the blocks' titles and the bands' names. What is not
/// computable reads "n/a".
std::string BandTable(const SpectraMgr& manager, const SpectMacroResult& analysis,
                      const std::vector<TableBlock>& blocks);

} // namespace orvanta::cli
