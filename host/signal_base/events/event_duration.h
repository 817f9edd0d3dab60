// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "spectra_contract/events.h"

namespace orvanta::signal {

/// End less begin, in whole nanoseconds: the difference of seconds far from 0 has digits that nobody
/// recorded.
inline XTime DurationOf(const EventRecord& event) {
    return XTime::FromNanoseconds(event.Interval.GetEndPtr()->Nanoseconds() -
                                  event.Interval.GetBeginPtr()->Nanoseconds());
}

} // namespace orvanta::signal
