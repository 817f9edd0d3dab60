// SPDX-License-Identifier: GPL-3.0-or-later
// The event types of a recording as rows of a list.
#pragma once

#include "spectra_contract/events.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace orvanta::side_bar {

struct EventRow {
    XEventType type;
    unsigned count = 0;        ///< 0 for a label that the recording lacks
    std::uint32_t seconds = 0; ///< whole seconds of all its events; 0 for spot events

    bool operator==(const EventRow&) const = default;
};

/// Whole seconds of all intervals together: their durations at \p rate (Hz) are summed, then divided without
/// remainder. 0 when the rate is 0.
std::uint32_t WholeSeconds(const XTimeList& intervals, std::uint32_t rate);

/// The types of one class that have events, in the order of the types.
std::vector<EventRow> EventRowsOf(const EventsManager& events, EventClass eventClass);

/// Appends a row without events for each label that has none yet: settings may name events of other
/// recordings.
void AppendLacking(std::vector<EventRow>& rows, const std::set<std::string>& labels, EventClass eventClass);

/// What can be excluded: the states, the spots among \p labels, and rows for those that neither are.
std::vector<EventRow> RejectRowsOf(const std::vector<EventRow>& states, const std::vector<EventRow>& spots,
                                   const std::set<std::string>& labels);

} // namespace orvanta::side_bar
