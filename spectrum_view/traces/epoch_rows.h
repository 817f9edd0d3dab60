// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra over time for the compressed array and the time/frequency plot.
#pragma once

#include "spectrum_view/painting/plot_input.h"
#include "spectrum_view/traces/trace_list.h"

#include <cstddef>
#include <vector>

class EEGFileInfoType;
class SpectMacroResult;

namespace orvanta::spectrum_view {

/// Neighbouring epochs that make one row: epochs first … end − 1.
struct EpochGroup {
    std::size_t first = 0;
    std::size_t end = 0;
    SpectraOverTime::Span span; ///< from the first epoch's begin to the last one's end

    bool operator==(const EpochGroup& other) const {
        return first == other.first && end == other.end && span.begin_s == other.span.begin_s &&
               span.end_s == other.span.end_s;
    }
};

/// Divides the time that the epochs cover in \p mostRows equal stretches and groups the epochs by the stretch
/// that their middle lies in; stretches without an epoch, such as gaps, have no group.
/// \param epochs in time order
std::vector<EpochGroup> GroupEpochs(const std::vector<SpectraOverTime::Span>& epochs, std::size_t mostRows);

/// Where the analysis' epochs lie, in time order.
std::vector<SpectraOverTime::Span> EpochSpans(const SpectMacroResult& analysis, EEGFileInfoType& recording);

/// Spectra of the epochs of a trace in the current entity, the epochs of a group averaged, bins that are not
/// computable left out of the average.
/// \param spectrum of the trace, from \p analysis
SpectraOverTime SpectraOf(const SpectMacroResult& analysis, const SpectrumSingle& spectrum,
                          const std::vector<EpochGroup>& groups);

} // namespace orvanta::spectrum_view
