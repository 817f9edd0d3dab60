// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a BIDS events table.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal {

/// Appends the events in \p text, a table with tabs between columns and a head of column names in any order
/// and case. "onset" (seconds) must be there; "duration" (seconds; 0, "n/a" or none is a spot event) and, for
/// the text, "trial_type", else "value", else "event" are used when they are. Rows without a usable onset are
/// left out, unusable durations become spot events; both are named in \p repairs, the first 20.
/// \throws RecordingError about \p file when it has no head or no onset column
ORVANTA_API void ParseEventsTable(std::string_view text, const std::string& file,
                                  std::vector<Annotation>& annotations, std::vector<std::string>& repairs);

} // namespace orvanta::signal
