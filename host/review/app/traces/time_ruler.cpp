// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/time_ruler.h"

#include "host/signal_base/time/time_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace orvanta::review {

namespace {

constexpr std::array kSteps{0.001, 0.002, 0.005, 0.01,   0.02,   0.05,   0.1,    0.2,
                            0.5,   1.0,   2.0,   5.0,    10.0,   15.0,   30.0,   60.0,
                            120.0, 300.0, 600.0, 1800.0, 3600.0, 7200.0, 21600.0};
constexpr double kLeastGridWidth = 6;
constexpr double kMostGridWidth = 200;
constexpr std::size_t kMostTicks = 10000;

/// The first step that is at least so wide.
double StepOfWidth(double pixelsPerSecond, double width) {
    const auto* const wide = std::find_if(kSteps.begin(), kSteps.end(),
                                          [&](double step) { return step * pixelsPerSecond >= width; });
    return wide == kSteps.end() ? kSteps.back() : *wide;
}

/// Decimals of a second that tell multiples of the step apart.
int DecimalsOf(double step) {
    return step >= 1 ? 0 : step >= 0.1 ? 1 : step >= 0.01 ? 2 : 3;
}

std::int64_t MillisecondsOf(double time) {
    return std::llround(std::clamp(time, -1e12, 1e12) * 1000);
}

/// "hh:mm:ss.mmm" with fewer decimals.
std::string Cut(std::string text, int decimals) {
    text.resize(text.size() - (decimals == 0 ? 4 : static_cast<std::size_t>(3 - decimals)));
    return text;
}

} // namespace

RulerSteps StepsOf(double pixelsPerSecond, int labelWidth) {
    RulerSteps steps;
    steps.label = StepOfWidth(pixelsPerSecond, labelWidth);
    // A second, unless that is too narrow to be seen or too wide to be of use.
    steps.grid = pixelsPerSecond < kLeastGridWidth  ? steps.label
                 : pixelsPerSecond > kMostGridWidth ? StepOfWidth(pixelsPerSecond, kMostGridWidth / 4)
                                                    : 1;
    steps.label = std::max(steps.label, steps.grid);
    const double multiple = std::round(steps.label / steps.grid);
    if (std::abs(multiple * steps.grid - steps.label) > 1e-9) {
        steps.label = steps.grid * std::ceil(steps.label / steps.grid);
    }
    return steps;
}

std::vector<double> TicksOf(double start, double duration, double step) {
    std::vector<double> ticks;
    const double first = std::ceil(start / step - 1e-9);
    const double last = std::floor((start + duration) / step + 1e-9);
    for (double number = first; number <= last && ticks.size() < kMostTicks; ++number) {
        ticks.push_back(number * step + 0.0); // no negative zero
    }
    return ticks;
}

std::string ClockTimeText(double time, double step, const std::optional<signal::StartTime>& start) {
    const std::int64_t milliseconds = MillisecondsOf(time);
    return Cut(start ? signal::ClockText(*start, milliseconds) : signal::TimeText(milliseconds),
               DecimalsOf(step));
}

std::string ElapsedText(double time, double step) {
    const int decimals = DecimalsOf(step);
    std::array<char, 64> text{};
    if (std::abs(time) < 59.9995) {
        std::snprintf(text.data(), text.size(), "%.*f s", decimals, time);
        return text.data();
    }
    std::string whole = Cut(signal::TimeText(MillisecondsOf(time)), decimals);
    // Hours need no leading zero.
    const std::size_t first = whole.starts_with('-') ? 1 : 0;
    if (whole.size() > first + 2 && whole[first] == '0' && whole[first + 2] == ':') {
        whole.erase(first, 1);
    }
    return whole;
}

RulerTexts RulerTextsOf(double time, double step, const std::optional<signal::StartTime>& start) {
    return {start ? ClockTimeText(time, step, start) : std::string(), ElapsedText(time, step)};
}

} // namespace orvanta::review
