// SPDX-License-Identifier: GPL-3.0-or-later
// Events made of a recording's annotations.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/events.h"

#include <string>
#include <vector>

namespace orvanta::signal {

/// One event per annotation, in time order: a state event for a duration above 0, else a spot event.
/// Annotations without a text, or whose times are no numbers or lie farther than 9.2e9 s from the start, are
/// left out and counted in \p repairs.
ORVANTA_API std::vector<EventRecord> EventsOf(const std::vector<Annotation>& annotations,
                                              std::vector<std::string>& repairs);

} // namespace orvanta::signal
