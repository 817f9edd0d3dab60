// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/time_axis.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace orvanta::spectrum_view {

namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3600;
constexpr double kDay = 86400;
constexpr std::array kSteps{0.1,         0.2,         0.5,          1.0,          2.0,
                            5.0,         10.0,        15.0,         30.0,         kMinute,
                            2 * kMinute, 5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute,
                            kHour,       2 * kHour,   3 * kHour,    6 * kHour,    12 * kHour};
/// Ends within this share of a step count as on a tick.
constexpr double kTolerance = 1e-6;

/// Number of the first and last multiple of \p step in the range.
struct Multiples {
    double first = 0;
    double last = 0;

    double Count() const { return last - first + 1; }
};

Multiples MultiplesOf(double step, double begin, double end) {
    return {std::ceil(begin / step - kTolerance), std::floor(end / step + kTolerance)};
}

double StepFor(double begin, double end, int most) {
    for (const double step : kSteps) {
        if (MultiplesOf(step, begin, end).Count() <= most) {
            return step;
        }
    }
    double days = 1;
    while (MultiplesOf(days * kDay, begin, end).Count() > most) {
        days *= 2;
    }
    return days * kDay;
}

} // namespace

TimeTicks RoundTimes(double begin_s, double end_s, int most) {
    if (!(end_s > begin_s) || !std::isfinite(end_s - begin_s) || most < 2) {
        return {};
    }
    const double step = StepFor(begin_s, end_s, most);
    const Multiples multiples = MultiplesOf(step, begin_s, end_s);
    if (multiples.Count() < 2) {
        return {};
    }
    TimeTicks ticks{step, {}};
    for (double i = multiples.first; i <= multiples.last; ++i) {
        ticks.at_s.push_back(i * step + 0.0); // never -0
    }
    return ticks;
}

std::string TimeText(double seconds, double step_s) {
    constexpr int kTenths = 10;
    const long long tenths = std::llround(seconds * kTenths);
    const long long ofDay = ((tenths % 864000) + 864000) % 864000;
    const long long second = ofDay / kTenths;
    std::array<char, 32> text{};
    if (step_s >= kMinute) {
        std::snprintf(text.data(), text.size(), "%02lld:%02lld", second / 3600, second / 60 % 60);
    } else if (step_s >= 1) {
        std::snprintf(text.data(), text.size(), "%02lld:%02lld:%02lld", second / 3600, second / 60 % 60,
                      second % 60);
    } else {
        std::snprintf(text.data(), text.size(), "%02lld:%02lld:%02lld.%lld", second / 3600, second / 60 % 60,
                      second % 60, ofDay % kTenths);
    }
    return text.data();
}

} // namespace orvanta::spectrum_view
