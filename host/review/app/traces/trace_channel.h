// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of the trace view.
#pragma once

#include "spectra_contract/recording.h"

#include <string>
#include <vector>

namespace orvanta::review {

/// A stored signal's share in a line: value = weight × (gain × stored value + offset).
struct TraceTerm {
    std::size_t signal = 0; ///< index in the recording's source
    double weight = 1;
    double gain = 1;
    double offset = 0;

    bool operator==(const TraceTerm&) const = default;
};

/// One line: a channel of the montage, or a signal that is not EEG. All its terms have one rate.
struct TraceChannel {
    std::string name;       ///< "Fp1-F3", "ECG"; unique among the lines of a recording
    std::string unit;       ///< "µV" for every voltage
    std::uint32_t type = 0; ///< a code of Sensor::Type
    double rate = 0;        ///< Hz
    std::vector<TraceTerm> terms;
    bool bad = false; ///< one of its electrodes is marked bad

    bool operator==(const TraceChannel&) const = default;
};

/// The channels of the montage in use, then the other sampled signals in file order.
std::vector<TraceChannel> ChannelsOf(const EEGFileInfoType& recording);

} // namespace orvanta::review
