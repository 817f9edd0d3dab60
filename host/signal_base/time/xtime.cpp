// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/time.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::uint64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr double kLongestSeconds = 9.2e9; // just inside 64 bits of nanoseconds

} // namespace

XTime XTime::FromSeconds(double seconds) {
    if (std::isnan(seconds)) {
        return {};
    }
    return FromNanoseconds(std::llround(std::clamp(seconds, -kLongestSeconds, kLongestSeconds) * 1e9));
}

std::uint32_t XTimeInterval::GetDuration(std::uint32_t rate) const {
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    if (end_ <= begin_ || rate == 0) {
        return 0;
    }
    // Unsigned, because the length of an interval may exceed the signed range of its ends.
    const std::uint64_t length =
        static_cast<std::uint64_t>(end_.Nanoseconds()) - static_cast<std::uint64_t>(begin_.Nanoseconds());
    const std::uint64_t seconds = length / kNanosecondsPerSecond;
    if (seconds > kMost) {
        return static_cast<std::uint32_t>(kMost);
    }
    const std::uint64_t rest = length % kNanosecondsPerSecond;
    const std::uint64_t samples =
        seconds * rate + (rest * rate + kNanosecondsPerSecond / 2) / kNanosecondsPerSecond;
    return static_cast<std::uint32_t>(std::min(samples, kMost));
}
