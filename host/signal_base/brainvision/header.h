// SPDX-License-Identifier: GPL-3.0-or-later
// What a BrainVision header file (.vhdr) says about the data file.
#pragma once

#include "host/signal_base/block_source.h"
#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal::brainvision {

enum class Orientation {
    Multiplexed, ///< frame after frame, one sample per channel
    Vectorized   ///< channel after channel, all its samples
};

struct Header {
    std::string data_name;   ///< file name without folders; empty when the header names none
    std::string marker_name; ///< the same
    Orientation orientation = Orientation::Multiplexed;
    SampleFormat format = SampleFormat::Int16;
    std::optional<std::uint64_t> points; ///< samples per channel as declared
    double rate_hz = 0;
    std::size_t channels = 1;          ///< NumberOfChannels
    std::vector<SignalHeader> signals; ///< as many as `channels`, or more when more are described
};

/// True when \p text starts as a header file does.
ORVANTA_API bool IsHeader(std::string_view text);

/// Reads a header of any encoding. "$b" in file names stands for the stem of \p path. What is repaired is
/// appended to \p repairs. \throws RecordingError about \p path when the data cannot be understood: no
/// header, no usable channel count, sampling interval or sample format
ORVANTA_API Header ParseHeader(std::string_view text, const std::string& path,
                               std::vector<std::string>& repairs);

} // namespace orvanta::signal::brainvision
