// SPDX-License-Identifier: GPL-3.0-or-later
// Times as users type them.
#pragma once

#include "host/signal_base/recording_data.h"

#include <optional>
#include <string>

namespace orvanta::review {

/// What a typed time depends on.
struct TimeContext {
    double now = 0;   ///< seconds since the first sample, where the page begins
    double total = 0; ///< seconds
    std::optional<signal::StartTime> start;
};

/// Seconds since the first sample, or why there is none.
struct TypedTime {
    double seconds = 0;
    std::string error; ///< "reason (remedy)"; empty when the time is good
};

/// "10:23:45", "10:23" or "10:23:45.5" is a time of day, of the next day where the recording passes midnight,
/// or counts from the start of a recording without one. "90", "90 s", "1.5 min" and "2 h" count from the
/// start; with a sign in front, "+90 s" or "-0:01:30", from now. Outside of the recording there is none.
TypedTime ReadTypedTime(const std::string& text, const TimeContext& context);

} // namespace orvanta::review
