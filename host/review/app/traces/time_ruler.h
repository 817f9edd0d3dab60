// SPDX-License-Identifier: GPL-3.0-or-later
// Ticks of the ruler and how times are written.
#pragma once

#include "host/signal_base/recording_data.h"

#include <optional>
#include <string>
#include <vector>

namespace orvanta::review {

/// Seconds from tick to tick: whole parts or multiples of a second that people count in.
struct RulerSteps {
    double grid = 1;  ///< of the grid lines; a second wherever there is room
    double label = 1; ///< of the times written; a multiple of the grid's

    bool operator==(const RulerSteps&) const = default;
};

/// \param pixelsPerSecond above 0
/// \param labelWidth room that a time needs, pixels
RulerSteps StepsOf(double pixelsPerSecond, int labelWidth);

/// Multiples of \p step in [start, start + duration], at most 10,000.
std::vector<double> TicksOf(double start, double duration, double step);

/// Time of day, or from the start of a recording without one: "10:23:45", with as many decimals as the step
/// needs: "10:23:45.2".
std::string ClockTimeText(double time, double step, const std::optional<signal::StartTime>& start);
/// Since the start of the recording: "12.5 s", "0:12:05" from a minute on.
std::string ElapsedText(double time, double step);

/// What the ruler writes at a time. Where the recording has no time of day, the clock is empty.
struct RulerTexts {
    std::string clock, elapsed;
};
RulerTexts RulerTextsOf(double time, double step, const std::optional<signal::StartTime>& start);

} // namespace orvanta::review
