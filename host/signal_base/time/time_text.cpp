// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/time/time_text.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace orvanta::signal {

namespace {

using Milliseconds = std::chrono::milliseconds;

constexpr std::int64_t kLongestSeconds = 9'200'000'000'000;

/// The calendar counts days in an int; what lies farther off than XTime can reach is held there.
constexpr Milliseconds kFarthest = std::chrono::seconds{9'200'000'000};

std::chrono::sys_time<Milliseconds> Moment(const StartTime& start, std::int64_t milliseconds) {
    using namespace std::chrono;
    const auto day = sys_days{year{start.year} / start.month / start.day};
    const auto clock = hours{start.hour} + minutes{start.minute} + seconds{start.second} +
                       duration_cast<Milliseconds>(microseconds{start.microsecond});
    return day + clock + std::clamp(Milliseconds{milliseconds}, -kFarthest, kFarthest);
}

} // namespace

std::int64_t MillisecondsOf(std::int64_t samples, unsigned rate) {
    if (rate == 0) {
        return 0;
    }
    const std::int64_t seconds = samples / rate;
    if (seconds >= kLongestSeconds || seconds <= -kLongestSeconds) {
        return seconds < 0 ? -kLongestSeconds * 1000 : kLongestSeconds * 1000;
    }
    const std::int64_t rest = samples % rate;
    const std::int64_t half = rest < 0 ? -static_cast<std::int64_t>(rate) : rate;
    return seconds * 1000 + (rest * 2000 + half) / (2 * static_cast<std::int64_t>(rate));
}

std::string TimeText(std::int64_t milliseconds) {
    // The magnitude is unsigned, because the lowest number has no positive twin.
    const bool negative = milliseconds < 0;
    const std::uint64_t size =
        negative ? 0 - static_cast<std::uint64_t>(milliseconds) : static_cast<std::uint64_t>(milliseconds);
    char text[48];
    std::snprintf(text, sizeof text, "%s%02llu:%02u:%02u.%03u", negative ? "-" : "",
                  static_cast<unsigned long long>(size / 3'600'000),
                  static_cast<unsigned>(size / 60'000 % 60), static_cast<unsigned>(size / 1000 % 60),
                  static_cast<unsigned>(size % 1000));
    return text;
}

std::string ClockText(const StartTime& start, std::int64_t milliseconds) {
    const auto moment = Moment(start, milliseconds);
    return TimeText((moment - std::chrono::floor<std::chrono::days>(moment)).count());
}

std::string DateText(const StartTime& start, std::int64_t milliseconds) {
    const std::chrono::year_month_day date{
        std::chrono::floor<std::chrono::days>(Moment(start, milliseconds))};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

} // namespace orvanta::signal
