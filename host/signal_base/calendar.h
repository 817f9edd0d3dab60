// SPDX-License-Identifier: GPL-3.0-or-later
// Arithmetic on dates and times without a zone.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <optional>

namespace orvanta::signal {

/// Microseconds since 1970-01-01 in the Gregorian calendar; none when a field is out of its range (years 1 to
/// 9999, the day one of its month, no leap seconds).
ORVANTA_API std::optional<std::int64_t> MicrosecondsOf(const StartTime& time);
/// The inverse, for the years 1 to 9999.
ORVANTA_API StartTime TimeOfMicroseconds(std::int64_t microseconds);

} // namespace orvanta::signal
