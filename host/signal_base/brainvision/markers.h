// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a BrainVision marker file (.vmrk).
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal::brainvision {

/// "Mk<n>=type,description,position,size,channel[,date]".
struct Marker {
    std::string type;
    std::string description;
    std::uint64_t frame = 0;       ///< counted from 0
    std::uint64_t size = 1;        ///< data points, at least 1
    std::optional<StartTime> date; ///< of a new segment
    std::size_t line = 0;          ///< counted from 1
};

/// True for the marker that starts a stretch of data without a gap.
ORVANTA_API bool IsNewSegment(const Marker& marker);

/// What an event is called: the description of a comment, "type/description" for all others ("Stimulus/S 1"),
/// or the one of both that is there.
ORVANTA_API std::string TextOf(const Marker& marker);

/// Reads the markers of a file of any encoding in its order. Lines without a position are left out, bad dates
/// ignored; both are named in \p repairs, each line with the file's name \p name.
ORVANTA_API std::vector<Marker> ParseMarkers(std::string_view text, const std::string& name,
                                             std::vector<std::string>& repairs);

} // namespace orvanta::signal::brainvision
