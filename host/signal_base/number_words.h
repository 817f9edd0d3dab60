// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers with their words, for messages.
#pragma once

#include <cstdint>
#include <string>

namespace orvanta::signal {

/// "1 sample", "3 samples".
std::string CountText(std::uint64_t count, const std::string& word);
/// "2.5 s"; at most six significant digits.
std::string SecondsText(double seconds);
/// "173.61 Hz"; at most six significant digits.
std::string HertzText(double hertz);

} // namespace orvanta::signal
