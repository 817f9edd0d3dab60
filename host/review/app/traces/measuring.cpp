// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/measuring.h"

#include "host/review/app/traces/scale_bars.h"
#include "host/review/app/traces/trace_texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <span>

namespace orvanta::review {

namespace {

constexpr double kAround = 1;       ///< seconds on either side
constexpr double kHysteresis = 0.3; ///< of the standard deviation

std::string Written(const char* format, double value) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

struct Crossings {
    std::optional<double> before, after; ///< places among the values
};

/// Of the mean, upwards, before and after a place.
Crossings UpwardCrossings(std::span<const float> values, double place) {
    double mean = 0;
    for (const float value : values) {
        mean += value;
    }
    mean /= static_cast<double>(values.size());
    double squares = 0;
    for (const float value : values) {
        squares += (value - mean) * (value - mean);
    }
    const double least = kHysteresis * std::sqrt(squares / static_cast<double>(values.size()));
    Crossings crossings;
    bool below = false;
    std::optional<double> crossed; ///< since the line was below, not yet far enough above
    for (std::size_t i = 1; i < values.size(); ++i) {
        const double before = values[i - 1] - mean;
        const double now = values[i] - mean;
        if (before < -least) {
            below = true;
            crossed.reset();
        }
        if (before < 0 && now >= 0) {
            crossed = static_cast<double>(i) - 1 + before / (before - now);
        }
        if (!(below && now > least && crossed)) {
            continue;
        }
        below = false;
        if (*crossed <= place) {
            crossings.before = crossed;
        } else {
            crossings.after = crossed;
            return crossings;
        }
    }
    return crossings;
}

} // namespace

std::optional<double> WaveFrequency(const TraceLine& line, double time) {
    for (const TraceRun& run : line.runs) {
        const double place = (time - run.start) / run.step;
        const auto count = static_cast<double>(run.values.size());
        if (!(place >= 0 && place < count)) {
            continue;
        }
        const double first = std::max(0.0, std::floor(place - kAround / run.step));
        const double last = std::min(count, std::ceil(place + kAround / run.step));
        const std::span<const float> around =
            std::span(run.values)
                .subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
        const Crossings crossings = UpwardCrossings(around, place - first);
        if (crossings.before && crossings.after) {
            return 1 / ((*crossings.after - *crossings.before) * run.step);
        }
    }
    return std::nullopt;
}

Measurement Measure(const TraceLine& line, const TraceLayout& page, double from, double to) {
    Measurement measured;
    measured.seconds = std::abs(to - from);
    const std::optional<double> first = ValueAt(line, page, from);
    const std::optional<double> last = ValueAt(line, page, to);
    if (first && last) {
        measured.difference = *last - *first;
    }
    const double begin = std::min(from, to);
    const double end = std::max(from, to);
    TraceColumn range;
    // Of a sample, or of a column that the stretch touches.
    const auto extend = [&](double since, double until, float low, float high) {
        if (until >= begin && since <= end) {
            range = range.IsEmpty() ? TraceColumn{low, high}
                                    : TraceColumn{std::min(range.low, low), std::max(range.high, high)};
        }
    };
    for (const TraceRun& run : line.runs) {
        for (std::size_t i = 0; i < run.values.size(); ++i) {
            const double time = run.start + static_cast<double>(i) * run.step;
            extend(time, time, run.values[i], run.values[i]);
        }
    }
    const double width = page.duration / static_cast<double>(std::max<std::size_t>(1, line.columns.size()));
    for (std::size_t i = 0; i < line.columns.size(); ++i) {
        if (!line.columns[i].IsEmpty()) {
            const double left = page.start + static_cast<double>(i) * width;
            extend(left, left + width, line.columns[i].low, line.columns[i].high);
        }
    }
    if (!range.IsEmpty()) {
        measured.peakToPeak = static_cast<double>(range.high) - range.low;
    }
    return measured;
}

std::string DurationText(double seconds) {
    return seconds < 0.1    ? Written("%.1f ms", seconds * 1000)
           : seconds < 1000 ? Written("%.3f s", seconds)
                            : Written("%.0f s", seconds);
}

std::string FrequencyText(double hz) {
    return Written(hz < 10 ? "%.2f Hz" : "%.1f Hz", hz);
}

std::vector<std::string> CursorTexts(const TraceChannel& channel, const TraceLine& line,
                                     const TraceLayout& page, double time) {
    const std::optional<double> value = ValueAt(line, page, time);
    std::vector<std::string> texts{
        channel.name + "  " + (value ? ValueText(*value, channel.unit) : TraceText("noData", "no data"))};
    if (const std::optional<double> frequency = WaveFrequency(line, time)) {
        texts.push_back(TraceText("wave", "wave of %1", FrequencyText(*frequency)));
    }
    return texts;
}

std::vector<std::string> MeasurementTexts(const TraceChannel& channel, const Measurement& measured) {
    std::string length = "Δt " + DurationText(measured.seconds);
    if (measured.seconds > 0) {
        length += "  (" + FrequencyText(1 / measured.seconds) + ")";
    }
    std::vector<std::string> texts{channel.name, std::move(length)};
    if (measured.difference) {
        texts.push_back("ΔV " + ValueText(*measured.difference, channel.unit));
    }
    if (measured.peakToPeak) {
        texts.push_back(
            TraceText("peakToPeak", "peak to peak %1", ValueText(*measured.peakToPeak, channel.unit)));
    }
    return texts;
}

} // namespace orvanta::review
