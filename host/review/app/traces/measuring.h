// SPDX-License-Identifier: GPL-3.0-or-later
// What the cursor reads from a line.
#pragma once

#include "host/review/app/traces/trace_curves.h"

#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

/// Frequency in Hz of the wave at a time: one over the time between the crossings of the mean of the second
/// around it, upwards, before and after the time. A crossing counts when the line leaves the mean by three
/// tenths of its standard deviation. Nothing for columns, in a gap, and where there is no wave.
std::optional<double> WaveFrequency(const TraceLine& line, double time);

/// Between two times of a line.
struct Measurement {
    double seconds = 0;               ///< not negative
    std::optional<double> difference; ///< value at the second time less that at the first
    std::optional<double> peakToPeak; ///< between the times
};
Measurement Measure(const TraceLine& line, const TraceLayout& page, double from, double to);

/// "0.512 s", "512 ms" below a tenth of a second.
std::string DurationText(double seconds);
/// "9.8 Hz"
std::string FrequencyText(double hz);

// What is written beside the mouse, one line each.
std::vector<std::string> CursorTexts(const TraceChannel& channel, const TraceLine& line,
                                     const TraceLayout& page, double time);
std::vector<std::string> MeasurementTexts(const TraceChannel& channel, const Measurement& measured);

} // namespace orvanta::review
