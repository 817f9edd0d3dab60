// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/text.h"

#include <array>
#include <charconv>

namespace orvanta::spectral {

namespace {

/// Enough for the largest double in fixed point.
using Digits = std::array<char, 400>;

} // namespace

std::string FixedText(double value, int decimals) {
    Digits digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::fixed, decimals);
    return written.ec == std::errc() ? std::string(digits.data(), written.ptr) : std::string();
}

std::string EpochsText(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " epoch" : " epochs");
}

} // namespace orvanta::spectral
