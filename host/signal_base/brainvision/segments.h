// SPDX-License-Identifier: GPL-3.0-or-later
// Time in a BrainVision recording: where it starts, where it was interrupted.
#pragma once

#include "host/signal_base/brainvision/markers.h"
#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::signal::brainvision {

struct Segments {
    std::optional<StartTime> start;
    std::uint64_t block_frames = 1; ///< so that every segment starts with a block
    std::vector<BlockSegment> segments;
};

/// Lays out \p frames frames by the "New Segment" markers. The first dated one sets the start. A later one
/// is an interruption: a gap as long as its date says, or a break without a gap when it has no date; none
/// when its date is, within a sample or a millisecond, where the data already are. Dates that go back or
/// ahead by more than a year are named in \p repairs and taken as a break without a gap. Blocks are as long
/// as segments allow, at most \p maxBlockFrames.
ORVANTA_API Segments LayOutSegments(const std::vector<Marker>& markers, double rate_hz, std::uint64_t frames,
                                    std::uint64_t maxBlockFrames, const std::string& name,
                                    std::vector<std::string>& repairs);

} // namespace orvanta::signal::brainvision
