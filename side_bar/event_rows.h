// SPDX-License-Identifier: GPL-3.0-or-later
// The event types of a recording as rows of a list.
#pragma once

#include "spectra_contract/events.h"

#include <cstdint>
#include <vector>

namespace orvanta::side_bar {

struct EventRow {
    XEventType type;
    unsigned count = 0;
    std::uint32_t seconds = 0; ///< whole seconds of all its events; 0 for spot events

    bool operator==(const EventRow&) const = default;
};

/// Whole seconds of all intervals together: their durations at \p rate (Hz) are summed, then divided without
/// remainder. 0 when the rate is 0.
std::uint32_t WholeSeconds(const XTimeList& intervals, std::uint32_t rate);

/// The types of one class that have events, in the order of the types.
std::vector<EventRow> EventRowsOf(const EventsManager& events, EventClass eventClass);

} // namespace orvanta::side_bar
