// SPDX-License-Identifier: GPL-3.0-or-later
// A recording made of values at hand.
#pragma once

#include "host/signal_base/recording_data.h"

#include <string>
#include <vector>

namespace orvanta::test {

/// One signal of a made-up recording. Values are physical, in `unit`, and kept as 32-bit floats.
struct MadeSignal {
    std::string label;
    double rate_hz = 256;
    std::vector<double> values;
    std::string unit = "uV";
};

/// A recording in memory. Blocks of one second; the rates must be whole numbers. Segments follow from `gaps`:
/// a gap of gap_s seconds opens before block `block`.
struct Gap {
    std::uint64_t block = 0;
    double gap_s = 0;
};
signal::RecordingData MakeData(const std::vector<MadeSignal>& signals,
                               const std::vector<signal::Annotation>& annotations = {},
                               const std::vector<Gap>& gaps = {});

} // namespace orvanta::test
