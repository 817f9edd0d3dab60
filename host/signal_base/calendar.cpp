// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/calendar.h"

#include <chrono>

namespace orvanta::signal {

namespace chrono = std::chrono;

std::optional<std::int64_t> MicrosecondsOf(const StartTime& time) {
    const auto within = [](int value, int first, int last) { return value >= first && value <= last; };
    if (!within(time.year, 1, 9999) || !within(time.month, 1, 12) || !within(time.day, 1, 31) ||
        !within(time.hour, 0, 23) || !within(time.minute, 0, 59) || !within(time.second, 0, 59) ||
        !within(time.microsecond, 0, 999999)) {
        return std::nullopt;
    }
    const chrono::year_month_day date{chrono::year(time.year),
                                      chrono::month(static_cast<unsigned>(time.month)),
                                      chrono::day(static_cast<unsigned>(time.day))};
    if (!date.ok()) {
        return std::nullopt;
    }
    const chrono::sys_time<chrono::microseconds> moment =
        chrono::sys_days(date) + chrono::hours(time.hour) + chrono::minutes(time.minute) +
        chrono::seconds(time.second) + chrono::microseconds(time.microsecond);
    return moment.time_since_epoch().count();
}

StartTime TimeOfMicroseconds(std::int64_t microseconds) {
    const chrono::sys_time<chrono::microseconds> moment{chrono::microseconds(microseconds)};
    const auto day = chrono::floor<chrono::days>(moment);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count()),
            static_cast<int>(time.subseconds().count())};
}

} // namespace orvanta::signal
