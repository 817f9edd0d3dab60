// SPDX-License-Identifier: GPL-3.0-or-later
// Events written into the text of a BIDS events table.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/events.h"

#include <span>
#include <string>
#include <string_view>

namespace orvanta::signal {

/// Why a table cannot hold the event so that it is read again as it is, as "reason (remedy)"; empty when it
/// can. A label is UTF-8 of one line without blanks at its ends, not empty and not "n/a"; a state event
/// lasts, a spot event does not; times and durations stay below 1e9 s.
ORVANTA_API std::string WhyNotInTable(const EventRecord& event);

/// \p table with those of \p events that are the user's, in their order, in place of its own. A row whose
/// event is as it was stays as it is; of one whose event was changed only the cells that tell it do. What
/// others keep in the table stays: columns, and rows that are no events, behind the row that they followed.
/// Times are in seconds, shortest round trip with "."; what a new event has no value for is "n/a". The text
/// is UTF-8 with the line ends of \p table.
/// \param table as it was read when the lines of \p events were counted; empty makes a new one
/// \throws RecordingError about \p file when \p table is no events table
ORVANTA_API std::string WriteEventsTable(std::string_view table, const std::string& file,
                                         std::span<const EventRecord> events);

} // namespace orvanta::signal
