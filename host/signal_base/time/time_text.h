// SPDX-License-Identifier: GPL-3.0-or-later
// Times as people read them.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <string>

namespace orvanta::signal {

/// Milliseconds that \p samples last at \p rate Hz, to the nearest, half away from zero; 0 for rate 0. Kept
/// within some 290,000 years.
ORVANTA_API std::int64_t MillisecondsOf(std::int64_t samples, unsigned rate);
/// "hh:mm:ss.mmm", with a leading "-" when negative. Hours grow beyond two digits.
ORVANTA_API std::string TimeText(std::int64_t milliseconds);
/// Time of day "hh:mm:ss.mmm", \p milliseconds after \p start.
ORVANTA_API std::string ClockText(const StartTime& start, std::int64_t milliseconds);
/// Date "yyyy-mm-dd", \p milliseconds after \p start.
ORVANTA_API std::string DateText(const StartTime& start, std::int64_t milliseconds);

} // namespace orvanta::signal
