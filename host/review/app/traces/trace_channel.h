// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of the trace view.
#pragma once

#include "spectra_contract/recording.h"

#include <cstdint>
#include <memory>
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
    std::string unit;       ///< "µV" for every voltage, "raw" where the file gives no usable calibration
    std::uint32_t type = 0; ///< a code of Sensor::Type: that of the channel's first sensor
    double rate = 0;        ///< Hz
    std::vector<TraceTerm> terms;
    /// The electrodes of an average reference, with the weights that make their mean, which is subtracted;
    /// lines share it, so that it is worked out once. Null for none.
    std::shared_ptr<const std::vector<TraceTerm>> average;
    bool bad = false; ///< one of the sensors in its terms is marked bad

    bool operator==(const TraceChannel& other) const;
};

/// Whether both show the same values: name, type and marks do not count.
bool SameValues(const TraceChannel& a, const TraceChannel& b);

/// The channels of the montage in use, then the other sampled signals in file order, each at its own rate. A
/// name that is taken gets "-2", "-3", ... behind it. Voltages are in µV, raw values as stored.
std::vector<TraceChannel> ChannelsOf(const EEGFileInfoType& recording);

} // namespace orvanta::review
