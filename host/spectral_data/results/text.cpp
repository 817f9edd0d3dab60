// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/text.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>

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

std::string ElapsedText(XTime time) {
    const bool negative = time.Nanoseconds() < 0;
    const std::int64_t ms = (std::abs(time.Nanoseconds()) + 500'000) / 1'000'000;
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%s%02lld:%02lld:%02lld.%03lld", negative && ms > 0 ? "-" : "",
                  static_cast<long long>(ms / 3'600'000), static_cast<long long>(ms / 60'000 % 60),
                  static_cast<long long>(ms / 1000 % 60), static_cast<long long>(ms % 1000));
    return text.data();
}

} // namespace orvanta::spectral
